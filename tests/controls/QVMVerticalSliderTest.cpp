// The slider's extents and gestures.
#include "controls/SliderFixture.h"

#include <cmath>
#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kShift = EventModifier::shift;

using QVMVerticalSliderTest = SliderFixture;

TEST_F(QVMVerticalSliderTest, ExtentsFollowTheHandlesSize) {
    const QVMVerticalSlider lying(kLying, *GetParameter(pidTiltGain)), upright(kUpright, *GetParameter(pidOutputGain));
    EXPECT_DOUBLE_EQ(lying.readoutBulb()->bounds().width, 76);
    EXPECT_DOUBLE_EQ(lying.lowest(), 18);
    EXPECT_DOUBLE_EQ(lying.highest(), 256);
    EXPECT_DOUBLE_EQ(lying.range(), 238);
    EXPECT_DOUBLE_EQ(upright.lowest(), upright.readoutBulb()->bounds().height);
    EXPECT_DOUBLE_EQ(upright.lowest(), 38); // a capsule of 26 points with 6 above it and below
    EXPECT_DOUBLE_EQ(upright.highest(), 179);
    EXPECT_EQ(lying.pointFromRelevant(5), (Point{5, 0}));
    EXPECT_EQ(upright.pointFromRelevant(5), (Point{0, 5}));
}

TEST_F(QVMVerticalSliderTest, AnotherFrameMovesTheExtentsAndTheHandleAtOnce) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 18);
    slider.setFrame({0, 0, 174, 54});
    EXPECT_DOUBLE_EQ(slider.highest(), 156);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 156);
}

TEST_F(QVMVerticalSliderTest, PositionsAreWholePointsOnTheParametersOwnScale) {
    const QVMVerticalSlider slider(kMember, *GetParameter(pidTiltRangeLow));
    EXPECT_DOUBLE_EQ(slider.positionValueFromFloatValue(10), 18);
    EXPECT_DOUBLE_EQ(slider.positionValueFromFloatValue(24000), 256);
    const double middle = 18 + 238 * std::log(125.0 / 10) / std::log(2400.0);
    EXPECT_DOUBLE_EQ(slider.positionValueFromFloatValue(125), std::round(middle));
}

TEST_F(QVMVerticalSliderTest, ATrackClickMovesTheHandleThereAndSendsTheValue) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    GestureRecord record(slider);
    press(slider, at(slider, 256));
    EXPECT_FLOAT_EQ(slider.floatValue(), 18);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 256);
    EXPECT_THAT(record.lines, ElementsAre("action 18", "began"));
    EXPECT_TRUE(slider.writeLocked());
    release(slider, at(slider, 256));
    EXPECT_FALSE(slider.writeLocked());
    EXPECT_THAT(record.lines, ElementsAre("action 18", "began", "ended"));
}

TEST_F(QVMVerticalSliderTest, ATrackClickSnapsToTheStandardStep) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    press(slider, at(slider, 200));
    EXPECT_FLOAT_EQ(slider.floatValue(), 9.5f); // 182/238 of 36 is 27.53
    EXPECT_DOUBLE_EQ(slider.handleValue(), slider.positionValueFromFloatValue(9.5f));
}

TEST_F(QVMVerticalSliderTest, AClickOnTheHandleDoesNotChangeTheValue) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 4.3f);
    GestureRecord record(slider);
    const double handle = slider.handleValue();
    press(slider, at(slider, handle + 30));
    release(slider, at(slider, handle + 30));
    EXPECT_FLOAT_EQ(slider.floatValue(), 4.3f);
    EXPECT_THAT(record.lines, ElementsAre("began", "ended"));
}

TEST_F(QVMVerticalSliderTest, ADragKeepsThePlaceWhereTheHandleWasGrabbed) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    const double handle = slider.handleValue();
    press(slider, at(slider, handle + 20));
    drag(slider, at(slider, handle + 20 + 66));
    EXPECT_TRUE(slider.dragging());
    EXPECT_FLOAT_EQ(slider.floatValue(), valueAt(slider, handle + 66, 0));
    EXPECT_DOUBLE_EQ(slider.handleValue(), slider.positionValueFromFloatValue(slider.floatValue()));
    release(slider, at(slider, handle + 86));
    EXPECT_FALSE(slider.dragging());
}

