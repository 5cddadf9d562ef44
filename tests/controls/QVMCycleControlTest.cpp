#include "controls/QVMCycleControl.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "platform/layer/LayerDump.h"
#include "platform/layer/TextMetrics.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t kLoudness = 6;
constexpr const char* kPulse = "pulse";
using Lines = std::vector<std::string>;

class QVMCycleControlTest : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(kLoudness);
    QVMCycleControl control{{0, 0, 73, 26}, parameter};
    GestureRecord record{control};

    std::string text() const { return control.value()->string().string(); }
};

TEST_F(QVMCycleControlTest, AClickStepsOnceOnThePressAndReleasingDoesNothingMore) {
    press(control, {30, 13});
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_EQ(record.lines, (Lines{"action 1", "discrete", "began"}));
    record.lines.clear();
    release(control, {30, 13});
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_EQ(record.lines, (Lines{"ended"}));
}

TEST_F(QVMCycleControlTest, WrapsAroundAtBothEnds) {
    control.setFloatValue(3);
    control.cycleValueForward(true);
    EXPECT_EQ(control.floatValue(), 0);
    control.cycleValueForward(false);
    EXPECT_EQ(control.floatValue(), 3);
}

TEST_F(QVMCycleControlTest, RightAndUpStepForwardLeftAndDownBackward) {
    EXPECT_TRUE(control.incrementWithArrowGranularity(Key::right, QVMGranularityNormal));
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_TRUE(control.incrementWithArrowGranularity(Key::up, QVMGranularityCoarse));
    EXPECT_EQ(control.floatValue(), 2);
    EXPECT_TRUE(control.incrementWithArrowGranularity(Key::left, QVMGranularityFine));
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_TRUE(control.incrementWithArrowGranularity(Key::down, QVMGranularityNormal));
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_EQ(record.lines.size(), 8u) << "an action and a discrete interaction each";
}

TEST_F(QVMCycleControlTest, EveryOtherKeyStepsBackward) {
    for (const char32_t key : {U'x', U'\0', char32_t{0xF704}}) {
        control.setFloatValue(2);
        EXPECT_TRUE(control.incrementWithArrowGranularity(key, QVMGranularityNormal));
        EXPECT_EQ(control.floatValue(), 1);
    }
}

TEST_F(QVMCycleControlTest, AStepPulsesValueBackgroundAndTheMarkOfItsDirection) {
    control.cycleValueForward(true);
    EXPECT_TRUE(control.value()->animations().find(kPulse));
    EXPECT_TRUE(control.bg()->animations().find(kPulse));
    EXPECT_TRUE(control.inc()->animations().find(kPulse));
    EXPECT_FALSE(control.dec()->animations().find(kPulse));
    control.inc()->animations().removeAll();
    control.cycleValueForward(false);
    EXPECT_FALSE(control.inc()->animations().find(kPulse));
    EXPECT_EQ(control.dec()->animations().find(kPulse)->keyPath, "opacity");
}

TEST_F(QVMCycleControlTest, StandardPulses) {
    const BasicAnimation scale = QVMCycleControl::standardPulse();
    EXPECT_EQ(scale.keyPath, "transform.scale");
    EXPECT_EQ(scale.fromValue, AnimatableValue(1.0));
    EXPECT_EQ(scale.toValue, AnimatableValue(1.2));
    const BasicAnimation fade = QVMCycleControl::standardColorPulse();
    EXPECT_EQ(fade.keyPath, "opacity");
    EXPECT_EQ(fade.fromValue, AnimatableValue(0.3));
    EXPECT_EQ(fade.toValue, AnimatableValue(1.0));
    for (const BasicAnimation& pulse : {scale, fade}) {
        EXPECT_EQ(pulse.duration, 0.09);
        EXPECT_EQ(pulse.timing, TimingFunction::easeOut);
        EXPECT_TRUE(pulse.autoreverses);
        EXPECT_TRUE(pulse.removedOnCompletion);
        EXPECT_EQ(pulse.repeatCount, 1);
    }
}

TEST_F(QVMCycleControlTest, ShowsTheNameOfItsValue) {
    EXPECT_EQ(text(), "Auto");
    control.setFloatValue(2);
    EXPECT_EQ(text(), "Treble");
    EXPECT_TRUE(record.lines.empty()) << "a value from the model is not reported";
}

TEST_F(QVMCycleControlTest, ANumberIsShownWithItsUnit) {
    const QVMParameter ratio = parameterLike(pidFilterSlopeLinkRatio);
    QVMCycleControl percent({0, 0, 73, 26}, ratio);
    percent.setFloatValue(50);
    EXPECT_EQ(percent.value()->string().string(), "50 %");
    EXPECT_GT(percent.maxWidth(), TextMetrics::current().width(percent.value()->string())) << "100 % is wider";
    percent.cycleValueForward(true);
    EXPECT_EQ(percent.floatValue(), 51);
}

TEST_F(QVMCycleControlTest, ShrinksATextByWholePointsUntilItFits) {
    control.setFrame({0, 0, 60, 26});
    control.setFloatValue(2);
    const double size = control.value()->string().runs.at(0).font.pointSize;
    EXPECT_LT(size, 16);
    EXPECT_EQ(size, std::floor(size));
    const double room = control.rectAvailableForTextDisplay().width;
    AttributedString larger = control.value()->string();
    larger.runs[0].font.pointSize += 1;
    EXPECT_LE(TextMetrics::current().width(control.value()->string()), room);
    EXPECT_GT(TextMetrics::current().width(larger), room);
    control.setFloatValue(0);
    EXPECT_GT(control.value()->string().runs.at(0).font.pointSize, size) << "a short text is not affected";
}

