// A place for heads-up indicators of parameter values. This product shows none, so updates change nothing visible.
#pragma once

#include "platform/view/View.h"

#include <cstdint>
#include <span>

namespace QVM_NAMESPACE {

class QVMHUDDisplay;

class QVMHUDDisplayDelegate {
public:
    virtual ~QVMHUDDisplayDelegate() = default;
    // The indicator of a parameter was clicked.
    virtual void hudWantsToUpdatePid(QVMHUDDisplay& hud, std::uint32_t pid) = 0;
};

class QVMHUDDisplay final : public View {
public:
    // The values, by pid, are those at the start; they are not kept.
    QVMHUDDisplay(const Rect& frame, std::span<const float> values);

    // Borrowed; may be null.
    void setDelegate(QVMHUDDisplayDelegate* delegate) { delegate_ = delegate; }
    // Named by the contract and not used in this product: new values, by pid, and which of them changed since the last
    // time; and a press on an indicator.
    void updateWithParamsChanges(std::span<const float> values, std::span<const std::uint8_t> changes);
    void indicatorTapped(std::uint32_t pid);

private:
    QVMHUDDisplayDelegate* delegate_ = nullptr;
};

} // namespace QVM_NAMESPACE
