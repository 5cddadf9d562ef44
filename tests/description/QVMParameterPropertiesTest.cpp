// Properties of the value arithmetic that must hold for every parameter of the product, on random values.
#include "description/Description.h"
#include "description/ValueMapping.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace QVM_NAMESPACE {
namespace {

constexpr int kTrials = 3000;
constexpr std::uint32_t kTypes[] = {QVMGranularityNormal, QVMGranularityFine, QVMGranularityCoarse};

class EveryParameter : public testing::TestWithParam<std::uint32_t> {
protected:
    const QVMParameter& parameter() const { return *GetParameter(GetParam()); }
    bool isSwitch() const { return parameter().unit == QVMUnitSwitch; }
    bool isFrequency() const { return parameter().unit == QVMUnitHertz; }

    float uniform(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random_); }
    float anyInRange() { return uniform(parameter().minValue, parameter().maxValue); }
    // Mostly near the range, sometimes far out or not a number at all.
    float anything() {
        static constexpr float extremes[] = {0.0f,
                                             -0.0f,
                                             std::numeric_limits<float>::infinity(),
                                             -std::numeric_limits<float>::infinity(),
                                             std::numeric_limits<float>::quiet_NaN(),
                                             std::numeric_limits<float>::max(),
                                             std::numeric_limits<float>::denorm_min()};
        const auto choice = std::uniform_int_distribution<std::size_t>(0, 63)(random_);
        if (choice < std::size(extremes)) return extremes[choice];
        const float margin = parameter().valueRange();
        return uniform(parameter().minValue - margin, parameter().maxValue + margin);
    }

private:
    std::mt19937 random_{20240 + GetParam()};
};

TEST_P(EveryParameter, NormalisedValuesNeverLeaveTheRange) {
    for (int i = 0; i < kTrials; ++i) {
        for (const std::uint32_t type : kTypes) {
            const float value = parameter().normalizeFloatValue(anything(), type);
            EXPECT_GE(value, parameter().minValue);
            EXPECT_LE(value, parameter().maxValue);
            const float fromPosition = parameter().normalizedFloatValueFromPercent(uniform(-2, 3), type);
            EXPECT_GE(fromPosition, parameter().minValue);
            EXPECT_LE(fromPosition, parameter().maxValue);
        }
    }
}

TEST_P(EveryParameter, NormalisingTwiceChangesNothingMore) {
    for (int i = 0; i < kTrials; ++i) {
        for (const std::uint32_t type : kTypes) {
            const float once = parameter().normalizeFloatValue(anything(), type);
            EXPECT_EQ(parameter().normalizeFloatValue(once, type), once) << "type " << type;
        }
    }
}

TEST_P(EveryParameter, NormalisedValuesStayWithinHalfAStepOfWhatWasAskedFor) {
    for (int i = 0; i < kTrials; ++i) {
        const float asked = anyInRange();
        const float step = parameter().granularityValueForType(QVMGranularityFine, asked);
        EXPECT_NEAR(parameter().normalizeFloatValue(asked, QVMGranularityFine), asked, 0.501 * step);
    }
}

TEST_P(EveryParameter, NormalisationNeverTurnsTheOrderAround) {
    for (int i = 0; i < kTrials; ++i) {
        const float a = anyInRange();
        const float b = anyInRange();
        for (const std::uint32_t type : kTypes) {
            EXPECT_LE(parameter().normalizeFloatValue(std::min(a, b), type),
                      parameter().normalizeFloatValue(std::max(a, b), type));
        }
    }
}

TEST_P(EveryParameter, PositionsRiseWithTheValueFromZeroToOne) {
    EXPECT_NEAR(parameter().percentageFromFloatValue(parameter().minValue), 0, 2e-6);
    EXPECT_NEAR(parameter().percentageFromFloatValue(parameter().maxValue), 1, 2e-6);
    for (int i = 0; i < kTrials; ++i) {
        const float a = anyInRange();
        const float b = anyInRange();
        EXPECT_LE(parameter().percentageFromFloatValue(std::min(a, b)),
                  parameter().percentageFromFloatValue(std::max(a, b)));
    }
}