TEST_F(QVMCycleControlTest, ADisabledControlIgnoresClicksAndIsFaint) {
    control.setPreventInteraction(true);
    press(control, {30, 13});
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_TRUE(record.lines.empty());
    EXPECT_LT(control.alpha(), 1);
}

TEST_F(QVMCycleControlTest, AnInaccurateValueIsFainter) {
    control.setInaccurate(true);
    EXPECT_LT(control.value()->opacity(), 1);
    control.setInaccurate(false);
    EXPECT_EQ(control.value()->opacity(), 1);
}

TEST_F(QVMCycleControlTest, FocusStandsAroundTheBackground) {
    control.setHighlit(true);
    EXPECT_EQ(control.highlight()->opacity(), 1);
    EXPECT_TRUE(control.highlight()->frame().contains(control.bgFrame()));
    control.setHighlit(false);
    EXPECT_EQ(control.highlight()->opacity(), 0);
}

TEST_F(QVMCycleControlTest, TheFocusBorderHasTheParametersColourInBothThemes) {
    const Color stroke = QVMCGColor(parameter.color).withAlpha(0.7f);
    EXPECT_EQ(control.highlight()->strokeColor(), stroke);
    const DarkTheme dark;
    EXPECT_EQ(control.highlight()->strokeColor(), stroke);
}

TEST_F(QVMCycleControlTest, AControlThatCannotHighlightShowsNoFocus) {
    control.setCanHighlight(false);
    control.setHighlit(true);
    EXPECT_EQ(control.highlight()->opacity(), 0);
}

TEST_F(QVMCycleControlTest, AnotherThemeChangesItsColoursAtOnce) {
    const QVMParameter plain = parameterLike(kLoudness, [](QVMParameter& p) { p.controlStyle = 0; });
    QVMCycleControl box({0, 0, 73, 26}, plain);
    const Color light = box.bg()->look().backgroundColor();
    const DarkTheme dark;
    EXPECT_NE(box.bg()->look().backgroundColor(), light);
    EXPECT_EQ(box.bg()->look().backgroundColor(), QVMUITheme::dark().palette.boxFill);
}

TEST_F(QVMCycleControlTest, ItsTextIsLegibleInBothThemes) {
    const auto contrast = [this] {
        return contrastRatio(control.value()->string().runs.at(0).color, control.bg()->look().backgroundColor());
    };
    EXPECT_GE(contrast(), minimumTextContrast);
    const DarkTheme dark;
    EXPECT_GE(contrast(), minimumTextContrast);
}

TEST_F(QVMCycleControlTest, WithRoomTheMarksStandBesideTheBackground) {
    EXPECT_EQ(control.bgFrame(), control.bounds()) << "no room: the marks are inside";
    EXPECT_TRUE(control.bgFrame().contains(control.inc()->frame()));
    control.setFrame({0, 0, 140, 26});
    EXPECT_LT(control.bgFrame().width, 140);
    EXPECT_GT(control.inc()->frame().minX(), control.bgFrame().maxX());
    EXPECT_LT(control.dec()->frame().maxX(), control.bgFrame().minX());
}

TEST_F(QVMCycleControlTest, AParameterWithoutCrementersShowsNoMarks) {
    const QVMParameter plain = parameterLike(kLoudness, [](QVMParameter& p) { p.includeCrementers = false; });
    const QVMCycleControl bare({0, 0, 73, 26}, plain);
    EXPECT_TRUE(bare.inc()->isHidden());
    EXPECT_TRUE(bare.dec()->isHidden());
}

TEST_F(QVMCycleControlTest, HoveringAndEqualValuesRasteriseNothingAnew) {
    const auto versions = [this] {
        return std::vector{control.bg()->look().version(), control.value()->look().version(),
                           control.inc()->look().version()};
    };
    const auto before = versions();
    pointAt(control);
    pointAway(control);
    control.setFloatValue(control.floatValue());
    EXPECT_EQ(versions(), before);
    control.setFloatValue(1);
    EXPECT_NE(versions(), before);
}

TEST_F(QVMCycleControlTest, LayerTree) {
    EXPECT_EQ(dumpLayerTree(*control.layer()),
              "Layer (0 0 73 26) y-up\n"
              "  Layer bg (0 0 73 26) y-up background #71343aff corner 13\n"
              "  Layer hover (0 0 73 26) opacity 0 y-up background #0000000d corner 13\n"
              "  TextLayer value (8 0 45 26) y-up \"Auto\"\n"
              "  ShapeLayer inc (56.5 12.875 10 10) y-up path 3 (0 2.625 10 4.75) line 1.75\n"
              "  ShapeLayer dec (56.5 3.125 10 10) y-up path 3 (0 2.625 10 4.75) line 1.75\n"
              "  ShapeLayer focusBorder (0 0 0 0) opacity 0 y-up\n");
}

TEST_F(QVMCycleControlTest, IsDrawnAnewWhenItsDimmingChangesAndNotWhenItIsToldAgain) {
    struct Counting : QVMCycleControl {
        using QVMCycleControl::QVMCycleControl;
        Look lookForValue(float value) const override {
            ++drawn;
            return QVMCycleControl::lookForValue(value);
        }
        mutable int drawn = 0;
    };
    Counting counting({0, 0, 73, 26}, parameter);
    counting.setDimmed(false);
    EXPECT_EQ(counting.drawn, 0);
    counting.setDimmed(true);
    EXPECT_EQ(counting.drawn, 1);
    counting.setDimmed(true);
    EXPECT_EQ(counting.drawn, 1);
    counting.setDimmed(false);
    EXPECT_EQ(counting.drawn, 2);
}

} // namespace
} // namespace QVM_NAMESPACE
