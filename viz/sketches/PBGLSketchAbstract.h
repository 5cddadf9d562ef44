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
    virtual ~PBGLSketchAbstract() = default;
    // A unit may hold the shared state: the object stays where it is.
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

    // What the object shares with an audio unit, and all that the unit knows of it. Lives as long as the object.
    SharedState sharedState;
    // Its words and operations under the names that a drawing object has them by. Who may touch which, and when, is
    // said there; what is returned lives as long as the object.
    std::uint32_t paramCount() const { return sharedState.glide.paramCount; }
    std::vector<QVMParameterState>& parameterStates() { return sharedState.glide.parameterStates; }
    const std::vector<QVMParameterState>& parameterStates() const { return sharedState.glide.parameterStates; }
    std::vector<SharedWord<float>>& interpTargets() { return sharedState.glide.interpTargets; }
    std::vector<float>& interpValues() { return sharedState.glide.interpValues; }
    std::vector<float>& interpScratch() { return sharedState.glide.interpScratch; }
    SharedWord<float>& interpAmount() { return sharedState.glide.interpAmount; }
    SharedWord<bool>& isInterpolating() { return sharedState.glide.isInterpolating; }
    SharedWord<bool>& interpPending() { return sharedState.glide.interpPending; }
    SharedWord<float>& numericMeterValue() { return sharedState.numericMeter.value; }
    SharedWord<const char*>& numericMeterFormat() { return sharedState.numericMeter.format; }
    SharedWord<const char*>& numericMeterSuffix() { return sharedState.numericMeter.suffix; }
    void sizeStates(std::uint32_t count) { sharedState.glide.sizeStates(count); }
    void standAt(std::uint32_t pid, float value) { sharedState.glide.standAt(pid, value); }
    void restartGlide() { sharedState.restartGlide(); }
    void performInterp() { sharedState.glide.performInterp(); }
    void requestFrame() { sharedState.frameRequest.ask(); }
    bool isFrameRequested() const { return sharedState.frameRequest.isAsked(); }
    bool takeFrameRequest() { return sharedState.frameRequest.take(); }
    std::uint32_t takeStoredParameters() { return sharedState.storedParameters.exchange(0); }

    std::uint32_t chanIn = 0;
    std::uint32_t chanOut = 0;
    double sampleRate = 0;      // hertz
    std::uint32_t refCount = 0; // layers that were set up with the object; tells, and keeps nothing alive

    // Named by the contract and not used in this product: drawing what never moves, converting a parameter's values in
    // place, and a flag that nobody reads.
    virtual void backgroundDraw(PBGLCanvas, DrawingSurface&) {}
    virtual void performStaticConversion(unsigned /*pid*/, float* /*values*/) {}
    bool isAlive = true;
};

} // namespace QVM_NAMESPACE
