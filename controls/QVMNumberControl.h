// A number over its unit in a box: dragged up and down (or sideways, as a small mark says) to change, or typed over.
//
// A drag is relative. How far the pointer must go for the whole range is the parameter's choice for each granularity;
// what is accumulated and clamped is the way through the range, so that coming back from beyond an end moves at once.
// Main thread only.
#pragma once

#include "controls/BoxControl.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"

namespace QVM_NAMESPACE {

class QVMNumberControl : public BoxControl, public QVMTransientBufferDisplay {
public:
    QVMNumberControl(const Rect& frame, const QVMParameter& parameter);
    ~QVMNumberControl() override;

    // Points of drag for the range at a granularity code, before the general factor of one and a half.
    double rangeForGranularity(std::int32_t granularity) const;
    // By how much a drag is faster or slower at a granularity and a value; 1 unless fine.
    double diffMultForGranularityFloatValueArbitraryPixelConstant(std::int32_t granularity, float value,
                                                                  double pixels) const;

    void setFloatValue(float value) override;
    void setDimmed(bool dimmed) override;
    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities& granularities) override;
    void handleMouseDraggedWithEventGranularities(const QVMEvent& event,
                                                  const QVMGranularities& granularities) override;
    void pressDidEnd(const QVMEvent&) override { popDragCursor(); }
    void viewWillMoveToWindow(Window* window) override;

    void displayTransientBufferValue(const AttributedString& text) override;
    void discardTransientBufferValue() override;
    bool displayingTransientBufferValue() const override { return displayingTransient_; }
    void setDisplayingTransientBufferValue(bool displaying) override { displayingTransient_ = displaying; }
    double transientStringPreferredFontSize() const override;

    const std::shared_ptr<TextLayer>& value() const { return value_; }
    const std::shared_ptr<TextLayer>& unit() const { return unit_; }
    const std::shared_ptr<ShapeLayer>& dragMark() const { return dragMark_; }

    // Named by the contract and not used in this product, which asks the cycle controls alone: neither arrow keys nor
    // clicks cycle.
    bool cycleArrows() const { return false; }
    bool incrementOnMouseUp() const { return false; }

protected:
    void redraw() override;

private:
    double axisCoordinate(const QVMEvent& event) const;
    void layOut();
    void popDragCursor();

    std::shared_ptr<TextLayer> value_, unit_;
    std::shared_ptr<ShapeLayer> dragMark_; // the two ways in which it is dragged
    double startPoint_ = 0;                // the pointer's axis coordinate at the previous event
    float startValue_ = 0;                 // at the press
    float startPercentage_ = 0;            // at the press
    float diffWas_ = 0;                    // fraction of the range moved so far
    bool displayingTransient_ = false;
    Window* cursorWindow_ = nullptr; // where this control's drag cursor is pushed
};

} // namespace QVM_NAMESPACE
