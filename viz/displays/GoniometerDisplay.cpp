#include "viz/displays/GoniometerDisplay.h"

namespace QVM_NAMESPACE {

void GoniometerDisplay::init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) {
    colour_ = canvas.sketch.color;
    goniometer_.init(canvas, sampleRate, maxFrames);
}

void GoniometerDisplay::processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) {
    goniometer_.processAudio(&buffer, nFrames, false);
}

Redraw GoniometerDisplay::prepareForDrawing(float dt) {
    return goniometer_.prepareForDrawing(dt);
}

void GoniometerDisplay::draw(DrawingSurface& surface) {
    goniometer_.drawBackground(surface, colour_);
    goniometer_.glDraw(surface, colour_);
}

} // namespace QVM_NAMESPACE
