#include "editor/EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QVMGenericUIValues : public EditorFixture {
protected:
    Layer& spotlight() { return *ui_->powerBox()->gear()->spotlight(); }
    bool gearFlashes() { return spotlight().animations().find("flash") != nullptr; }
    // So that the next one is seen as such, and not the rest of the last.
    void endFlash() { spotlight().animations().removeAll(); }
    // So that no earlier flash stands in the way of one that should not be.
    void endLimit() {
        time_.advance(1);
        endFlash();
    }
};

TEST_F(QVMGenericUIValues, AUsersChangeReachesTheDelegateInTheHostDomain) {
    userSets(pidTiltGain, 4.5f);
    userSets(pidTiltRangeLow, 500);
    ASSERT_EQ(delegate_.sent.size(), 2u);
    EXPECT_EQ(delegate_.sent[0].hostValue, 4.5f);
    EXPECT_EQ(delegate_.sent[1].hostValue, GetParameter(pidTiltRangeLow)->reverseCastValue(500));
    EXPECT_EQ(memoized(pidTiltGain), 4.5f);
    EXPECT_EQ(memoized(pidTiltRangeLow), 500);
}

TEST_F(QVMGenericUIValues, RaisingTheLowEndPushesTheHighEndAnOctaveAway) {
    userSets(pidTiltRangeHigh, 1500);
    userSets(pidTiltRangeLow, 1000);
    EXPECT_EQ(memoized(pidTiltRangeLow), 1000);
    EXPECT_EQ(memoized(pidTiltRangeHigh), 2000);
}

TEST_F(QVMGenericUIValues, LoweringTheHighEndPushesTheLowEndAnOctaveAway) {
    userSets(pidTiltRangeLow, 800);
    userSets(pidTiltRangeHigh, 1000);
    EXPECT_EQ(memoized(pidTiltRangeLow), 500);
    EXPECT_EQ(memoized(pidTiltRangeHigh), 1000);
}

TEST_F(QVMGenericUIValues, ThePartnerIsLeftAloneWhenTheRuleChangesNothing) {
    userSets(pidTiltRangeLow, 100);
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 2"));
}

TEST_F(QVMGenericUIValues, ThePushedPartnersControlFollowsWithTheNextFrame) {
    userSets(pidTiltRangeHigh, 1500);
    userSets(pidTiltRangeLow, 1000);
    frame();
    EXPECT_EQ(control(pidTiltRangeHigh).floatValue(), 2000);
}

// The stack drops a snapshot that equals the last one, so what is looked at is the half second of waiting.
TEST_F(QVMGenericUIValues, AnEqualValueReachesTheDelegateButAsksForNoSnapshot) {
    userSets(pidTiltGain, 6);
    frame();
    time_.advance(0.4);
    delegate_.calls.clear();
    userSets(pidTiltGain, 6);
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 1"));
    EXPECT_EQ(stack().stack().size(), 1u);
    time_.advance(0.11);
    EXPECT_EQ(stack().stack().size(), 2u) << "half a second after the change, not after the equal value";
}

TEST_F(QVMGenericUIValues, AnEqualValueFlashesNothing) {
    endLimit();
    userSets(pidFilterSlopeLow, 12); // the initial value of a parameter in the advanced drawer
    time_.settle();
    EXPECT_FALSE(gearFlashes());
}

TEST_F(QVMGenericUIValues, AChangeInTheHiddenDrawerFlashesTheGear) {
    userSets(pidFilterSlopeLow, 18);
    time_.settle();
    EXPECT_TRUE(gearFlashes());
}

TEST_F(QVMGenericUIValues, TheGearFlashesFiveTimesASecondAtMostAndNoTimeLater) {
    userSets(pidFilterSlopeLow, 18);
    time_.settle();
    ASSERT_TRUE(gearFlashes());
    endFlash();
    time_.advance(0.19);
    userSets(pidFilterSlopeLow, 24);
    time_.settle();
    EXPECT_FALSE(gearFlashes());
    time_.advance(0.2);
    EXPECT_FALSE(gearFlashes()) << "what was too early is not made up for";
    userSets(pidFilterSlopeLow, 30);
    time_.settle();
    EXPECT_TRUE(gearFlashes());
}

