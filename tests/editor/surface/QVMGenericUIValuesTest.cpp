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
    bool gearFlashes() { return spotlight().animationForKey("flash") != nullptr; }
    // So that the next one is seen as such, and not the rest of the last.
    void endFlash() { spotlight().removeAllAnimations(); }
    // So that no earlier flash stands in the way of one that should not be.
    void endLimit() {
        time_.advance(1);
        endFlash();
    }
};

TEST_F(QVMGenericUIValues, AUsersChangeReachesTheDelegateInTheHostDomain) {
    userSets(1, 4.5f);
    userSets(2, 500);
    ASSERT_EQ(delegate_.sent.size(), 2u);
    EXPECT_EQ(delegate_.sent[0].hostValue, 4.5f);
    EXPECT_EQ(delegate_.sent[1].hostValue, GetParameter(2)->reverseCastValue(500));
    EXPECT_EQ(memoized(1), 4.5f);
    EXPECT_EQ(memoized(2), 500);
}

TEST_F(QVMGenericUIValues, RaisingTheLowEndPushesTheHighEndAnOctaveAway) {
    userSets(3, 1500);
    userSets(2, 1000);
    EXPECT_EQ(memoized(2), 1000);
    EXPECT_EQ(memoized(3), 2000);
}

TEST_F(QVMGenericUIValues, LoweringTheHighEndPushesTheLowEndAnOctaveAway) {
    userSets(2, 800);
    userSets(3, 1000);
    EXPECT_EQ(memoized(2), 500);
    EXPECT_EQ(memoized(3), 1000);
}

TEST_F(QVMGenericUIValues, ThePartnerIsLeftAloneWhenTheRuleChangesNothing) {
    userSets(2, 100);
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 2"));
}

TEST_F(QVMGenericUIValues, ThePushedPartnersControlFollowsWithTheNextFrame) {
    userSets(3, 1500);
    userSets(2, 1000);
    frame();
    EXPECT_EQ(control(3).floatValue(), 2000);
}

// The stack drops a snapshot that equals the last one, so what is looked at is the half second of waiting.
TEST_F(QVMGenericUIValues, AnEqualValueReachesTheDelegateButAsksForNoSnapshot) {
    userSets(1, 6);
    frame();
    time_.advance(0.4);
    delegate_.calls.clear();
    userSets(1, 6);
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 1"));
    EXPECT_EQ(stack().stack().size(), 1u);
    time_.advance(0.11);
    EXPECT_EQ(stack().stack().size(), 2u) << "half a second after the change, not after the equal value";
}

TEST_F(QVMGenericUIValues, AnEqualValueFlashesNothing) {
    endLimit();
    userSets(14, 12); // the initial value of a parameter in the advanced drawer
    time_.settle();
    EXPECT_FALSE(gearFlashes());
}

TEST_F(QVMGenericUIValues, AChangeInTheHiddenDrawerFlashesTheGear) {
    userSets(14, 18);
    time_.settle();
    EXPECT_TRUE(gearFlashes());
}

TEST_F(QVMGenericUIValues, TheGearFlashesFiveTimesASecondAtMostAndNoTimeLater) {
    userSets(14, 18);
    time_.settle();
    ASSERT_TRUE(gearFlashes());
    endFlash();
    time_.advance(0.19);
    userSets(14, 24);
    time_.settle();
    EXPECT_FALSE(gearFlashes());
    time_.advance(0.2);
    EXPECT_FALSE(gearFlashes()) << "what was too early is not made up for";
    userSets(14, 30);
    time_.settle();
    EXPECT_TRUE(gearFlashes());
}

TEST_F(QVMGenericUIValues, TheGearMayFlashAgainAfterAFifthOfASecond) {
    userSets(14, 18);
    time_.settle();
    endFlash();
    time_.advance(0.21);
    userSets(14, 24);
    time_.settle();
    EXPECT_TRUE(gearFlashes());
}

TEST_F(QVMGenericUIValues, AChangeInTheOpenDrawerFlashesNothing) {
    endLimit();
    ui_->gearTapped();
    userSets(14, 18);
    time_.settle();
    EXPECT_FALSE(gearFlashes());
}

TEST_F(QVMGenericUIValues, AChangeOutsideTheDrawerFlashesNothing) {
    endLimit();
    userSets(1, 6);
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
    hostSets(1, 6);
    EXPECT_EQ(control(1).floatValue(), 6);
    EXPECT_EQ(memoized(1), 6);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIValues, AHostsChangeArrivesInTheShownDomainRoundedToTheFineStep) {
    hostSets(2, 12005);
    EXPECT_NEAR(memoized(2), 489.9f, 1e-3);
    EXPECT_NEAR(control(2).floatValue(), 489.9f, 1e-3);
}

