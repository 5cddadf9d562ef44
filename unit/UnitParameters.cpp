#include "unit/UnitParameters.h"

#include "description/Description.h"
#include "description/ValueMapping.h"
#include "description/tables/ParameterTable.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

static_assert(std::atomic<float>::is_always_lock_free);

UnitParameters::Values UnitParameters::initialValues() {
    Values all{};
    for (const tables::ParameterRow& row : tables::kParameters)
        all[row.pid] = ShownValueToHostValue(row.pid, row.initialValue);
    return all;
}

UnitParameters::UnitParameters() {
    const Values initial = initialValues();
    for (std::uint32_t pid = 0; pid < count; ++pid) {
        limits_[pid] = GetParameter(pid)->heldRange();
        values_[pid].store(initial[pid], std::memory_order_relaxed);
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
    values_[pid].store(std::clamp(value, limits_[pid].min, limits_[pid].max), std::memory_order_relaxed);
    return noErr;
}

bool UnitParameters::holds(std::uint32_t pid, float value) const {
    return limits_[pid].contains(value);
}

} // namespace QVM_NAMESPACE
