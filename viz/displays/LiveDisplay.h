// A display that shows the audio it is fed with, whichever of the set it is.
//
// One audio thread feeds it and never waits; everything else is the main thread's.
#pragma once

#include "rings/QVMAudioBuffer.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <memory>

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

// Left and right as a moving point.
std::unique_ptr<LiveDisplay> makeGoniometerDisplay();
// Where in the stereo field each frequency is.
std::unique_ptr<LiveDisplay> makeStereoscopeDisplay();
// What a compressor of 4:1 above -20 dB would take away from the audio.
std::unique_ptr<LiveDisplay> makeGRHistoryDisplay();
// The levels of thirty third-octave bands, 25 Hz to 20 kHz.
std::unique_ptr<LiveDisplay> makeHistogramDisplay();

} // namespace QVM_NAMESPACE