TEST_F(QVMGenericUIValues, TheGearMayFlashAgainAfterAFifthOfASecond) {
    userSets(pidFilterSlopeLow, 18);
    time_.settle();
    endFlash();
    time_.advance(0.21);
    userSets(pidFilterSlopeLow, 24);
    time_.settle();
    EXPECT_TRUE(gearFlashes());
}

TEST_F(QVMGenericUIValues, AChangeInTheOpenDrawerFlashesNothing) {
    endLimit();
    ui_->gearTapped();
    userSets(pidFilterSlopeLow, 18);
    time_.settle();
    EXPECT_FALSE(gearFlashes());
}

TEST_F(QVMGenericUIValues, AChangeOutsideTheDrawerFlashesNothing) {
    endLimit();
    userSets(pidTiltGain, 6);
    time_.settle();
    EXPECT_FALSE(gearFlashes());
}

TEST_F(QVMGenericUIValues, AFrameWithTheReceivedValuesChangesNothingButTheCount) {
    const std::uint32_t count = ui_->receivedParamUpdateCount();
    frame();
    frame();
    EXPECT_EQ(ui_->receivedParamUpdateCount(), count + 2);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIValues, AHostsChangeMovesTheControlAndSendsNothingBack) {
    hostSets(pidTiltGain, 6);
    EXPECT_EQ(control(pidTiltGain).floatValue(), 6);
    EXPECT_EQ(memoized(pidTiltGain), 6);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIValues, AHostsChangeArrivesInTheShownDomainRoundedToTheFineStep) {
    hostSets(pidTiltRangeLow, 12005);
    EXPECT_NEAR(memoized(pidTiltRangeLow), 489.9f, 1e-3);
    EXPECT_NEAR(control(pidTiltRangeLow).floatValue(), 489.9f, 1e-3);
}

TEST_F(QVMGenericUIValues, FrequenciesFromTheHostKeepTheirFineStepAboveOneKilohertz) {
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(1234.56f));
    EXPECT_NEAR(memoized(pidTiltRangeLow), 1234.6f, 1e-3);
}

