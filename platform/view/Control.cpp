#include "platform/view/Control.h"

namespace QVM_NAMESPACE {

bool Control::sendAction() {
    if (!action_) return false;
    const Action action = action_; // it may be replaced, or this control destroyed, while it runs
    action(*this);
    return true;
}

} // namespace QVM_NAMESPACE
