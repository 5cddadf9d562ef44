// What the tests of the vectorised filters share: each vector unit of this machine in turn, and the same noise each
// time.
#pragma once

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <random>
#include <vector>

namespace QVM_NAMESPACE::vectors {

class VectorUnitFixture : public testing::Test {
protected:
    void TearDown() override { hwy::SetSupportedTargetsForTest(0); }

    double uniform(double low, double high) {
        return low + (high - low) * (static_cast<double>(random_()) / 4294967296.0);
    }
    std::vector<double> noise(std::size_t count) {
        std::vector<double> values(count);
        for (double& value : values)
            value = uniform(-1, 1);
        return values;
    }

    std::mt19937 random_{5};
};

} // namespace QVM_NAMESPACE::vectors
