// A box of parts, one a value from 0 up, of which one is taken: by pressing it, or by sweeping over the parts with the
// pointer down. Main thread only.
#pragma once

#include "controls/BoxControl.h"

namespace QVM_NAMESPACE {

class SweptControl : public BoxControl {
public:
    using BoxControl::BoxControl;

    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) final {
        takeValueFromEvent(event);
    }
    void handleMouseDraggedWithEventGranularities(const QVMEvent& event, const QVMGranularities&) final {
        takeValueFromEvent(event);
    }

protected:
    // Takes what is under the pointer as the user's choice.
    virtual void takeValueFromEvent(const QVMEvent& event) = 0;
    // The part's value as the user's choice.
    void takeIndex(int index) {
        setFloatValue(static_cast<float>(index));
        reportInterfaceInitiatedValueChange();
    }
};

} // namespace QVM_NAMESPACE
