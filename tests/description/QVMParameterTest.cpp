#include "description/QVMParameter.h"

#include "description/Description.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

QVMParameter FrequencyParameter() {
    QVMParameter parameter;
    parameter.pid = pidTiltRangeLow;
    parameter.unit = QVMUnitHertz;
    parameter.logarithmic = true;
    parameter.minValue = 10;
    parameter.maxValue = 24000;
    parameter.granularity = 1;
    parameter.fineGranularity = 0.1f;
    parameter.coarseGranularity = 10;
    return parameter;
}

TEST(QVMParameter, CastMapsTheEndsOfAFrequencyRangeOntoThemselves) {
    const QVMParameter* low = GetParameter(pidTiltRangeLow);
    EXPECT_FLOAT_EQ(low->castValue(10), 10);
    EXPECT_NEAR(low->castValue(24000), 24000, 0.05);
    const QVMParameter* filter = GetParameter(pidFilterRangeLow);
    EXPECT_FLOAT_EQ(filter->castValue(4), 4);
    EXPECT_NEAR(filter->castValue(24000), 24000, 0.05);
}

TEST(QVMParameter, CastOfTheMiddleOfATiltRangeIsItsGeometricMean) {
    EXPECT_NEAR(GetParameter(pidTiltRangeLow)->castValue(12005), 489.9, 0.05);
}

TEST(QVMParameter, ReverseCastUndoesCast) {
    for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh}) {
        for (float host = 10; host <= 24000; host += 997) {
            EXPECT_NEAR(GetParameter(pid)->reverseCastValue(GetParameter(pid)->castValue(host)), host, 0.02);
        }
    }
}

TEST(QVMParameter, SwitchGivenThreeTenthsCastsToOn) {
    for (const std::uint32_t pid : {pidMasterOnOff, pidTiltRangeLink, pidFilterRangeLink, pidFilterListenLow,
                                    pidFilterSlopeLink, pidFilterResonanceLink, pidFilterListenHigh})
        EXPECT_EQ(GetParameter(pid)->castValue(0.3f), 1);
}

TEST(QVMParameter, SwitchGivenNegativeZeroCastsToOff) {
    const float off = GetParameter(pidMasterOnOff)->castValue(-0.0f);
    EXPECT_EQ(off, 0);
    EXPECT_FALSE(std::signbit(off));
}

TEST(QVMParameter, SwitchGivenNaNCastsToOn) {
    EXPECT_EQ(GetParameter(pidFilterListenLow)->castValue(kNaN), 1);
}

TEST(QVMParameter, ModesAreCutToWholeNumbersOnTheWayInOnly) {
    for (const std::uint32_t pid : {pidTiltLoudnessMode, pidMeterMode, pidHQMode}) {
        EXPECT_EQ(GetParameter(pid)->castValue(1.9f), 1);
        EXPECT_EQ(GetParameter(pid)->castValue(-1.9f), -1);
        EXPECT_EQ(GetParameter(pid)->reverseCastValue(1.9f), 1.9f);
    }
}

TEST(QVMParameter, PlainParametersKeepTheirValueBothWays) {
    for (const std::uint32_t pid : {pidTiltGain, pidTiltRangeLinkRatio, pidOutputGain, pidFilterRangeLinkRatio,
                                    pidFilterSlopeLow, pidFilterResonanceLow, pidFilterSlopeLinkRatio,
                                    pidFilterResonanceLinkRatio, pidFilterSlopeHigh, pidFilterResonanceHigh}) {
        EXPECT_EQ(GetParameter(pid)->castValue(3.3f), 3.3f);
        EXPECT_EQ(GetParameter(pid)->reverseCastValue(3.3f), 3.3f);
    }
}

TEST(QVMParameter, CoercionRoundsTheCastValueToTheFineStep) {
    EXPECT_FLOAT_EQ(GetParameter(pidTiltGain)->coerceValue(3.26f), 3.3f);
    EXPECT_FLOAT_EQ(GetParameter(pidTiltRangeLow)->coerceValue(12005), 489.9f);
    EXPECT_EQ(GetParameter(pidMasterOnOff)->coerceValue(0.3f), 1);
}

