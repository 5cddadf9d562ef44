#include "viz/displays/QVMGoniometer.h"

#include "platform/surface/DrawingSurface.h"
#include "platform/vector/VectorMath.h"
#include "viz/displays/CirclePoints.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr float kDisplayedPeak = 0.68f;          // the gain brings the largest magnitude here
constexpr float kFaintestPeak = 0.0056234132f;   // -45 dB: no more gain for what is fainter
constexpr double kRiseRate = 1, kFallRate = 100; // a second
constexpr float kFanMagnitude = 0.001f;          // the area goes through what is louder
constexpr float kFanShare = 0.65f;               // of the colour
constexpr float kAxisShare = 0.35f, kDiagonalShare = 0.2f;
constexpr float kAxisWidth = 1;                                       // points
constexpr float kRim = kDisplayedPeak * std::numbers::sqrt2_v<float>; // how far a signal of even peaks goes
constexpr int kRimSegments = 96;

Color shade(QVMRGBColor rgb, float alpha) {
    return {rgb.r, rgb.g, rgb.b, alpha};
}

} // namespace

void QVMGoniometer::init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) {
    canvas_ = canvas;
    sampleRate_ = double{sampleRate};
    maxFrames_ = std::max(1u, maxFrames);
    tap_.init(framesOfAFrame(sampleRate_, maxFrames_));
    block_.alloc(maxFrames_);
    gain_ = 0.5f;
    pointCount_ = 0;
    for (std::vector<float>* array : {&x_, &y_, &work_, &gains_, &gainsCopy_})
        array->assign(tap_.capacity(), 0);
}

void QVMGoniometer::processAudio(const QVMAudioBuffer<float>* buffer, unsigned nFrames, bool midSide) {
    if (buffer->numChannels == 0) return;
    const unsigned frames = std::min(nFrames, maxFrames_);
    block_.fill(buffer, frames);
    if (midSide) {
        float *const first = block_.channels[0], *const second = block_.channels[1];
        for (unsigned i = 0; i < frames; ++i) {
            const float mid = first[i], side = second[i];
            first[i] = mid + side;
            second[i] = mid - side;
        }
    }
    tap_.append(block_, frames);
}

Redraw QVMGoniometer::prepareForDrawing(float dt) {
    const double wanted = std::floor(double{dt} * sampleRate_);
    if (!(wanted >= 1)) return Redraw::no;
    const auto n = static_cast<unsigned>(std::min(wanted, static_cast<double>(tap_.capacity())));
    if (!tap_.takeNext(n, x_.data(), y_.data())) return Redraw::no;
    pointCount_ = n;
    vectors::magnitude(x_.data(), y_.data(), gains_.data(), n);
    vectors::copy(gains_.data(), gainsCopy_.data(), n);
    rampGain(dt);

    vectors::add(x_.data(), y_.data(), work_.data(), n);
    vectors::multiply(work_.data(), gains_.data(), work_.data(), n);
    vectors::multiplyAdd(x_.data(), -1.0f, y_.data(), y_.data(), n);
    vectors::multiply(y_.data(), gains_.data(), y_.data(), n);
    vectors::clip(y_.data(), -1.0f, 1.0f, x_.data(), n);
    vectors::clip(work_.data(), -1.0f, 1.0f, y_.data(), n);
    return Redraw::yes;
}

// Each point gets a gain of its own on the way to the one that suits the peak; what is not a number is no peak. In
// double precision: a step is so small a part of the gain that single precision would lose it.
void QVMGoniometer::rampGain(float dt) {
    float peak = kFaintestPeak;
    for (const float magnitude : magnitudes())
        peak = std::max(peak, magnitude);
    const double target = double{kDisplayedPeak} / double{peak};
    const double rate = double{gain_} <= target ? kRiseRate : kFallRate;
    const double kept = std::exp(-rate * double{dt} / static_cast<double>(pointCount_)), taken = (1 - kept) * target;
    double gain = double{gain_};
    for (std::size_t i = 0; i < pointCount_; ++i) {
        gain = gain * kept + taken;
        gains_[i] = static_cast<float>(gain);
    }
    gain_ = static_cast<float>(gain);
}

void QVMGoniometer::setProjection(DrawingSurface& surface) const {
    const double least = std::max(1e-3f, std::min(canvas_.width, canvas_.height));
    const double across = double{canvas_.width} / least, up = double{canvas_.height} / least;
    surface.setProjection(-across, across, -up, up);
}

void QVMGoniometer::drawBackground(DrawingSurface& surface, QVMRGBColor colour) const {
    setProjection(surface);
    constexpr float lean = kRim / std::numbers::sqrt2_v<float>;
    constexpr Vertex ends[] = {{0, kRim}, {kRim, 0}, {-lean, lean}, {lean, lean}}; // mid, side, left, right
    for (std::size_t i = 0; i < std::size(ends); ++i) {
        const std::array<Vertex, 2> axis = {{{-ends[i].x, -ends[i].y}, ends[i]}};
        surface.drawLineStrip(axis, {.width = kAxisWidth}, shade(colour, i < 2 ? kAxisShare : kDiagonalShare));
    }
    surface.drawLineStrip(circlePoints(kRim, kRimSegments), {.width = kAxisWidth}, shade(colour, kAxisShare));
}

const std::vector<Vertex>& QVMGoniometer::fan() {
    bool hasHub = false;
    Vertex before;
    outline_.begin({});
    for (std::size_t i = 0; i < pointCount_; ++i) {
        if (!(gainsCopy_[i] > kFanMagnitude) || !std::isfinite(x_[i]) || !std::isfinite(y_[i])) continue;
        const Vertex point = {x_[i], y_[i]};
        if (hasHub) {
            outline_.add(before, point);
        } else {
            outline_.begin(point);
            hasHub = true;
        }
        before = point;
    }
    return outline_.triangles();
}

// The squares are short pieces of a line as wide as they are long, which takes care of those that overlap.
void QVMGoniometer::glDraw(DrawingSurface& surface, QVMRGBColor colour) {
    setProjection(surface);
    surface.fillTriangles(fan(), TriangleMode::list, shade(colour, kFanShare));
    constexpr float nowhere = std::numeric_limits<float>::quiet_NaN();
    const float half = pointSize_ / std::max(1e-3f, std::min(canvas_.width, canvas_.height));
    dots_.clear();
    for (std::size_t i = 0; i < pointCount_; ++i) {
        if (!(gainsCopy_[i] > 0)) continue;
        dots_.push_back({x_[i] - half, y_[i]});
        dots_.push_back({x_[i] + half, y_[i]});
        dots_.push_back({nowhere, nowhere});
    }
    surface.drawLineStrip(dots_, {.width = pointSize_}, shade(colour, 1));
}

} // namespace QVM_NAMESPACE
