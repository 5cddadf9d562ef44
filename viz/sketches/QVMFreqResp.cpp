#include "viz/sketches/QVMFreqResp.h"

#include "platform/vector/VectorMath.h"
#include "viz/sketches/QVMLineAttributes.h"
#include "viz/sketches/StraightPoints.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kGridStep = 6;             // dB
constexpr float kFarthestReference = 1000; // dB; no settings come near it, and the grid would have lines without end
constexpr float kFarthest = 2;             // a line may leave the canvas by half its height
constexpr float kStraight = 0.01f;         // how little a point may turn the line to be left out
constexpr float kCurveWidth = 2;           // points
constexpr float kReferenceWidth = 1;       // points
constexpr float kGridWidth = 0.5f;         // points
constexpr float kDim = 0.5f;               // of the sketch's colour, for the grid
constexpr QVMDashPattern kReferenceDashes = {4, 2};

std::vector<float> triangle(int half) {
    const int length = 2 * half + 1;
    const auto sum = static_cast<float>((half + 1) * (half + 1));
    std::vector<float> kernel(static_cast<std::size_t>(length));
    for (int j = 0; j < length; ++j)
        kernel[static_cast<std::size_t>(j)] = static_cast<float>(j < half ? j + 1 : length - j) / sum;
    return kernel;
}

// What is dimmed here is dimmed as light is, colour and alpha alike: it is fainter, not darker. The surface takes
// colours whose alpha is not in them.
Color straight(const Color& dimmed) {
    if (!(dimmed.a > 0)) return dimmed;
    return {dimmed.r / dimmed.a, dimmed.g / dimmed.a, dimmed.b / dimmed.a, dimmed.a};
}

} // namespace

void QVMFreqResp::init(PBGLCanvas canvas, float resolution, QVMFloat32Range freqRange, QVMFloat32Range range,
                       int numCurves) {
    canvas_ = canvas;
    dbRange = range;
    referenceLevel = 0;
    const QVMRGBColor& rgb = canvas.sketch.color;
    dimColour_ = {rgb.r * kDim, rgb.g * kDim, rgb.b * kDim, kDim};

    const auto count = static_cast<std::size_t>(std::max(0.0f, canvas.width * canvas.scale * 2 * resolution));
    const double lowest = std::log(double{freqRange.min}), highest = std::log(double{freqRange.max});
    freqs_.resize(count);
    xs_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double at = count > 1 ? static_cast<double>(i) / static_cast<double>(count - 1) : 0;
        freqs_[i] = std::max(1.0f, static_cast<float>(std::exp(lowest + at * (highest - lowest))));
        xs_[i] = static_cast<float>(2 * at - 1);
    }

    const auto pixels = static_cast<int>(std::lround(2 * 2 * resolution * canvas.scale * 0.5f));
    const int smoothing = 2 * pixels > 1 ? 2 * pixels : 1;
    kernel_ = triangle(smoothing / 2);
    padded_.assign(count + kernel_.size() - 1, 0);

    Curve curve;
    curve.ys = curve.clippedYs = curve.clippedXs = std::vector<float>(count);
    curve.colour = {rgb.r, rgb.g, rgb.b, 1};
    curves_.assign(static_cast<std::size_t>(numCurves), curve);
}

float QVMFreqResp::heightOf(float level) const {
    return (level - dbRange.min) * 2 / (dbRange.max - dbRange.min) - 1;
}

void QVMFreqResp::prepareForDrawing(const float* db, float, int index) {
    Curve& c = curve(index);
    const std::size_t count = freqs_.size();
    if (count == 0) return;
    const float slope = 2 / (dbRange.max - dbRange.min);
    vectors::scaleAndOffset(db, slope, -dbRange.min * slope - 1, c.ys.data(), count);
    smooth(c.ys);
    vectors::clip(c.ys.data(), -kFarthest, kFarthest, c.clippedYs.data(), count);
    vectors::copy(xs_.data(), c.clippedXs.data(), count);
    c.pointCount = dropStraightPoints(c.clippedXs, c.clippedYs, count, kStraight);
}

void QVMFreqResp::smooth(std::vector<float>& ys) {
    if (kernel_.size() == 1) return;
    const auto behind = std::fill_n(padded_.begin(), kernel_.size() - 1, ys.front());
    std::copy(ys.begin(), ys.end(), behind);
    vectors::convolve(padded_.data(), kernel_.data(), kernel_.size(), ys.data(), ys.size());
}

std::vector<float> QVMFreqResp::gridLevels() const {
    std::vector<float> levels;
    if (!(std::abs(referenceLevel) <= kFarthestReference)) return levels;
    const int first = static_cast<int>(std::floor(dbRange.min / kGridStep));
    for (int step = first;; ++step) {
        const float level = static_cast<float>(step) * kGridStep + referenceLevel;
        if (!(level <= dbRange.max)) return levels;
        if (step != 0) levels.push_back(level);
    }
}

void QVMFreqResp::drawLevel(float level, float widthPoints, Color colour, bool dashed, DrawingSurface& surface) const {
    const std::array<float, 2> xs = {-1, 1}, ys = {heightOf(level), heightOf(level)};
    QVMLineAttributes line(canvas_);
    line.colour = straight(colour);
    line.widthPoints = widthPoints;
    line.xs = xs;
    line.ys = ys;
    if (dashed) line.dashes = kReferenceDashes;
    line.draw(surface);
}

void QVMFreqResp::glDraw(DrawingSurface& surface) const {
    drawLevel(referenceLevel, kReferenceWidth, dimColour_, true, surface);
    if (showGrid) {
        for (const float level : gridLevels())
            drawLevel(level, kGridWidth, dimColour_, false, surface);
    }
    for (const Curve& c : curves_) {
        if (c.hidden) continue;
        QVMLineAttributes line(canvas_);
        line.colour = straight(c.colour);
        line.widthPoints = kCurveWidth;
        line.xs = std::span(c.clippedXs).first(c.pointCount);
        line.ys = std::span(c.clippedYs).first(c.pointCount);
        line.draw(surface);
    }
}

} // namespace QVM_NAMESPACE
