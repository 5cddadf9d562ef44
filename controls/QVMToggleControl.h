// A row of choices of which one is taken: clicked, or swept over with the pointer down. A row of two states is also a
// switch: a quick click flips it wherever it lands, and only a press that is held chooses by position.
//
// Its parameter's values count from 0, a segment each. Main thread only.
#pragma once

#include "controls/BoxControl.h"
#include "controls/QVMToggleSegment.h"
#include "platform/runloop/DelayedCall.h"

#include <vector>

namespace QVM_NAMESPACE {

class QVMToggleControl : public BoxControl {
public:
    QVMToggleControl(const Rect& frame, const QVMParameter& parameter);

    // The segments in value order; they are subviews.
    const std::vector<QVMToggleSegment*>& values() const { return values_; }
    // Where they stand, own coordinates: what a pointer is compared with.
    const std::vector<Rect>& rValuesOriginal() const { return rValuesOriginal_; }
    // The index of the segment that is shown as taken, or -1 for a value that has none.
    int selected() const { return selected_; }
    // Whether the gesture has become a sweep, and whether it is over, so that what waits for it comes too late.
    bool didDrag() const { return didDrag_; }
    bool caughtUp() const { return caughtUp_; }
    // The layer under the taken segment.
    const std::shared_ptr<Layer>& selection() const { return selection_; }

    // Takes the segment under the event as the user's choice, unless the gesture is over.
    void toggleDraggedToPointFromEvent(const QVMEvent& event);

    void setFloatValue(float value) override;
    void setPreventInteraction(bool prevent) override;
    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities& granularities) override;
    void handleMouseDraggedWithEventGranularities(const QVMEvent& event,
                                                  const QVMGranularities& granularities) override;
    void handleMouseUpWithEventGranularities(const QVMEvent& event, const QVMGranularities& granularities) override;
    void pressDidEnd(const QVMEvent& event) override;
    void mouseCancelled(const Event& event) override;

protected:
    void redraw() override;
    int indexAt(Point point) const override;
    std::optional<Rect> hoverFrame(int index) const override; // none for the segment that is taken

private:
    void addSegments();
    void showSelection(Animate animate);
    Rect insideOf(int index) const; // where selection and light stand in a segment

    std::vector<QVMToggleSegment*> values_;
    std::vector<Rect> rValuesOriginal_;
    int selected_ = -1;
    bool didDrag_ = false, caughtUp_ = false;
    std::shared_ptr<Layer> selection_;
    DelayedCall hold_; // a press on a switch that may become a sweep
};

} // namespace QVM_NAMESPACE
