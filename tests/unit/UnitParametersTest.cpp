#include "unit/UnitParameters.h"

#include "description/Description.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

TEST(UnitParameters, StartAtTheInitialValuesInTheHostDomain) {
    const UnitParameters parameters;
    for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid) {
        const QVMParameter& description = *GetParameter(pid);
        EXPECT_EQ(parameters.value(pid), description.reverseCastValue(description.initialValue)) << pid;
    }
    EXPECT_NEAR(parameters.value(pidTiltRangeLow), std::log(2.0F) * 3082.2703F + 10, 0.01F)
        << "20 Hz is not 20 for the host";
}

TEST(UnitParameters, StoreEveryValueOfTheRangeAsItIs) {
    UnitParameters parameters;
    for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid) {
        const QVMParameter& description = *GetParameter(pid);
        for (const float part : {0.0F, 0.3F, 1.0F}) {
            const float value = description.minValue + part * description.valueRange();
            EXPECT_EQ(parameters.set(pid, value), noErr);
            EXPECT_EQ(parameters.value(pid), value) << pid;
            EXPECT_TRUE(parameters.holds(pid, value));
        }
    }
}

TEST(UnitParameters, ValuesOutsideTheRangeBecomeItsEnds) {
    UnitParameters parameters;
    EXPECT_EQ(parameters.set(pidTiltGain, 100), noErr);
    EXPECT_EQ(parameters.value(pidTiltGain), 18.0F);
    EXPECT_EQ(parameters.set(pidTiltGain, -100), noErr);
    EXPECT_EQ(parameters.value(pidTiltGain), -18.0F);
    EXPECT_FALSE(parameters.holds(1, 18.5F));
}

TEST(UnitParameters, TheRangeLinksKeepTheirInitialValueBelowTheirRange) {
    UnitParameters parameters;
    for (const std::uint32_t pid :
         {pidTiltRangeLink, pidTiltRangeLinkRatio, pidFilterRangeLink, pidFilterRangeLinkRatio}) {
        EXPECT_EQ(parameters.set(pid, 1), noErr);
        EXPECT_EQ(parameters.value(pid), 1.0F) << pid;
        EXPECT_TRUE(parameters.holds(pid, 0));
    }
}

TEST(UnitParameters, NaNAndInfinityAreRefused) {
    UnitParameters parameters;
    const float before = parameters.value(pidOutputGain);
    for (const float bad : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity()}) {
        EXPECT_NE(parameters.set(pidOutputGain, bad), noErr);
        EXPECT_EQ(parameters.value(pidOutputGain), before);
        EXPECT_FALSE(parameters.holds(7, bad));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
