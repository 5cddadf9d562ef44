#include "description/ValueMapping.h"

#include "description/ParameterIDs.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(ValueMapping, IntegerPartCutsTowardZeroAndNeverOverflows) {
    EXPECT_EQ(IntegerPart(2.7f), 2);
    EXPECT_EQ(IntegerPart(-2.7f), -2);
    EXPECT_EQ(IntegerPart(-0.9f), 0);
    EXPECT_EQ(IntegerPart(kNaN), 0);
    EXPECT_EQ(IntegerPart(kInfinity), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(IntegerPart(-kInfinity), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(IntegerPart(2147483648.0f), std::numeric_limits<std::int32_t>::max());
}

// The positions of a few values, worked out by hand in double precision.
TEST(ValueMapping, PositionsFollowTheCurveOfEachParameter) {
    struct Case {
        std::uint32_t pid;
        float value;
        double position;
    };
    const Case cases[] = {
        {0, 1, 1},       {1, 0, 0.5},          {1, -18, 0},     {2, 10, 0},     {2, 24000, 1},  {3, 489.89795f, 0.5},
        {4, 12005, 0.5}, {5, 10, 0},           {6, 2, 2.0 / 3}, {7, -96, 0},    {7, 12, 1},     {8, 1, 0.5},
        {9, 4, 0},       {9, 309.83868f, 0.5}, {10, 24000, 1},  {11, 4, 0},     {12, 24000, 1}, {13, 1, 1},
        {14, 27, 0.5},   {15, 9, 0.5},         {16, 1, 1},      {17, 25, 0.25}, {18, 0, 0},     {19, 100, 1},
        {20, 1, 1},      {21, 6, 0},           {22, 18, 1},     {23, 1, 1},
    };
    for (const Case& expected : cases) {
        const float position = ShownValueToPosition(expected.pid, expected.value);
        EXPECT_NEAR(position, expected.position, 2e-6) << "pid " << expected.pid << " at " << expected.value;
        EXPECT_EQ(ParameterFloatValueToPercentage(expected.pid, expected.value), position);
    }
}

TEST(ValueMapping, FaderPutsZeroDecibelsAtSevenTenthsAndTenAndAHalfBelowInTheMiddle) {
    EXPECT_NEAR(ShownValueToPosition(7, 0), 0.693, 0.0005);
    EXPECT_NEAR(PositionToShownValue(7, 0.5f), -10.5, 0.05);
    EXPECT_NEAR(PositionToShownValue(7, 0), -96, 1e-3);
    EXPECT_NEAR(PositionToShownValue(7, 1), 12, 1e-3);
}

TEST(ValueMapping, APidThatDoesNotExistKeepsOrZeroesTheValue) {
    for (const std::uint32_t pid : {24u, 4294967295u}) {
        EXPECT_EQ(ParameterFloatValueToPercentage(pid, 7.25f), 7.25f);
        EXPECT_EQ(ShownValueToPosition(pid, 7.25f), 0.0f);
        EXPECT_EQ(PositionToShownValue(pid, 0.5f), 0.0f);
        EXPECT_EQ(HostValueToShownValue(pid, 7.25f), 7.25f);
        EXPECT_EQ(ShownValueToHostValue(pid, 7.25f), 7.25f);
    }
}

TEST(ValueMapping, OnlyFrequenciesAreTransformedBothWays) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const bool frequency =
            pid == pidTiltRangeLow || pid == pidTiltRangeHigh || pid == pidFilterRangeLow || pid == pidFilterRangeHigh;
        EXPECT_EQ(ShownValueToHostValue(pid, 1000.5f) != 1000.5f, frequency) << pid;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
