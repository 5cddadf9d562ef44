// The drawing object that an editor shares with its audio unit.
//
// The unit's render thread writes parameter states, glide targets and audio levels into it; the editor's main thread
// lets the values glide and draws. Nothing locks: what both sides touch are single words.
//
// Who writes what: `parameterStates[i].value` and `auxValue`, `interpTargets`, the numeric meter's words and whatever a
// derived class takes from audio are written by the unit's side and read by the main thread. `interpAmount` and the two
// glide flags are written by both (restartGlide, performInterp). All else is the main thread's alone.
#pragma once

#include "link/QVMParameterState.h"
#include "viz/sketches/PBGLCanvas.h"

#include <vector>

namespace QVM_NAMESPACE {

class DrawingSurface;

// Whether what a sketch would draw now differs from what it drew last.
enum class Redraw : bool { no, yes };

class PBGLSketchAbstract {
public:
    PBGLSketchAbstract() = default;
    PBGLSketchAbstract(const PBGLSketchAbstract&) = delete;
    PBGLSketchAbstract& operator=(const PBGLSketchAbstract&) = delete;

    // Called once, after the fields of a new object are set.
    virtual void initNumericMeter() {}
    // Builds what drawing into the canvas takes. Called for every layer that uses the object, each with its own canvas.
    // `sampleRate` is in hertz.
    virtual void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) = 0;
    // Computes the next frame's geometry. `duration` is the display's refresh period in seconds.
    virtual Redraw prepareForDrawing(PBGLCanvas, float /*duration*/) { return Redraw::no; }
    // Draws what was prepared; the surface is clear and is used for the call only.
    virtual void glDraw(PBGLCanvas canvas, DrawingSurface& surface) = 0;
    // Draws what never moves.
    virtual void backgroundDraw(PBGLCanvas, DrawingSurface&) {}
    // Converts a parameter's values in place, for display.
    virtual void performStaticConversion(unsigned /*pid*/, float* /*values*/) {}
    virtual ~PBGLSketchAbstract() = default;

    // Gives every parameter a state and a place in the glide, all 0. Main thread, before the object is shared.
    void sizeStates(std::uint32_t count);
    // Starts the glide anew towards `interpTargets`, which are written before. One thread at a time, never waits: the
    // render thread may call it.
    void restartGlide();
    // Asks for the next display frame: what is shown may differ then. Whoever writes something into the object says so
    // afterwards; a frame that nobody asks for is not made. Any thread, never waits.
    void requestFrame() { isFrameRequested_.storeOrdered(true); }
    // Any thread.
    bool isFrameRequested() const { return isFrameRequested_.load(); }
    // For the frame, before it reads anything: takes the request, whether there was one.
    bool takeFrameRequest() { return isFrameRequested_.exchangeOrdered(false); }
    // One step of the glide: an exponential approach that ends exactly at the targets with the seventh step. Main
    // thread, once a display frame. A target that is posted meanwhile is taken up by this step or by the next one.
    void performInterp();

    std::uint32_t chanIn = 0;
    std::uint32_t chanOut = 0;
    double sampleRate = 0; // hertz
    std::uint32_t paramCount = 0;
    std::vector<QVMParameterState> parameterStates;
    std::vector<SharedWord<float>> interpTargets;
    std::vector<float> interpValues;
    std::vector<float> interpScratch;
    SharedWord<float> interpAmount = 0;       // 0 at a glide's start, 1 at its end
    SharedWord<bool> isInterpolating = false; // a glide runs
    SharedWord<bool> interpPending = false;   // it has not reached its targets yet
    SharedWord<float> numericMeterValue = 0;
    SharedWord<const char*> numericMeterFormat = ""; // printf's, for one double; the text lives as long as the process
    SharedWord<const char*> numericMeterSuffix = ""; // likewise
    std::uint32_t refCount = 0;                      // layers that use the object
    bool isAlive = true;

private:
    SharedWord<bool> isFrameRequested_ = false;
};

} // namespace QVM_NAMESPACE
