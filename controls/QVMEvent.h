// An input event as one control sees it.
#pragma once

#include "platform/view/Event.h"
#include "platform/view/View.h"

namespace QVM_NAMESPACE {

struct QVMEvent {
    // Keeps the event and finds its place in `view`'s own coordinates.
    QVMEvent(const Event& event, const View& view)
        : nsEvent(event), point(view.coordinates().fromWindow(event.locationInWindow)) {}

    // The same event as if it had happened at `to` (same coordinates): how a gesture is replayed elsewhere.
    QVMEvent adjustedToPoint(Point to) const {
        QVMEvent moved = *this;
        moved.point = to;
        moved.simulated = true;
        return moved;
    }

    Event nsEvent; // modifiers, scroll deltas and phase are read from here
    Point point;   // points, in the control's coordinates
    bool simulated = false;
};

} // namespace QVM_NAMESPACE
