#include "viz/displays/StereoscopeDisplay.h"

namespace QVM_NAMESPACE {

void StereoscopeDisplay::init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) {
    stereoscope_.init(canvas, sampleRate, maxFrames);
}

void StereoscopeDisplay::processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) {
    stereoscope_.processAudio(&buffer, nFrames);
}

Redraw StereoscopeDisplay::prepareForDrawing(float dt) {
    return stereoscope_.prepareForDrawing(dt);
}

void StereoscopeDisplay::draw(DrawingSurface& surface) {
    stereoscope_.drawBackground(surface);
    stereoscope_.glDraw(surface);
}

} // namespace QVM_NAMESPACE