TEST_F(QVMVerticalSliderTest, ADragOfAnUprightSliderGoesUpwards) {
    QVMVerticalSlider slider(kUpright, *GetParameter(pidOutputGain));
    show(slider, -12);
    press(slider, at(slider, slider.handleValue()));
    drag(slider, at(slider, 191));
    EXPECT_FLOAT_EQ(slider.floatValue(), 12);
    drag(slider, at(slider, 26));
    EXPECT_FLOAT_EQ(slider.floatValue(), -96);
}

TEST_F(QVMVerticalSliderTest, DraggingBeyondTheEndsStopsAtThem) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    press(slider, at(slider, slider.handleValue()));
    drag(slider, at(slider, 5000));
    EXPECT_FLOAT_EQ(slider.floatValue(), 18);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 256);
    drag(slider, at(slider, -5000));
    EXPECT_FLOAT_EQ(slider.floatValue(), -18);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 18);
    drag(slider, at(slider, 137)); // the overshoot is not owed back
    EXPECT_FLOAT_EQ(slider.floatValue(), 0);
}

TEST_F(QVMVerticalSliderTest, ShiftSnapsToCoarseStepsWhileTheHandleFollows) {
    QVMVerticalSlider slider(kMember, *GetParameter(pidTiltRangeLow));
    show(slider, 100);
    press(slider, at(slider, slider.handleValue()));
    drag(slider, at(slider, slider.handleValue() + 12), kShift); // about 144 Hz
    EXPECT_FLOAT_EQ(slider.floatValue(), 160);
    EXPECT_DOUBLE_EQ(slider.handleValue(), slider.positionValueFromFloatValue(160));
}

TEST_F(QVMVerticalSliderTest, AMembersDragStopsAtItsLimit) {
    QVMVerticalSlider slider(kMember, *GetParameter(pidTiltRangeLow));
    press(slider, at(slider, slider.handleValue()));
    drag(slider, at(slider, 256));
    EXPECT_FLOAT_EQ(slider.floatValue(), 12000);
}

TEST_F(QVMVerticalSliderTest, AClickOnAMarkSetsItsValue) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    GestureRecord record(slider);
    ASSERT_EQ(slider.cueRects().size(), 7u);
    for (const QVMCueRect& cue : slider.cueRects()) {
        if (cue.value != 12) continue;
        press(slider, cue.rect.center());
        release(slider, cue.rect.center());
    }
    EXPECT_FLOAT_EQ(slider.floatValue(), 12);
    EXPECT_THAT(record.lines, ElementsAre("action 12", "began", "ended"));
    time.advance(1);
    EXPECT_DOUBLE_EQ(slider.handleValue(), slider.positionValueFromFloatValue(12));
}

TEST_F(QVMVerticalSliderTest, TheThirdOfFiveIndexedCuesIsTheMiddleOfTheRange) {
    const QVMParameter parameter = parameterLike(pidTiltGain, [](QVMParameter& p) {
        p.tickmarks = p.cueSymbolPositions = p.displayTickmarks = {};
        p.cueSymbols = {"a", "b", "c", "d", "e"};
        p.minValue = -18;
    });
    QVMVerticalSlider slider(kLying, parameter);
    show(slider, 18);
    ASSERT_EQ(slider.cueRects().size(), 5u);
    EXPECT_TRUE(slider.cueRects()[2].indexed);
    press(slider, slider.cueRects()[2].rect.center());
    EXPECT_FLOAT_EQ(slider.floatValue(), 0);
    press(slider, slider.cueRects()[3].rect.center());
    EXPECT_FLOAT_EQ(slider.floatValue(), 9);
}

TEST_F(QVMVerticalSliderTest, AnIndexedCueIsRoundedToTheFineStep) {
    const QVMParameter parameter = parameterLike(pidTiltGain, [](QVMParameter& p) {
        p.tickmarks = p.cueSymbolPositions = p.displayTickmarks = {};
        p.cueSymbols = {"a", "b", "c", "d", "e", "f", "g", "h"};
        p.minValue = -18;
    });
    QVMVerticalSlider slider(kLying, parameter);
    show(slider, 18);
    ASSERT_EQ(slider.cueRects().size(), 8u);
    press(slider, slider.cueRects()[3].rect.center());
    const float fine = parameter.normalizedFloatValueFromPercent(3.0f / 7, QVMGranularityFine);
    ASSERT_NE(fine, parameter.normalizedFloatValueFromPercent(3.0f / 7, QVMGranularityNormal));
    ASSERT_NE(fine, parameter.normalizedFloatValueFromPercent(3.0f / 7, QVMGranularityCoarse));
    EXPECT_FLOAT_EQ(slider.floatValue(), fine);
}

