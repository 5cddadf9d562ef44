#include "viz/displays/HistogramDisplay.h"

#include "platform/vector/VectorMath.h"

#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kDecibelsPerNeper = 8.685889f;
constexpr QVMFloat32Range kThirdOctaves = {22.1f, 22627}; // hertz, the ends of the outermost bands

} // namespace

void HistogramDisplay::init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) {
    analysis_.init(canvas, sampleRate, maxFrames);
    levels_.assign(analysis_.numBins(), 0);
    bands_.init(kThirdOctaves, QVMHistogram::kBins, sampleRate / static_cast<float>(analysis_.fftSize()),
                analysis_.numBins());
    histogram_.init(sampleRate, maxFrames);
    histogram_.colour = canvas.sketch.color;
}

void HistogramDisplay::processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) {
    analysis_.processAudio(&buffer, nFrames);
}

Redraw HistogramDisplay::prepareForDrawing(float dt) {
    if (analysis_.prepareForDrawing(dt) == Redraw::no) return Redraw::no;
    vectors::scaleAndOffset(analysis_.levelDb().data(), 1 / kDecibelsPerNeper, 0, levels_.data(), levels_.size());
    vectors::exp(levels_.data(), levels_.data(), levels_.size());
    bands_.take(levels_.data(), analysis_.pan().data(), analysis_.width().data(), dt);
    std::array<float, QVMHistogram::kBins> values;
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::log(bands_.band(i).level) * kDecibelsPerNeper;
    return histogram_.prepareForDrawing(dt, values.data());
}

void HistogramDisplay::draw(DrawingSurface& surface) {
    histogram_.drawBackground(surface);
    histogram_.glDraw(surface);
}

} // namespace QVM_NAMESPACE