TEST_P(EveryParameter, APositionComesBackFromItsValue) {
    for (int i = 0; i < kTrials; ++i) {
        const float position = uniform(0, 1);
        const float value = PositionToShownValue(GetParam(), position);
        EXPECT_NEAR(parameter().percentageFromFloatValue(value), position, 4e-6);
    }
}

TEST_P(EveryParameter, ANormalisedValueComesBackExactlyFromItsPosition) {
    for (int i = 0; i < kTrials; ++i) {
        const float value = parameter().normalizeFloatValue(anyInRange(), QVMGranularityFine);
        const float position = parameter().percentageFromFloatValue(value);
        EXPECT_EQ(parameter().normalizedFloatValueFromPercent(position, QVMGranularityFine), value);
    }
}

TEST_P(EveryParameter, TheFreeFunctionAgreesWithTheMethod) {
    for (int i = 0; i < kTrials; ++i) {
        const float value = anyInRange();
        EXPECT_EQ(ParameterFloatValueToPercentage(GetParam(), value), parameter().percentageFromFloatValue(value));
    }
}

TEST_P(EveryParameter, HostAndShownDomainRoundTrip) {
    const double tolerance = isFrequency() ? 0.02 : 0;
    for (int i = 0; i < kTrials; ++i) {
        const float host = anyInRange();
        const float shown = parameter().castValue(host);
        EXPECT_EQ(parameter().castValue(host), shown);
        if (parameter().unit == QVMUnitIndexed || isSwitch()) {
            EXPECT_EQ(parameter().castValue(parameter().reverseCastValue(shown)), shown);
        } else {
            EXPECT_NEAR(parameter().reverseCastValue(shown), host, tolerance);
        }
    }
}

TEST_P(EveryParameter, ANormalisedValueSurvivesTheHostExactly) {
    for (int i = 0; i < kTrials; ++i) {
        const float value = parameter().normalizeFloatValue(anyInRange(), QVMGranularityFine);
        const float expected = isSwitch() && value != 0 ? 1 : value; // a switch is 0 or 1 whatever its range
        EXPECT_EQ(parameter().coerceValue(parameter().reverseCastValue(value)), expected);
    }
}

TEST_P(EveryParameter, CastNeverTurnsTheOrderAround) {
    for (int i = 0; i < kTrials; ++i) {
        const float a = anyInRange();
        const float b = anyInRange();
        EXPECT_LE(parameter().castValue(std::min(a, b)), parameter().castValue(std::max(a, b)));
    }
}

TEST_P(EveryParameter, CastKeepsTheRange) {
    const float lowest = isSwitch() ? 0 : parameter().minValue; // a switch is 0 or 1 whatever its range
    const float highest = isSwitch() ? 1 : parameter().maxValue;
    for (int i = 0; i < kTrials; ++i) {
        const float shown = parameter().castValue(anyInRange());
        EXPECT_GE(shown, lowest - 1e-6f * std::abs(lowest));
        EXPECT_LE(shown, highest + 1e-6f * std::abs(highest));
    }
}

TEST_P(EveryParameter, CyclingForwardAndBackReturns) {
    for (int i = 0; i < kTrials; ++i) {
        float value = isSwitch() ? std::round(uniform(0, 1)) : anyInRange();
        if (!isSwitch()) value = parameter().normalizeFloatValue(value, QVMGranularityNormal);
        const float next = parameter().floatValueAfter(value, true);
        EXPECT_EQ(parameter().floatValueAfter(next, false), value);
        if (!isSwitch()) {
            EXPECT_GE(next, parameter().minValue);
            EXPECT_LE(next, parameter().maxValue);
        }
    }
}

TEST_P(EveryParameter, EveryNormalisedValueHasATextWithoutASignedZero) {
    for (int i = 0; i < kTrials; ++i) {
        std::string text;
        std::optional<std::string> suffix;
        parameter().valueString(&text, &suffix, parameter().normalizeFloatValue(anyInRange(), QVMGranularityFine));
        EXPECT_FALSE(text.empty());
        EXPECT_NE(text, "-0.0");
        EXPECT_NE(text, "-0");
    }
}

INSTANTIATE_TEST_SUITE_P(Product, EveryParameter, testing::Range(0u, QVMParameterCount),
                         [](const auto& parameter) { return GetParameter(parameter.param)->codesafeName; });

} // namespace
} // namespace QVM_NAMESPACE
