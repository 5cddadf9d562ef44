#include "viz/displays/GRHistoryDisplay.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kDecibelsPerNeper = 8.685889f;
constexpr float kThreshold = -20, kRatio = 4;     // dB; of the demonstrated compressor
constexpr QVMFloat32Range kReductions = {-12, 0}; // dB

} // namespace

void GRHistoryDisplay::init(PBGLCanvas canvas, float, unsigned) {
    history_.init(canvas, kReductions, true, false);
}

void GRHistoryDisplay::processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) {
    float peak = 0;
    for (std::size_t c = 0; c < buffer.numChannels; ++c)
        for (unsigned i = 0; i < nFrames; ++i)
            peak = std::max(peak, std::abs(buffer.channels[c][i]));
    const float above = std::max(std::log(peak) * kDecibelsPerNeper - kThreshold, 0.0f);
    history_.processAudio(-above * (1 - 1 / kRatio), false);
}

Redraw GRHistoryDisplay::prepareForDrawing(float dt) {
    const Redraw redraw = history_.prepareForDrawing(dt);
    seconds_ = seconds_ + std::max(0.0, double{dt});
    return redraw;
}

void GRHistoryDisplay::draw(DrawingSurface& surface) {
    history_.drawBackground(surface);
    history_.glDraw(surface);
}

} // namespace QVM_NAMESPACE