TEST(QVMParameter, TheUnitsValuesAreCastRoundedToTheFineStepAndClamped) {
    EXPECT_FLOAT_EQ(GetParameter(pidTiltRangeLow)->shownValueFromHostValue(12005), 489.9f);
    const float above = GetParameter(pidTiltRangeHigh)->reverseCastValue(1234.56f);
    EXPECT_FLOAT_EQ(GetParameter(pidTiltRangeHigh)->shownValueFromHostValue(above),
                    1234.6f); // no coarser from 1 kHz up
    EXPECT_EQ(GetParameter(pidMasterOnOff)->shownValueFromHostValue(0.3f), 1);
    EXPECT_EQ(GetParameter(pidTiltGain)->shownValueFromHostValue(-500), -18);
    EXPECT_EQ(GetParameter(pidOutputGain)->shownValueFromHostValue(1e30f), 12);
    EXPECT_EQ(GetParameter(pidTiltRangeLink)->shownValueFromHostValue(1), 10); // a link switch stands below its range
    EXPECT_EQ(GetParameter(pidTiltGain)->shownValueFromHostValue(std::nanf("")), -18);
}

TEST(QVMParameter, TheUnitHoldsInitialValuesThatStandOutsideTheirRange) {
    for (const std::uint32_t pid :
         {pidTiltRangeLink, pidTiltRangeLinkRatio, pidFilterRangeLink, pidFilterRangeLinkRatio}) {
        const QVMParameter& parameter = *GetParameter(pid);
        EXPECT_EQ(parameter.heldValueFromHostValue(0), 0) << pid;
        EXPECT_EQ(parameter.shownValueFromHostValue(0), parameter.minValue) << pid;
        EXPECT_EQ(parameter.heldValueFromHostValue(-1e9f), pid == pidTiltRangeLink || pid == pidFilterRangeLink ? 1 : 0)
            << pid;
    }
    EXPECT_EQ(GetParameter(pidTiltRangeLinkRatio)->heldValueFromHostValue(1e9f), 24000);
}

TEST(QVMParameter, BothReadingsOfTheUnitAgreeToTheBitInsideTheRange) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        for (int i = 0; i <= 5000; ++i) {
            const float host =
                parameter.minValue + (parameter.maxValue - parameter.minValue) * static_cast<float>(i) / 5000;
            if (parameter.castValue(host) < parameter.minValue) continue;
            ASSERT_EQ(parameter.heldValueFromHostValue(host), parameter.shownValueFromHostValue(host)) << pid;
        }
    }
}

TEST(QVMParameter, HalvesOfModesAndSwitchesRoundAwayFromZero) {
    for (const std::int32_t unit : {QVMUnitIndexed, QVMUnitSwitch}) {
        QVMParameter parameter;
        parameter.unit = unit;
        for (const std::uint32_t type : {0u, 1u, 2u, 7u}) {
            EXPECT_EQ(parameter.roundFloatValue(2.5f, type), 3);
            EXPECT_EQ(parameter.roundFloatValue(-2.5f, type), -3);
        }
    }
}

TEST(QVMParameter, RoundingGoesToTheStepOfTheTypeWithHalvesAwayFromZero) {
    const QVMParameter* gain = GetParameter(pidTiltGain);
    EXPECT_EQ(gain->roundFloatValue(1.25f, QVMGranularityNormal), 1.5f);
    EXPECT_EQ(gain->roundFloatValue(-1.25f, QVMGranularityNormal), -1.5f);
    EXPECT_FLOAT_EQ(gain->roundFloatValue(1.23f, QVMGranularityFine), 1.2f);
    EXPECT_EQ(gain->roundFloatValue(2.3f, QVMGranularityCoarse), 3);
    EXPECT_EQ(gain->roundFloatValue(2.3f, 9), 2.3f); // the value is its own step
}

TEST(QVMParameter, LogarithmicFrequenciesStepCoarserFromOneKilohertzUp) {
    const QVMParameter parameter = FrequencyParameter();
    EXPECT_EQ(parameter.granularityValueForType(QVMGranularityFine, 999), 0.1f);
    EXPECT_EQ(parameter.granularityValueForType(QVMGranularityFine, 1000), 10);
    EXPECT_EQ(parameter.granularityValueForType(QVMGranularityFine, 9999), 10);
    EXPECT_EQ(parameter.granularityValueForType(QVMGranularityFine, 10000), 100);
    EXPECT_EQ(parameter.granularityValueForType(QVMGranularityFine, kNaN), 0.1f);
    EXPECT_EQ(parameter.normalizeFloatValue(12345, QVMGranularityFine), 12300);
    EXPECT_EQ(parameter.normalizeFloatValue(1234.5f, QVMGranularityFine), 1230);
}

TEST(QVMParameter, OnlyLogarithmicFrequenciesStepCoarser) {
    QVMParameter linear = FrequencyParameter();
    linear.logarithmic = false;
    EXPECT_EQ(linear.granularityValueForType(QVMGranularityFine, 20000), 0.1f);
    QVMParameter level = FrequencyParameter();
    level.unit = QVMUnitDecibels;
    EXPECT_EQ(level.granularityValueForType(QVMGranularityFine, 20000), 0.1f);
}

