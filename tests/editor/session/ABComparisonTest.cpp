#include "editor/session/ABComparison.h"

#include "editor/session/SessionFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ABComparisonTest : public SessionFixture {
protected:
    using Copy = ABComparison::Copy;

    void SetUp() override { open(); }
    ABComparison& comparison() { return session_.comparison(); }
};

TEST_F(ABComparisonTest, EachSideKeepsItsValuesAndItsPreset) {
    set(pidTiltGain, 3);
    session_.presets().setCurrent(8);
    comparison().flip(Copy::no);
    EXPECT_EQ(comparison().active(), 1u);
    EXPECT_EQ(values().memoized(pidTiltGain), GetParameter(pidTiltGain)->initialValue);
    EXPECT_EQ(session_.presets().current(), 0u);
    comparison().flip(Copy::no);
    EXPECT_EQ(comparison().active(), 0u);
    EXPECT_EQ(values().memoized(pidTiltGain), 3);
    EXPECT_EQ(session_.presets().current(), 8u);
}

TEST_F(ABComparisonTest, OnlyWhatDiffersIsSent) {
    set(pidTiltGain, 3);
    surface_.calls.clear();
    comparison().flip(Copy::no);
    EXPECT_THAT(surface_.calls, ElementsAre("side 1", "send 1", "changed 1", "preset Default 0"));
}

TEST_F(ABComparisonTest, ACopyTakesTheValuesAlongAndTheSignGlides) {
    set(pidTiltGain, 3);
    surface_.calls.clear();
    comparison().flip(Copy::yes);
    EXPECT_THAT(surface_.calls, ElementsAre("side 1 glides", "preset Default 0"));
    EXPECT_EQ(values().memoized(pidTiltGain), 3);
}

TEST_F(ABComparisonTest, TheSideThatWasLeftIsHandedOutAsItWas) {
    set(pidTiltGain, 3);
    const auto left = comparison().flip(Copy::no);
    EXPECT_EQ(left.side, 0u);
    EXPECT_TRUE(left.settings.starts_with("1;3;")) << left.settings;
    EXPECT_EQ(std::count(left.settings.begin(), left.settings.end(), ';'), QVMParameterCount);
}

TEST_F(ABComparisonTest, WhatWasHandedOutComesBackOnTheSideThatIsNotActive) {
    set(pidTiltGain, 3.25f);
    const auto left = comparison().flip(Copy::no);
    comparison().reset(values().memoized());
    ASSERT_TRUE(comparison().restore(left.side, left.settings));
    EXPECT_EQ(comparison().active(), 1u);
    EXPECT_EQ(values().memoized(pidTiltGain), GetParameter(pidTiltGain)->initialValue) << "nothing is applied";
    comparison().flip(Copy::no);
    EXPECT_EQ(values().memoized(pidTiltGain), 3.25f);
}

TEST_F(ABComparisonTest, WhatIsNoNumberIsZeroAndWhatIsMissingStays) {
    ASSERT_TRUE(comparison().restore(0, "x;"));
    comparison().flip(Copy::no);
    EXPECT_EQ(values().memoized(pidMasterOnOff), 0);
    EXPECT_EQ(values().memoized(pidTiltGain), 0);
    EXPECT_EQ(values().memoized(pidTiltRangeLow), GetParameter(pidTiltRangeLow)->initialValue);
}

TEST_F(ABComparisonTest, WhatIsNoSideIsIgnored) {
    EXPECT_FALSE(comparison().restore(ABComparison::nothingSaved, "1"));
    EXPECT_FALSE(comparison().restore(7, "1"));
    comparison().setActive(7);
    EXPECT_EQ(comparison().active(), 0u);
    EXPECT_THAT(surface_.calls, IsEmpty());
}

TEST_F(ABComparisonTest, AnotherActiveSideCopiesAndSendsNothing) {
    set(pidTiltGain, 3);
    surface_.calls.clear();
    comparison().setActive(1);
    EXPECT_THAT(surface_.calls, ElementsAre("side 1"));
    EXPECT_EQ(values().memoized(pidTiltGain), 3);
}

TEST_F(ABComparisonTest, AReplacedValueIsAnotherOnBothSides) {
    comparison().replaceValue(1, GetParameter(pidTiltGain)->initialValue, 6);
    comparison().replaceValue(2, -1, 7); // nowhere
    comparison().flip(Copy::no);
    EXPECT_EQ(values().memoized(pidTiltGain), 6);
    EXPECT_EQ(values().memoized(pidTiltRangeLow), GetParameter(pidTiltRangeLow)->initialValue);
}

} // namespace
} // namespace QVM_NAMESPACE
