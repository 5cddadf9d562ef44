// The unit's parameter values, in the host domain.
//
// Any thread writes and reads, the render thread included: each value is one word that is read and written whole, in
// no order with any other. So a reader may see one of two related values change first; nothing here relies on both.
#pragma once

#include "description/ParameterIDs.h"
#include "description/Types.h"
#include "platform/audiounit/AudioUnit.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace QVM_NAMESPACE {

class UnitParameters {
public:
    static constexpr std::size_t count = QVMParameterCount;
    using Values = std::array<float, count>;

    // Where each parameter begins, and where it stands in a state from before it was there. Any thread.
    static Values initialValues();

    // Every parameter at its initial value. Main thread: it reads the description.
    UnitParameters();

    // `pid` must be below `count` here and in what follows.
    float value(std::uint32_t pid) const { return values_[pid].load(std::memory_order_relaxed); }
    Values values() const;
    // Stores the value, moved to the nearest end of the range when it lies outside. A value that is no finite number is
    // refused and changes nothing.
    OSStatus set(std::uint32_t pid, float value);
    // Whether `set` would store exactly this value.
    bool holds(std::uint32_t pid, float value) const;

private:
    std::array<QVMFloat32Range, count> limits_; // QVMParameter::heldRange(), constant once constructed
    std::array<std::atomic<float>, count> values_;
};

} // namespace QVM_NAMESPACE
