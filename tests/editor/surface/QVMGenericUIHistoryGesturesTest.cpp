// What becomes a step of the history when the user's hand does it.
#include "editor/surface/HistoryGestureFixture.h"

#include "controls/QVMRangeControl.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::Not;

TEST_F(QVMGenericUIHistoryGestures, ADragIsOneStepHoweverLongItRestsOnTheWay) {
    const Point start = handleOf(gain);
    down(start);
    for (const double way : {20.0, 50.0, -30.0, 40.0}) {
        drag({start.x + way, start.y});
        frames(1.3);
        EXPECT_EQ(steps(), 1u);
    }
    up({start.x + 40, start.y});
    frames(0.45);
    EXPECT_EQ(steps(), 1u);
    frames(0.1);
    EXPECT_EQ(steps(), 2u);
    EXPECT_EQ(stack().currentValues()->values.at(gain), memoized(gain));
    EXPECT_GT(memoized(gain), 0);
    undo();
    EXPECT_EQ(memoized(gain), 0);
}

TEST_F(QVMGenericUIHistoryGestures, ADragThatPushesItsPartnerLeavesNoStateThatNeverWas) {
    set(tiltLow, 8000);
    const std::size_t before = steps();
    const float highBefore = memoized(tiltHigh);
    const Point start = handleOf(tiltHigh);
    down(start);
    for (const double way : {-40.0, -80.0, -120.0}) {
        drag({start.x + way, start.y});
        frames(1);
    }
    ASSERT_LT(memoized(tiltLow), 8000) << "it was pushed";
    up({start.x - 120, start.y});
    frames(1);
    EXPECT_EQ(steps(), before + 1);
    EXPECT_EQ(stack().currentValues()->values.at(tiltLow), memoized(tiltLow));
    EXPECT_EQ(stack().currentValues()->values.at(tiltHigh), memoized(tiltHigh));
    undo();
    EXPECT_EQ(memoized(tiltLow), 8000);
    EXPECT_EQ(memoized(tiltHigh), highBefore);
}

TEST_F(QVMGenericUIHistoryGestures, AHeldArrowKeyIsOneStep) {
    ui_->bringParameterControlIntoFocus(&control(gain));
    holdKey(Key::right, 40);
    EXPECT_EQ(steps(), 1u);
    frames(2); // held on, at the end of the repeats
    EXPECT_EQ(steps(), 1u);
    keyGoesUp(Key::right);
    frames(1);
    EXPECT_EQ(steps(), 2u);
    EXPECT_EQ(stack().currentValues()->values.at(gain), memoized(gain));
    EXPECT_GT(memoized(gain), 3);
    undo();
    EXPECT_EQ(memoized(gain), 0);
}

TEST_F(QVMGenericUIHistoryGestures, PressesOfAKeyWithTimeBetweenThemAreAStepEach) {
    ui_->bringParameterControlIntoFocus(&control(gain));
    for (int i = 0; i < 3; ++i) {
        keyGoesDown(Key::right);
        frames(0.1);
        keyGoesUp(Key::right);
        frames(0.6);
    }
    EXPECT_EQ(steps(), 4u);
}

TEST_F(QVMGenericUIHistoryGestures, AHeldKeyEndsWithTheLossOfTheKeyboard) {
    window_.setKeyWindow(true);
    ui_->bringParameterControlIntoFocus(&control(gain));
    keyGoesDown(Key::right);
    window_.setKeyWindow(false); // and its release is never heard of
    frames(1);
    EXPECT_EQ(steps(), 2u);
}

TEST_F(QVMGenericUIHistoryGestures, AResetByAltClickIsAStepOnceTheButtonIsReleased) {
    set(gain, 6);
    delegate_.calls.clear();
    const Point at = handleOf(gain);
    down(at, EventModifier::option);
    EXPECT_EQ(memoized(gain), 0);
    frames(2);
    EXPECT_EQ(steps(), 2u) << "it is held";
    up(at, EventModifier::option);
    frames(1.1);
    ASSERT_EQ(steps(), 3u);
    EXPECT_EQ(stack().currentValues()->values.at(gain), 0);
    EXPECT_THAT(delegate_.calls, Contains("began 1"));
    EXPECT_THAT(delegate_.calls, Not(Contains("ended 1"))) << "the delegate hears what it always did";
    undo();
    EXPECT_EQ(memoized(gain), 6);
    redo();
    EXPECT_EQ(memoized(gain), 0);
}

TEST_F(QVMGenericUIHistoryGestures, AQuickAltClickIsAStepAndWhatFollowsIsAnother) {
    set(gain, 6);
    click(handleOf(gain), EventModifier::option);
    frames(1);
    EXPECT_EQ(steps(), 3u);
    set(output, -3);
    EXPECT_EQ(steps(), 4u);
    undo();
    EXPECT_EQ(memoized(gain), 0) << "and not what it was before the reset";
    EXPECT_EQ(memoized(output), 0);
    undo();
    EXPECT_EQ(memoized(gain), 6);
}

TEST_F(QVMGenericUIHistoryGestures, ADragThatIsReleasedWithAModifierHeldIsAStep) {
    for (const std::uint32_t modifier : {EventModifier::option, EventModifier::control}) {
        const std::size_t before = steps();
        const Point start = handleOf(gain);
        down(start);
        drag({start.x + 30, start.y});
        frames(0.2);
        up({start.x + 30, start.y}, modifier);
        frames(1);
        EXPECT_EQ(steps(), before + 1) << modifier;
        EXPECT_EQ(stack().currentValues()->values.at(gain), memoized(gain)) << modifier;
    }
}

TEST_F(QVMGenericUIHistoryGestures, WhatTheHostChangesInMidDragComesWithTheSameStep) {
    const Point start = handleOf(gain);
    down(start);
    drag({start.x + 30, start.y});
    hostSets(output, -3);
    frames(2);
    EXPECT_EQ(steps(), 1u);
    up({start.x + 30, start.y});
    frames(1);
    EXPECT_EQ(steps(), 2u);
    EXPECT_EQ(stack().currentValues()->values.at(output), -3);
}

TEST_F(QVMGenericUIHistoryGestures, AHeldButtonOfTheBarIsNoGesture) {
    down(middleOf(ui_->presetBar()->redo())); // there is nothing to redo
    ASSERT_NE(window_.mouseCapture(), nullptr);
    userSets(gain, 6);
    frames(0.6);
    EXPECT_EQ(steps(), 2u);
}

} // namespace
} // namespace QVM_NAMESPACE
