// Every vector unit does what a plain loop does.
#include "unit/dsp/FilterMath.h"

#include "unit/dsp/VectorUnitFixture.h"

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <vector>

namespace QVM_NAMESPACE::vectors {
namespace {

using FilterMath = VectorUnitFixture;

TEST_F(FilterMath, TapsQuadraticsAndRowsAreSumsAndProducts) {
    for (const auto unit : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(unit);
        constexpr std::size_t tapCount = 20, frames = 37;
        const std::vector<double> past = noise(2 * (tapCount + frames)), taps = noise(tapCount);
        std::vector<double> out(2 * frames);
        firStereo(past.data() + 2 * tapCount, taps.data(), tapCount, out.data(), frames);
        for (std::size_t i = 0; i < out.size(); ++i) {
            double sum = 0;
            for (std::size_t j = 0; j < tapCount; ++j)
                sum += taps[j] * past[2 * tapCount + i - 2 * j];
            ASSERT_NEAR(out[i], sum, 1e-12) << hwy::TargetName(unit) << ", " << i;
        }
        const std::vector<double> x = noise(32), matrix = noise(std::size_t{32} * 16);
        std::vector<double> values(32, 1), sums(16);
        const Quadratic quadratics[] = {{1, 2, 3}, {0.5, -1, 0}};
        multiplyByQuadratics(quadratics, 2, x.data(), values.data(), 32);
        multiplyRows(matrix.data(), x.data(), 32, sums.data(), 16);
        for (std::size_t i = 0; i < 32; ++i)
            ASSERT_NEAR(values[i], (1 + 2 * x[i] + 3 * x[i] * x[i]) * (0.5 - x[i]), 1e-12) << hwy::TargetName(unit);
        for (std::size_t k = 0; k < 16; ++k) {
            double sum = 0;
            for (std::size_t i = 0; i < 32; ++i)
                sum += matrix[16 * i + k] * x[i];
            ASSERT_NEAR(sums[k], sum, 1e-12) << hwy::TargetName(unit);
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE::vectors
