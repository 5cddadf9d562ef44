// A layer that shows one sketch of a shared drawing object.
//
// Each layer holds a share of its object, which goes with the last of them (VizRef). Main thread only, except for
// addParameterStates().
#pragma once

#include "platform/layer/GLLayer.h"
#include "viz/sketches/VizRef.h"

#include <optional>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

class QVMSketchGLLayer final : public GLLayer {
public:
    QVMSketchGLLayer();
    ~QVMSketchGLLayer() override;

    // Takes a share of the object that another layer was set up with, without counting. Before the layer is set up.
    void useVizRef(VizRef vizRef) { cppSketch_ = std::move(vizRef); }
    const VizRef& getVizRef() const { return cppSketch_; } // null before it is set up
    // One for each parameter; null before the layer is set up. They live as long as the object.
    QVMParameterState* getVizRefParameterStates() const;

    // Sets the layer up for a sketch: gets a drawing object made if there is none yet, has it build what this layer
    // needs, and counts. The layer's bounds and contents scale are those to draw at. `sampleRate` is in hertz.
    void setSampleRateMaxFramesSketchParamCountChanInChanOut(float sampleRate, unsigned maxFrames,
                                                             const PBSketch& sketch, unsigned paramCount,
                                                             unsigned chanIn, unsigned chanOut);

    // Has the object build anew what this layer needs, after its bounds or contents scale changed, and computes the
    // frame that is shown. Nothing happens while both are as they were. Counts nothing.
    void canvasDidChange();

    // What a meter is drawn with from now on.
    void setMeterInk(const MeterInk& ink);
    const std::optional<MeterInk>& meterInk() const { return meterInk_; }

    // One step of the object's glide, and whether one runs.
    void performInterp();
    bool isInterpolating() const;
    // Computes the next frame, if the sketch is of the kind meant: one that shows parameters or one that shows audio.
    // `duration` is in seconds. Asks to be drawn when the picture will differ, and tells whether it will.
    Redraw prepareForDrawingWithDurationParameterSketch(float duration, bool parameterSketch);
    // What the unit wants shown as text; 0 and empty before the layer is set up.
    float getNumericMeterValue() const;
    std::string getNumericMeterFormat() const; // printf's, for one double
    std::string getNumericMeterSuffix() const;

    // Set once a frame has been prepared; before, the layer is transparent.
    bool canRender() const { return canRender_; }
    // Cleared while the sketch is hidden.
    bool shouldRender() const { return shouldRender_; }
    void setShouldRender(bool shouldRender);
    const PBSketch& sketch() const { return sketch_; }

    const char* kind() const override { return "QVMSketchGLLayer"; }

    // Named by the contract and not used in this product, whose unit writes into the shared state itself: copies the
    // states of all parameters into the object, also on the render thread. And what the object makes nothing of.
    void addParameterStates(const QVMParameterState* states);
    void backgroundDrawWithContext(DrawingSurface& surface);
    void performStaticConversionParameterValues(unsigned pid, float* values);

protected:
    void draw(DrawingSurface& surface) const override;

private:
    PBGLCanvas canvas() const;
    void build();

    VizRef cppSketch_;
    bool isSetUp_ = false;
    bool canRender_ = false, shouldRender_ = true;
    PBSketch sketch_;
    std::optional<MeterInk> meterInk_;
    float sampleRate_ = 0; // hertz; this and the next as the object was set up with them
    unsigned maxFrames_ = 0;
    Size builtSize_; // points
    double builtScale_ = 0;
};

} // namespace QVM_NAMESPACE
