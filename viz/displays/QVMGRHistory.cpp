#include "viz/displays/QVMGRHistory.h"

#include "platform/surface/DrawingSurface.h"
#include "platform/vector/VectorMath.h"
#include "viz/sketches/QVMLineAttributes.h"
#include "viz/sketches/StraightPoints.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kFresh = 0.1;                   // seconds that a value holds
constexpr float kReturnShare = 0.2f;             // of the rate, back to rest
constexpr float kRangeRate = 0.5f;               // a second
constexpr float kRangeMargin = 3;                // dB below the lowest value
constexpr QVMFloat32Range kBottoms = {-48, -12}; // dB
constexpr float kStraight = 0.001f;
constexpr float kLineWidth = 1.5f; // points
constexpr float kFillAlpha = 0.35f;
constexpr float kGridStep = 6, kGridWidth = 0.5f; // dB, points
constexpr float kVisibleMove = 1.0f / 16;         // device pixels
constexpr float kGridAlpha = 0.4f, kFaintGridAlpha = 0.2f;

bool isScale(QVMFloat32Range range) {
    return std::isfinite(range.min) && std::isfinite(range.max) && range.min < range.max;
}

} // namespace

double hostClockSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void QVMGRHistory::init(PBGLCanvas canvas, QVMFloat32Range range, bool autoRange, bool flag) {
    canvas_ = canvas;
    pixel_ = 1 / std::max(1.0f, canvas.height * canvas.scale);
    bottom_ = drawnBottom_ = isScale(range) ? range.min : kBottoms.max;
    top_ = isScale(range) ? range.max : restValue_;
    autoRange_ = autoRange;
    flag_ = flag;
    const QVMRGBColor& rgb = canvas.sketch.color;
    colour_ = {rgb.r, rgb.g, rgb.b, 1};
    latest_ = smoothed_ = restValue_;
    scroll_ = 0;
    const auto count = static_cast<std::size_t>(std::max(2l, std::lround(canvas.width)));
    history_.assign(count, restValue_);
    xs_.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        xs_[i] = 2 * static_cast<float>(i) / static_cast<float>(count - 1) - 1;
    lineXs_ = lineYs_ = lastXs_ = lastYs_ = std::vector<float>(count);
    keptPoints_ = 0;
}

void QVMGRHistory::processAudio(float value, bool clamp) {
    const float taken = clamp ? std::min(std::max(value, bottom_.load()), top_) : value;
    if (!std::isfinite(taken)) return;
    latest_ = taken;
    lastTime_ = clock_();
}

Redraw QVMGRHistory::prepareForDrawing(float dt) {
    if (!std::isfinite(dt)) return Redraw::no;
    const bool isFresh = clock_() - lastTime_ <= kFresh;
    if (!isFresh) latest_ = restValue_;
    const float kept = std::exp(rate_ * dt * (isFresh ? 1 : kReturnShare));
    smoothed_ = kept * smoothed_ + (1 - kept) * latest_;
    scrollBy(dt);
    if (autoRange_) followRange(dt);

    const std::size_t before = keptPoints_;
    std::swap(lineXs_, lastXs_);
    std::swap(lineYs_, lastYs_);
    const std::size_t count = history_.size();
    const float margin = 1 - 2 * pixel_, slope = 2 / (top_ - bottom_);
    vectors::scaleAndOffset(history_.data(), slope * margin, (-bottom_ * slope - 1) * margin, lineYs_.data(), count);
    vectors::copy(xs_.data(), lineXs_.data(), count);
    keptPoints_ = dropStraightPoints(lineXs_, lineYs_, count, kStraight);
    const auto end = static_cast<std::ptrdiff_t>(keptPoints_);
    const bool isSame = keptPoints_ == before && std::equal(lineXs_.begin(), lineXs_.begin() + end, lastXs_.begin()) &&
                        std::equal(lineYs_.begin(), lineYs_.begin() + end, lastYs_.begin());
    if (isSame && !hasScaleMoved()) return Redraw::no;
    drawnBottom_ = bottom_;
    return Redraw::yes;
}

