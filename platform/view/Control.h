// A view that sends an action to a target: the way every change that a user causes leaves a control.
#pragma once

#include "platform/view/View.h"

#include <functional>

namespace QVM_NAMESPACE {

class Control : public View {
public:
    using Action = std::function<void(Control& sender)>;
    using View::View;

    // The target is whoever the function holds; it must outlive the control or clear the action. Main thread.
    void setAction(Action action) { action_ = std::move(action); }
    // Calls the action; false when there is none.
    bool sendAction();

    virtual float floatValue() const { return 0; }
    virtual void setFloatValue(float) {}

private:
    Action action_;
};

} // namespace QVM_NAMESPACE
