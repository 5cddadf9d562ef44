// Values to measure with: spread over a parameter's range, the same in every run.
#pragma once

#include "description/Description.h"

#include <array>
#include <random>

namespace QVM_NAMESPACE {

inline constexpr std::size_t kBenchValueCount = 1024; // small enough to stay in the first-level cache

inline std::array<float, kBenchValueCount> BenchValues(const QVMParameter& parameter) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> values(parameter.minValue, parameter.maxValue);
    std::array<float, kBenchValueCount> result;
    for (float& value : result)
        value = values(random);
    return result;
}

// One parameter of each kind of value curve: gain, frequency, mode, fader.
inline constexpr std::array<std::int64_t, 4> kBenchPids = {1, 2, 6, 7};

} // namespace QVM_NAMESPACE
