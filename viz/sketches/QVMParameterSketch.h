// The view of the main sketch, and the frame loop of all sketches of an editor.
//
// While it is in a window that can be seen, a display link hands it every display frame: it lets the parameters glide,
// has the sketches prepared that will look different, and tells its delegate. Main thread only.
#pragma once

#include "description/ValuesFromUnit.h"
#include "platform/runloop/DisplayLink.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/view/View.h"
#include "viz/sketches/NumericMeterDisplay.h"
#include "viz/sketches/QVMAuxiliarySketch.h"
#include "viz/sketches/QVMParameterSketchDelegate.h"
#include "viz/sketches/QVMSketchGLLayer.h"
#include "viz/sketches/SketchBackdrop.h"

#include <limits>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class QVMConfig;

// The output callback of a sketch view's display link: where a frame is asked for, reads its duration and time and has
// the main queue hand them to the view, which is the context. On the link's thread; returns 0.
int MyDisplayLinkCallback(const std::shared_ptr<DisplayLink>& link, const DisplayTimeStamp& output, void* context);

class QVMParameterSketch final : public View {
public:
    // Gets the drawing object made and sets it up for the response curve. `sampleRate` is in hertz, `scale` in device
    // pixels a point.
    QVMParameterSketch(const Rect& frame, const QVMConfig& config, float sampleRate, unsigned maxFrames, float scale,
                       unsigned inChan, unsigned outChan);
    ~QVMParameterSketch() override;

    // All are borrowed, may be null, and must be cleared before they go. `values` gets what the unit holds, in each
    // frame for which the delegate says that it does.
    void setDelegate(QVMParameterSketchDelegate* delegate) { delegate_ = delegate; }
    void setValues(ValuesFromUnit* values) { values_ = values; }
    void setNumericMeter(NumericMeterDisplay* meter) { numericMeter_ = meter; }
    // What lies behind the sketch, from the next frame on; null takes it away.
    void setBackdrop(std::unique_ptr<SketchBackdrop> backdrop);
    SketchBackdrop* backdrop() const { return backdrop_.get(); }
    // The sketches that get their frames from this one. They are owned by their superviews and leave the list by
    // themselves when they go.
    const std::vector<QVMAuxiliarySketch*>& auxiliarySketches() const { return auxiliarySketches_; }
    void addAuxiliarySketch(QVMAuxiliarySketch& sketch);
    void removeAuxiliarySketch(QVMAuxiliarySketch& sketch);

    const std::shared_ptr<QVMSketchGLLayer>& glSketch() const { return glSketch_; }
    const VizRef& getVizRef() const { return glSketch_->getVizRef(); }
    QVMParameterState* getVizRefParameterStates() const { return glSketch_->getVizRefParameterStates(); }
    // The parameter that has the editor's focus, -1 for none.
    void setFocusedPid(std::int32_t pid) { focusedPid_ = pid; }
    std::int32_t focusedPid() const { return focusedPid_; }
    bool hasGL() const { return hasGL_; }
    // Whether the next display frame has a reason: something moves, or the drawing object was asked for one. Any thread
    // while the display link runs.
    bool isFrameWanted() const { return isMoving_ || getVizRef()->isFrameRequested(); }
    // Whether frames are being delivered.
    bool isRunning() const { return displayLink_ != nullptr; }
    // The box that a layer fills: that of its superlayer, or the view's own for a layer without one.
    Rect getPathBounds(const Layer* layer) const;

    // Hiding makes this view transparent and stops the drawing of all sketches, each time it is asked for. Showing
    // undoes that, unless the view is opaque already: then nothing happens.
    bool vizVisible() const { return vizVisible_; }
    void setVizVisible(bool visible);
    void toggleVisible() { setVizVisible(!vizVisible_); }
    void mouseUp(const Event&) override { toggleVisible(); }

    // One display frame: `duration` of a refresh and `time` of this one, in seconds. Where frames were left out since
    // the last one, while something moved, sketches are told the time that really went by. As long as anything moves,
    // and for a while longer, the next frame follows; then only one that the drawing object is asked for.
    void getFrameWithDurationAndTime(double duration, double time);

    void viewDidMoveToWindow() override;
    void viewDidChangeBackingProperties() override;
    void frameDidChange() override;

    // Named by the contract and not used in this product: the drawing object's conversion of a parameter's values, in
    // place; and how many parameters the configuration has.
    void performParameterConversionWithValues(unsigned pid, float* values);
    std::int64_t numParams() const { return numParams_; }

private:
    void startDisplayLink();
    void stopDisplayLink();
    void layOutBackdrop();
    void watchBackdrop();
    void handOnStates();
    Redraw prepareSketches(float duration, bool parameterSketches);
    void updateNumericMeter(double time);

    std::shared_ptr<QVMSketchGLLayer> glSketch_;
    std::unique_ptr<SketchBackdrop> backdrop_; // null for none
    std::vector<QVMAuxiliarySketch*> auxiliarySketches_;
    QVMParameterSketchDelegate* delegate_ = nullptr;
    ValuesFromUnit* values_ = nullptr;
    NumericMeterDisplay* numericMeter_ = nullptr;
    bool vizVisible_ = true, hasGL_ = false;
    std::int64_t numParams_ = 0;
    std::int32_t focusedPid_ = -1;
    SharedWord<bool> isMoving_ = false; // the last frame is to be followed by another; written by the main thread
    double lastMotion_ = 0;             // seconds, of the last frame that had a reason
    double timestamp_ = 0;              // seconds, of the last frame; 0: none yet
    double numericMeterTimestamp_ = 0;  // seconds, of the last reading
    float lastNumericMeterValue_ = std::numeric_limits<float>::max(); // no reading yet
    std::shared_ptr<DisplayLink> displayLink_; // null while the view is in no window or in a hidden one
    ObservationToken windowVisibility_;
};

} // namespace QVM_NAMESPACE