TEST(QVMParameter, AStepAlreadyCoarserIsKept) {
    QVMParameter parameter = FrequencyParameter();
    parameter.coarseGranularity = 250;
    EXPECT_EQ(parameter.granularityValueForType(QVMGranularityCoarse, 20000), 250);
}

TEST(QVMParameter, NearestCoarseOptionIsTheFirstOfEquallyNearOnes) {
    QVMParameter parameter;
    parameter.coarseGranularityOptions = {3, 6, 9};
    std::size_t index = 99;
    EXPECT_EQ(parameter.closestCoarseGranularityOptionToValue(4.5f, &index), 3);
    EXPECT_EQ(index, 0u);
    EXPECT_EQ(parameter.closestCoarseGranularityOptionToValue(100, &index), 9);
    EXPECT_EQ(index, 2u);
}

TEST(QVMParameter, NearestCoarseOptionOfNoneIsZeroAtIndexZero) {
    std::size_t index = 99;
    EXPECT_EQ(QVMParameter().closestCoarseGranularityOptionToValue(4.5f, &index), 0);
    EXPECT_EQ(index, 0u);
}

TEST(QVMParameter, NearestCoarseOptionOfNoNumberIsTheFirst) {
    std::size_t index = 99;
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->closestCoarseGranularityOptionToValue(kNaN, &index), 16);
    EXPECT_EQ(index, 0u);
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->normalizeFloatValue(kNaN, QVMGranularityCoarse),
              20); // 16 to the coarse step
}

TEST(QVMParameter, CoarseNormalisationGoesThroughTheOptions) {
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->normalizeFloatValue(110, QVMGranularityCoarse), 100);
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->normalizeFloatValue(290, QVMGranularityCoarse),
              320); // 315 to the coarse step
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->normalizeFloatValue(290, QVMGranularityNormal), 290);
}

TEST(QVMParameter, NormalisationClampsAfterRounding) {
    QVMParameter parameter;
    parameter.unit = QVMUnitDecibels;
    parameter.minValue = -1;
    parameter.maxValue = 1;
    parameter.granularity = 0.7f;
    EXPECT_EQ(parameter.normalizeFloatValue(1.2f, QVMGranularityNormal), 1);
    EXPECT_EQ(parameter.normalizeFloatValue(-1.2f, QVMGranularityNormal), -1);
    EXPECT_EQ(parameter.normalizeFloatValue(kNaN, QVMGranularityNormal), -1);
}

TEST(QVMParameter, OutputGainReachesBothEndsOfItsSlider) {
    const QVMParameter* gain = GetParameter(pidOutputGain);
    EXPECT_FLOAT_EQ(gain->normalizedFloatValueFromPercent(0, QVMGranularityFine), -96);
    EXPECT_FLOAT_EQ(gain->normalizedFloatValueFromPercent(1, QVMGranularityFine), 12);
    EXPECT_NEAR(gain->normalizedFloatValueFromPercent(0.5f, QVMGranularityFine), -10.5, 0.051);
    EXPECT_NEAR(gain->percentageFromFloatValue(0), 0.693, 0.0005);
}

TEST(QVMParameter, PositionOfAParameterThatDoesNotExistIsZero) {
    QVMParameter parameter;
    parameter.pid = 24;
    EXPECT_EQ(parameter.percentageFromFloatValue(0.5f), 0);
    EXPECT_EQ(parameter.castValue(0.5f), 0.5f);
}

TEST(QVMParameter, DerivedFieldsFollowTheStoredOnes) {
    const QVMParameter* gain = GetParameter(pidTiltGain);
    EXPECT_EQ(gain->valueRange(), 36);
    EXPECT_EQ(gain->labelEdge(), 1);
    EXPECT_STREQ(gain->C_codename(), "Tilt Gain");
    EXPECT_EQ(gain->restrictValue(99), 99);
}

TEST(QVMParameter, AFreshRecordIsEmpty) {
    const QVMParameter parameter;
    EXPECT_EQ(parameter.maxValue, 0);
    EXPECT_EQ(parameter.controlScale, 0);
    EXPECT_EQ(parameter.clump, nullptr);
    EXPECT_TRUE(parameter.name.empty());
    EXPECT_TRUE(parameter.range.empty());
    EXPECT_EQ(parameter.color, QVMColor{});
    EXPECT_FALSE(parameter.textEntryNumbers);
}

} // namespace
} // namespace QVM_NAMESPACE