TEST_F(QVMGenericUIValues, FrequenciesFromTheHostKeepTheirFineStepAboveOneKilohertz) {
    hostSets(2, GetParameter(2)->reverseCastValue(1234.56f));
    EXPECT_NEAR(memoized(2), 1234.6f, 1e-3);
}

TEST_F(QVMGenericUIValues, WhatTheUnitRefusesOrClampsIsShownAsItHoldsIt) {
    hostSets(1, 6);
    hostSets(1, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(memoized(1), 6);
    hostSets(1, 100);
    EXPECT_EQ(memoized(1), 18);
    EXPECT_EQ(control(1).floatValue(), 18);
}

// Half of 5 Hz is below what the unit holds: there it becomes 4, which is off.
TEST_F(QVMGenericUIValues, AnEndThatTheUnitHasClampedIsWhatTheUnitHolds) {
    userSets(9, 100);
    frame();
    ASSERT_FALSE(control(14).isDimmed());
    userSets(10, 5);
    frame();
    EXPECT_EQ(delegate_.unit[9], 4);
    EXPECT_EQ(memoized(9), 4);
    EXPECT_EQ(control(9).floatValue(), 4);
    EXPECT_TRUE(control(14).isDimmed()) << "the slope of a filter that is off";
    EXPECT_TRUE(control(15).isDimmed());
    time_.advance(1);
    EXPECT_EQ(stack().currentValues()->values.at(9), 4);
    ui_->presetBar()->ab().tap();
    EXPECT_EQ(delegate_.savedSlot.find("2.5;"), std::string::npos) << delegate_.savedSlot;
}

TEST_F(QVMGenericUIValues, AnEndThatTheUnitHasClampedBeforeIsStillWhatItHolds) {
    ASSERT_EQ(memoized(9), 4); // and nothing new comes from the unit
    userSets(10, 5);
    frame();
    EXPECT_EQ(memoized(9), 4);
    time_.advance(1);
    EXPECT_EQ(stack().currentValues()->values.at(9), 4);
    EXPECT_EQ(stack().currentValues()->values.at(10), 5);
}

TEST_F(QVMGenericUIValues, WhatTheUnitRefusedGivesWayToWhatItHolds) {
    ui_->notifyParameterUpdatedTo(1, std::numeric_limits<float>::quiet_NaN());
    frame();
    EXPECT_EQ(memoized(1), 0);
}

TEST_F(QVMGenericUIValues, BothEndsOfARangeAreHeld) {
    for (const float end : {-18.0f, 18.0f}) {
        ui_->notifyParameterUpdatedTo(1, end);
        frame();
        EXPECT_EQ(memoized(1), end);
    }
    ui_->notifyParameterUpdatedTo(2, 24000);
    frame();
    EXPECT_EQ(memoized(2), 24000);
}

// The control's whole gesture, for a parameter that has none.
TEST_F(QVMGenericUIValues, AValueChosenForAParameterWithoutAControlIsOneDiscreteGesture) {
    ui_->chooseValueForParameter(1, 8);
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 8", "discrete 8"));
    EXPECT_EQ(delegate_.unit[8], 1);
    EXPECT_EQ(memoized(8), 1);
}

TEST_F(QVMGenericUIValues, WhatTheEditorSentComesBackUnchanged) {
    for (const float value : {20.0f, 33.3f, 125.7f, 6300.0f, 23990.0f}) {
        userSets(2, value);
        const float sent = memoized(2);
        frame();
        EXPECT_EQ(memoized(2), sent);
    }
}

TEST_F(QVMGenericUIValues, AHiddenParameterFollowsTheHostWithoutAControl) {
    hostSets(8, 2);
    EXPECT_EQ(memoized(8), 2);
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
    EXPECT_EQ(memoized(7), -6);
}

TEST_F(QVMGenericUIValues, ResetSendsEveryControlsInitialValue) {
    userSets(1, 9);
    delegate_.calls.clear();
    ui_->resetInitialValues();
    EXPECT_EQ(delegate_.calls.size(), ui_->parameterControls().size());
    EXPECT_EQ(memoized(1), 0);
}

TEST_F(QVMGenericUIValues, ScratchValuesAreAppliedWhereTheyDifferAndTheControlIsEnabled) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        ui_->scratchPValues()[pid] = memoized(pid);
    ui_->scratchPValues()[1] = 6;
    ui_->scratchPValues()[7] = -3;
    control(7).primaryControl()->setPreventInteraction(true);
    ui_->applyScratchValues();
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 1"));
}

TEST_F(QVMGenericUIValues, WithoutADelegateChangesAreKept) {
    ui_->setDelegate(nullptr);
    userSets(1, 3);
    EXPECT_EQ(memoized(1), 3);
}

} // namespace
} // namespace QVM_NAMESPACE
