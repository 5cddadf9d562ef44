#include "unit/BypassFade.h"

namespace QVM_NAMESPACE {

void BypassFade::setTarget(Switch state) {
    state_ = state;
    share_.setTarget(shareOf(state));
}

} // namespace QVM_NAMESPACE
