#include "controls/FineDrag.h"

#include "controls/Gestures.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

TEST(FineDrag, AFineStepIsAboutSixPointsWhereThereAreMoreStepsThanPoints) {
    const QVMParameter& gain = *GetParameter(pidTiltGain); // 36 dB in steps of 0.1
    const double wayOfSixPoints = 6.0 / 90 * fineDragMultiplier(gain, 0, 90) * 36;
    EXPECT_NEAR(wayOfSixPoints, 0.1, 1e-5);
}

TEST(FineDrag, ASixthOfTheWayWhereStepsAreWiderThanPoints) {
    EXPECT_NEAR(fineDragMultiplier(*GetParameter(pidTiltGain), 0, 500), 1.0 / 6, 1e-9);
}

TEST(FineDrag, ALogarithmicParameterMovesEvenlyInValues) {
    const QVMParameter& low = *GetParameter(pidTiltRangeLow);
    // Below 1 kHz the step is the same, so only the slope of the scale differs.
    EXPECT_NEAR(fineDragMultiplier(low, 100, 238) / fineDragMultiplier(low, 400, 238), 4, 1e-5);
}

TEST(FineDrag, FrequenciesGoInTensAndFromTenKilohertzInHundreds) {
    const QVMParameter plain = parameterLike(pidFilterRangeLow, [](QVMParameter& p) {
        p.fineGranularity = 1;
        p.logarithmic = false;
    });
    const QVMParameter unitless = parameterLike(pidFilterRangeLow, [](QVMParameter& p) {
        p.fineGranularity = 1;
        p.logarithmic = false;
        p.unit = QVMUnitDecibels;
    });
    EXPECT_NEAR(fineDragMultiplier(plain, 9999, 238) / fineDragMultiplier(unitless, 9999, 238), 10, 1e-9);
    EXPECT_NEAR(fineDragMultiplier(plain, 10000, 238) / fineDragMultiplier(unitless, 10000, 238), 100, 1e-9);
}

TEST(FineDrag, AValueWithoutALogarithmDragsAsThePointerGoes) {
    EXPECT_EQ(fineDragMultiplier(*GetParameter(pidTiltRangeLow), 0, 238), 1);
    EXPECT_EQ(fineDragMultiplier(*GetParameter(pidTiltRangeLow), std::nanf(""), 238), 1);
}

} // namespace
} // namespace QVM_NAMESPACE