TEST_F(QVMVerticalSliderTest, AKeyHeldAtTheReleaseTellsNobodyButEndsTheDrag) {
    for (const std::uint32_t key : {EventModifier::option, EventModifier::control}) {
        QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
        show(slider, 0);
        GestureRecord record(slider);
        press(slider, at(slider, slider.handleValue()));
        drag(slider, at(slider, slider.handleValue() + 20));
        EXPECT_TRUE(slider.dragging());
        record.lines.clear();
        release(slider, at(slider, slider.handleValue()), key);
        EXPECT_TRUE(record.lines.empty());
        EXPECT_FALSE(slider.dragging());
        EXPECT_FALSE(slider.writeLocked());
        show(slider, -12);
        EXPECT_EQ(slider.handleValue(), slider.positionValueFromFloatValue(-12)) << "it follows the host again";
    }
}

TEST_F(QVMVerticalSliderTest, ASliderDisabledInMidDragLetsGoOfItsHandle) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    press(slider, at(slider, slider.handleValue()));
    drag(slider, at(slider, slider.handleValue() + 20));
    slider.setPreventInteraction(true);
    release(slider, at(slider, slider.handleValue()));
    EXPECT_FALSE(slider.dragging());
    EXPECT_FALSE(slider.writeLocked());
}

TEST_F(QVMVerticalSliderTest, AHandleOverAMarkIsGrabbedNotTheMark) {
    const QVMParameter parameter = parameterLike(pidOutputGain);
    QVMVerticalSlider slider(kUpright, parameter);
    show(slider, -24);
    press(slider, at(slider, slider.handleValue()) + Point{25, 0});
    EXPECT_TRUE(slider.writeLocked());
    EXPECT_FLOAT_EQ(slider.floatValue(), -24);
}

TEST_F(QVMVerticalSliderTest, ScrollingMovesNothing) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    GestureRecord record(slider);
    Event wheel = eventAt(EventType::scrollWheel, slider, at(slider, 100));
    wheel.scrollingDeltaY = 3;
    slider.scrollWheel(wheel);
    EXPECT_DOUBLE_EQ(slider.scrollDelta(), -30);
    EXPECT_FLOAT_EQ(slider.floatValue(), 0);
    EXPECT_THAT(record.lines, IsEmpty());
}

TEST_F(QVMVerticalSliderTest, MetaActionsMoveTheHandleByThePointersWay) {
    QVMVerticalSlider slider(kMember, *GetParameter(pidTiltRangeLow));
    show(slider, 125);
    GestureRecord record(slider);
    const double handle = slider.handleValue();
    QVMEvent event(eventAt(EventType::mouseDown, slider, {200, 3}), slider);
    slider.handleMetaActionWithEvent(QVMMetaActionDown, &event);
    EXPECT_FLOAT_EQ(slider.floatValue(), 125);
    event.point.x = 220;
    slider.handleMetaActionWithEvent(QVMMetaActionDragged, &event);
    EXPECT_DOUBLE_EQ(slider.handleValue(), slider.positionValueFromFloatValue(valueAt(slider, handle + 20, 0)));
    slider.handleMetaActionWithEvent(QVMMetaActionUp, &event);
    EXPECT_FALSE(slider.dragging());
    EXPECT_EQ(record.lines.front(), "began");
    EXPECT_EQ(record.lines.back(), "ended");
    slider.handleMetaActionWithEvent(QVMMetaActionReset, nullptr);
    EXPECT_FLOAT_EQ(slider.floatValue(), 20);
    slider.handleMetaActionWithEvent(4, &event);
    slider.handleMetaActionWithEvent(QVMMetaActionDown, nullptr);
    EXPECT_FLOAT_EQ(slider.floatValue(), 20);
}

} // namespace
} // namespace QVM_NAMESPACE
