// Numbers for the vectors, and the C library's in double precision to compare with. Machines differ in their vector
// units; all of it is done on each one that this machine has.
#pragma once

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

struct VectorMathFixture : testing::TestWithParam<std::int64_t> {
    VectorMathFixture() { hwy::SetSupportedTargetsForTest(GetParam()); }
    ~VectorMathFixture() override { hwy::SetSupportedTargetsForTest(0); }

    static constexpr float infinity = std::numeric_limits<float>::infinity();
    static constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    static constexpr std::size_t lengths[] = {0, 1, 2, 3, 7, 8, 15, 16, 17, 31, 54, 108, 1080};

    std::mt19937 random{1};
    std::vector<float> uniform(std::size_t n, float low, float high) {
        std::uniform_real_distribution<float> values(low, high);
        std::vector<float> result(n);
        for (float& value : result)
            value = values(random);
        return result;
    }
    std::vector<float> logarithmic(std::size_t n, float low, float high) {
        std::vector<float> result = uniform(n, std::log(low), std::log(high));
        for (float& value : result)
            value = std::exp(value);
        return result;
    }
    // |got - exact| in units of the last place of float at the exact value.
    static double errorInUlp(float got, double exact) {
        const float near = std::abs(static_cast<float>(exact));
        const double unit = static_cast<double>(std::nextafter(near, infinity)) - static_cast<double>(near);
        return std::abs(static_cast<double>(got) - exact) / unit;
    }
};

inline std::string nameOfVectorUnit(const testing::TestParamInfo<std::int64_t>& test) {
    return hwy::TargetName(test.param);
}

} // namespace QVM_NAMESPACE
