#include "editor/surface/QVMHUDDisplay.h"

namespace QVM_NAMESPACE {

QVMHUDDisplay::QVMHUDDisplay(const Rect& frame, std::span<const float>) : View(frame) {
    layer()->setName("hud");
}

void QVMHUDDisplay::updateWithParamsChanges(std::span<const float>, std::span<const std::uint8_t>) {}

void QVMHUDDisplay::indicatorTapped(std::uint32_t pid) {
    if (delegate_) delegate_->hudWantsToUpdatePid(*this, pid);
}

} // namespace QVM_NAMESPACE