TEST_F(QVMGenericUIValues, WhatTheUnitRefusesOrClampsIsShownAsItHoldsIt) {
    hostSets(pidTiltGain, 6);
    hostSets(pidTiltGain, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(memoized(pidTiltGain), 6);
    hostSets(pidTiltGain, 100);
    EXPECT_EQ(memoized(pidTiltGain), 18);
    EXPECT_EQ(control(pidTiltGain).floatValue(), 18);
}

// Half of 5 Hz is below what the unit holds: there it becomes 4, which is off.
TEST_F(QVMGenericUIValues, AnEndThatTheUnitHasClampedIsWhatTheUnitHolds) {
    userSets(pidFilterRangeLow, 100);
    frame();
    ASSERT_FALSE(control(pidFilterSlopeLow).isDimmed());
    userSets(pidFilterRangeHigh, 5);
    frame();
    EXPECT_EQ(delegate_.unit[9], 4);
    EXPECT_EQ(memoized(pidFilterRangeLow), 4);
    EXPECT_EQ(control(pidFilterRangeLow).floatValue(), 4);
    EXPECT_TRUE(control(pidFilterSlopeLow).isDimmed()) << "the slope of a filter that is off";
    EXPECT_TRUE(control(pidFilterResonanceLow).isDimmed());
    time_.advance(1);
    EXPECT_EQ(stack().currentValues()->values.at(9), 4);
    ui_->presetBar()->ab().tap();
    EXPECT_EQ(delegate_.savedSlot.find("2.5;"), std::string::npos) << delegate_.savedSlot;
}

TEST_F(QVMGenericUIValues, AnEndThatTheUnitHasClampedBeforeIsStillWhatItHolds) {
    ASSERT_EQ(memoized(pidFilterRangeLow), 4); // and nothing new comes from the unit
    userSets(pidFilterRangeHigh, 5);
    frame();
    EXPECT_EQ(memoized(pidFilterRangeLow), 4);
    time_.advance(1);
    EXPECT_EQ(stack().currentValues()->values.at(9), 4);
    EXPECT_EQ(stack().currentValues()->values.at(10), 5);
}

TEST_F(QVMGenericUIValues, WhatTheUnitRefusedGivesWayToWhatItHolds) {
    ui_->notifyParameterUpdatedTo(pidTiltGain, std::numeric_limits<float>::quiet_NaN());
    frame();
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMGenericUIValues, BothEndsOfARangeAreHeld) {
    for (const float end : {-18.0f, 18.0f}) {
        ui_->notifyParameterUpdatedTo(pidTiltGain, end);
        frame();
        EXPECT_EQ(memoized(pidTiltGain), end);
    }
    ui_->notifyParameterUpdatedTo(pidTiltRangeLow, 24000);
    frame();
    EXPECT_EQ(memoized(pidTiltRangeLow), 24000);
}

// The control's whole gesture, for a parameter that has none.
TEST_F(QVMGenericUIValues, AValueChosenForAParameterWithoutAControlIsOneDiscreteGesture) {
    ui_->chooseValueForParameter(1, 8);
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 8", "discrete 8"));
    EXPECT_EQ(delegate_.unit[8], 1);
    EXPECT_EQ(memoized(pidMeterMode), 1);
}

TEST_F(QVMGenericUIValues, WhatTheEditorSentComesBackUnchanged) {
    for (const float value : {20.0f, 33.3f, 125.7f, 6300.0f, 23990.0f}) {
        userSets(pidTiltRangeLow, value);
        const float sent = memoized(pidTiltRangeLow);
        frame();
        EXPECT_EQ(memoized(pidTiltRangeLow), sent);
    }
}

TEST_F(QVMGenericUIValues, AHiddenParameterFollowsTheHostWithoutAControl) {
    hostSets(pidMeterMode, 2);
    EXPECT_EQ(memoized(pidMeterMode), 2);
}

TEST_F(QVMGenericUIValues, UnknownPidsHaveNoEffect) {
    ui_->notifyParameterUpdatedTo(24, 1);
    ui_->setMemoizedPValueDirectlyValue(24, 1);
    EXPECT_EQ(ui_->getMemoizedPValueDirectly(24), 0);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIValues, PairsAreAppliedByEitherCodenameAndUnknownNamesSkipped) {
    ui_->setParameterValuePairs({{"TiltGain", 3.0f}, {"out", -6.0f}, {"NoSuchThing", 1.0f}});
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 1", "updated 7"));
    EXPECT_EQ(memoized(pidOutputGain), -6);
}

TEST_F(QVMGenericUIValues, ResetSendsEveryControlsInitialValue) {
    userSets(pidTiltGain, 9);
    delegate_.calls.clear();
    ui_->resetInitialValues();
    EXPECT_EQ(delegate_.calls.size(), ui_->parameterControls().size());
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMGenericUIValues, ScratchValuesAreAppliedWhereTheyDifferAndTheControlIsEnabled) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        ui_->scratchPValues()[pid] = memoized(pid);
    ui_->scratchPValues()[1] = 6;
    ui_->scratchPValues()[7] = -3;
    control(pidOutputGain).primaryControl()->setPreventInteraction(true);
    ui_->applyScratchValues();
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 1"));
}

TEST_F(QVMGenericUIValues, WithoutADelegateChangesAreKept) {
    ui_->setDelegate(nullptr);
    userSets(pidTiltGain, 3);
    EXPECT_EQ(memoized(pidTiltGain), 3);
}

} // namespace
} // namespace QVM_NAMESPACE
