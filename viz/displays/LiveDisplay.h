// A display that shows the audio it is fed with, whichever of the set it is. The gallery makes one by its class.
//
// One audio thread feeds it and never waits; everything else is the main thread's.
#pragma once

#include "rings/QVMAudioBuffer.h"
#include "viz/sketches/PBGLSketchAbstract.h"

namespace QVM_NAMESPACE {

class LiveDisplay {
public:
    virtual ~LiveDisplay() = default;
    // Before audio is processed. The canvas's sketch has the colour; `sampleRate` is in hertz.
    virtual void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) = 0;
    // Audio side: a block of one or two channels, up to `maxFrames` frames.
    virtual void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) = 0;
    // Once a display frame, `dt` seconds after the last one.
    virtual Redraw prepareForDrawing(float dt) = 0;
    // Background and display, on a clear surface of the canvas's size.
    virtual void draw(DrawingSurface& surface) = 0;
};

} // namespace QVM_NAMESPACE
