// The drawing object that the sketches of an editor share: draws from what the audio unit writes into its shared state.
//
// The state's words are touched by other threads, and it says which; all else here is the main thread's alone.
#pragma once

#include "link/SharedState.h"
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

    // These ask the shared state; each is described there.
    void sizeStates(std::uint32_t count) { sharedState.glide.sizeStates(count); }
    void restartGlide() { sharedState.restartGlide(); }
    void performInterp() { sharedState.glide.performInterp(); }
    void requestFrame() { sharedState.frameRequest.ask(); }
    bool isFrameRequested() const { return sharedState.frameRequest.isAsked(); }
    bool takeFrameRequest() { return sharedState.frameRequest.take(); }

    // What the object shares with an audio unit, and all that the unit knows of it. Lives as long as the object.
    SharedState sharedState;
    std::uint32_t chanIn = 0;
    std::uint32_t chanOut = 0;
    double sampleRate = 0; // hertz
    // The shared state's words under the names that a drawing object has them by.
    const std::uint32_t& paramCount = sharedState.glide.paramCount;
    std::vector<QVMParameterState>& parameterStates = sharedState.glide.parameterStates;
    std::vector<SharedWord<float>>& interpTargets = sharedState.glide.interpTargets;
    std::vector<float>& interpValues = sharedState.glide.interpValues;
    std::vector<float>& interpScratch = sharedState.glide.interpScratch;
    SharedWord<float>& interpAmount = sharedState.glide.interpAmount;
    SharedWord<bool>& isInterpolating = sharedState.glide.isInterpolating;
    SharedWord<bool>& interpPending = sharedState.glide.interpPending;
    SharedWord<float>& numericMeterValue = sharedState.numericMeter.value;
    SharedWord<const char*>& numericMeterFormat = sharedState.numericMeter.format;
    SharedWord<const char*>& numericMeterSuffix = sharedState.numericMeter.suffix;
    std::uint32_t refCount = 0; // layers that were set up with the object; tells, and keeps nothing alive
    bool isAlive = true;
};

} // namespace QVM_NAMESPACE
