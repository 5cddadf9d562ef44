#include "unit/UnitParameters.h"

#include "description/Description.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

static_assert(std::atomic<float>::is_always_lock_free);

UnitParameters::UnitParameters() {
    for (std::uint32_t pid = 0; pid < count; ++pid) {
        // Both ends of a range are the same number in both domains.
        const QVMParameter& parameter = *GetParameter(pid);
        const float initial = parameter.reverseCastValue(parameter.initialValue);
        limits_[pid] = {std::min(parameter.minValue, initial), std::max(parameter.maxValue, initial)};
        values_[pid].store(initial, std::memory_order_relaxed);
    }
}

UnitParameters::Values UnitParameters::values() const {
    Values all{};
    for (std::uint32_t pid = 0; pid < count; ++pid)
        all[pid] = value(pid);
    return all;
}

OSStatus UnitParameters::set(std::uint32_t pid, float value) {
    if (!std::isfinite(value)) return kAudio_ParamError;
    values_[pid].store(std::clamp(value, limits_[pid].low, limits_[pid].high), std::memory_order_relaxed);
    return noErr;
}

bool UnitParameters::holds(std::uint32_t pid, float value) const {
    return value >= limits_[pid].low && value <= limits_[pid].high;
}

} // namespace QVM_NAMESPACE