// The grid moves with it, also where the line stays: most at the bottom.
bool QVMGRHistory::hasScaleMoved() const {
    return std::abs(bottom_ - drawnBottom_) > kVisibleMove * pixel_ * (top_ - bottom_);
}

// New points run straight from the newest value there was to the one there is now.
void QVMGRHistory::scrollBy(float dt) {
    const double exact = scroll_ + static_cast<double>(history_.size()) * double{dt} / double{duration_};
    const double whole = std::floor(exact);
    scroll_ = exact - whole;
    if (whole < 0) {
        std::fill(history_.begin(), history_.end(), restValue_);
        smoothed_ = restValue_;
        return;
    }
    const auto count = static_cast<std::size_t>(std::min(whole, static_cast<double>(history_.size())));
    if (count == 0) return;
    const float newest = history_.front();
    std::move_backward(history_.begin(), history_.end() - static_cast<std::ptrdiff_t>(count), history_.end());
    for (std::size_t j = 0; j < count; ++j) {
        const float share = static_cast<float>(j) / static_cast<float>(count);
        history_[j] = (1 - share) * smoothed_ + share * newest;
    }
}

void QVMGRHistory::followRange(float dt) {
    const float lowest = *std::min_element(history_.begin(), history_.end());
    const float kept = std::exp(-kRangeRate * dt);
    const float next = (lowest - kRangeMargin) * (1 - kept) + kept * bottom_;
    if (std::isfinite(next)) bottom_ = std::clamp(next, kBottoms.min, kBottoms.max); // time may have run backwards
}

float QVMGRHistory::heightOf(float value) const {
    return ((value - bottom_) * 2 / (top_ - bottom_) - 1) * (1 - 2 * pixel_);
}

void QVMGRHistory::drawBackground(DrawingSurface& surface) const {
    if ((top_ - bottom_) / kGridStep > canvas_.height) return;
    const int first = static_cast<int>(std::ceil(bottom_ / kGridStep));
    const int last = static_cast<int>(std::floor(top_ / kGridStep));
    for (int step = first; step <= last; ++step) {
        const float height = heightOf(static_cast<float>(step) * kGridStep);
        const std::array<float, 2> across = {-1, 1}, up = {height, height};
        QVMLineAttributes line(canvas_);
        line.colour = colour_.withAlpha(step % 2 == 0 ? kGridAlpha : kFaintGridAlpha);
        line.widthPoints = kGridWidth;
        line.xs = across;
        line.ys = up;
        line.draw(surface);
    }
}

// On either side of the rest level on its own: an area that crosses it would lie over itself.
void QVMGRHistory::fillFrom(DrawingSurface& surface, float rest) const {
    for (const bool below : {true, false}) {
        std::vector<Vertex> strip;
        bool hasArea = false;
        for (std::size_t i = 0; i < keptPoints_; ++i) {
            const float end = below ? std::min(lineYs_[i], rest) : std::max(lineYs_[i], rest);
            hasArea = hasArea || end != rest;
            strip.push_back({lineXs_[i], rest});
            strip.push_back({lineXs_[i], end});
        }
        if (hasArea) surface.fillTriangles(strip, TriangleMode::strip, colour_.withAlpha(kFillAlpha));
    }
}

void QVMGRHistory::glDraw(DrawingSurface& surface) const {
    if (keptPoints_ == 0) return;
    surface.setProjection(-1, 1, -1, 1);
    fillFrom(surface, heightOf(restValue_));
    QVMLineAttributes line(canvas_);
    line.colour = colour_;
    line.widthPoints = kLineWidth;
    line.xs = xs();
    line.ys = ys();
    line.draw(surface);
}

} // namespace QVM_NAMESPACE
