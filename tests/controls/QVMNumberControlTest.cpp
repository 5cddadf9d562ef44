#include "controls/QVMNumberControl.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "platform/layer/LayerDump.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t kTiltLow = 2, kSlope = 14;
constexpr std::uint32_t kFine = EventModifier::command, kCoarse = EventModifier::shift;
const std::vector<double> kPixels = {600, 200, 50};
using Lines = std::vector<std::string>;

// Slope: 6 to 48 dB/Oct, linear.
class QVMNumberControlTest : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(kSlope, [](QVMParameter& p) { p.numberOnlyPixelConstants = kPixels; });
    QVMNumberControl control{{0, 0, 80, 44}, parameter};
    GestureRecord record{control};

    void dragFrom(float value, double distance, std::uint32_t modifiers = 0) {
        control.setFloatValue(value);
        press(control, {40, 20});
        drag(control, {40, 20 + distance}, modifiers);
        release(control, {40, 20 + distance});
    }
};

TEST_F(QVMNumberControlTest, AStandardDragOf300PointsSweepsTheWholeRange) {
    dragFrom(6, 299);
    EXPECT_LT(control.floatValue(), 48.1f);
    EXPECT_GT(control.floatValue(), 47);
    dragFrom(6, 300);
    EXPECT_EQ(control.floatValue(), 48);
    dragFrom(6, 150);
    EXPECT_EQ(control.floatValue(), 27);
}

TEST_F(QVMNumberControlTest, ACoarseDragNeeds75PointsForTheWholeRange) {
    dragFrom(6, 75, kCoarse);
    EXPECT_EQ(control.floatValue(), 48);
    dragFrom(6, 37.5, kCoarse);
    EXPECT_NEAR(control.floatValue(), 27, 3) << "in steps of 6";
    EXPECT_LT(control.floatValue(), 48);
}

TEST_F(QVMNumberControlTest, AFineDragMovesAFineStepAboutEveryNinePoints) {
    // 420 fine steps and 600 points: no limit by steps, a sixth of 1 / 900 of the range a point.
    dragFrom(27, 54, kFine);
    EXPECT_NEAR(control.floatValue(), 27 + 42 * 54 / 900.0 / 6, 0.051);
}

TEST_F(QVMNumberControlTest, DraggingPastEitherEndStopsThereAndDraggingBackMovesAtOnce) {
    control.setFloatValue(27);
    press(control, {40, 0});
    drag(control, {40, 1000});
    EXPECT_EQ(control.floatValue(), 48);
    drag(control, {40, 970});
    EXPECT_NEAR(control.floatValue(), 48 - 4.2, 0.51) << "30 points back are a tenth of the range";
    drag(control, {40, -5000});
    EXPECT_EQ(control.floatValue(), 6);
    drag(control, {40, -4970});
    EXPECT_NEAR(control.floatValue(), 6 + 4.2, 0.51);
}

TEST_F(QVMNumberControlTest, AModifierInMidDragDoesNotJump) {
    control.setFloatValue(27);
    press(control, {40, 0});
    drag(control, {40, 50});
    const float before = control.floatValue();
    drag(control, {40, 50}, kFine);
    EXPECT_NEAR(control.floatValue(), before, 0.51) << "no way, no more than rounding";
    drag(control, {40, 51}, kFine);
    EXPECT_NEAR(control.floatValue(), before, 0.51);
}

TEST_F(QVMNumberControlTest, ReportsOneGesture) {
    control.setFloatValue(6);
    press(control, {40, 0});
    drag(control, {40, 300});
    release(control, {40, 300});
    EXPECT_EQ(record.lines, (Lines{"began", "action 48", "ended"}));
}

TEST_F(QVMNumberControlTest, APressAloneChangesNothing) {
    control.setFloatValue(12);
    press(control, {40, 0});
    release(control, {40, 0});
    EXPECT_EQ(control.floatValue(), 12);
    EXPECT_EQ(record.lines, (Lines{"began", "ended"}));
}

TEST_F(QVMNumberControlTest, AHorizontalParameterIsDraggedSideways) {
    const QVMParameter sideways = parameterLike(kSlope, [](QVMParameter& p) {
        p.numberOnlyPixelConstants = kPixels;
        p.horizontal = true;
    });
    QVMNumberControl wide({0, 0, 80, 44}, sideways);
    wide.setFloatValue(6);
    press(wide, {0, 0});
    drag(wide, {0, 300});
    EXPECT_EQ(wide.floatValue(), 6);
    drag(wide, {300, 300});
    EXPECT_EQ(wide.floatValue(), 48);
}

TEST_F(QVMNumberControlTest, EachGranularityHasItsPoints) {
    EXPECT_EQ(control.rangeForGranularity(QVMGranularityNormal), 200);
    EXPECT_EQ(control.rangeForGranularity(QVMGranularityFine), 600);
    EXPECT_EQ(control.rangeForGranularity(QVMGranularityCoarse), 50);
    EXPECT_EQ(control.rangeForGranularity(7), 200) << "any other code is standard";
}

TEST_F(QVMNumberControlTest, TheMultiplierIsOneUnlessFine) {
    const auto mult = [this](std::int32_t code) {
        return control.diffMultForGranularityFloatValueArbitraryPixelConstant(code, 12, 200);
    };
    EXPECT_EQ(mult(QVMGranularityNormal), 1);
    EXPECT_EQ(mult(QVMGranularityCoarse), 1);
    // 42 / 0.1 = 420 steps on 200 points.
    EXPECT_NEAR(mult(QVMGranularityFine), 200.0 / 420 / 6, 1e-6);
    EXPECT_NEAR(control.diffMultForGranularityFloatValueArbitraryPixelConstant(QVMGranularityFine, 12, 600), 1.0 / 6,
                1e-9);
}

TEST_F(QVMNumberControlTest, TheFineMultiplierOfAFrequencyIsEvenInHertz) {
    const QVMParameter tilt = parameterLike(kTiltLow);
    const QVMNumberControl frequency({0, 0, 80, 44}, tilt);
    const auto mult = [&](float hertz) {
        return frequency.diffMultForGranularityFloatValueArbitraryPixelConstant(QVMGranularityFine, hertz, 600);
    };
    const double octaves = 23990 / std::log(2400.0);
    EXPECT_NEAR(mult(100), octaves / 100 * (10 / 0.1) * (600 / (23990 / 0.1)) / 6, 1e-3);
    EXPECT_NEAR(mult(2000), octaves / 2000 * 1 * (600 / (23990 / 10.0)) / 6, 1e-5);
    EXPECT_NEAR(mult(20000), octaves / 20000 * 1 * 1 / 6, 1e-5);
}

TEST_F(QVMNumberControlTest, StepsWithTheArrowKeysArithmetically) {
    EXPECT_FALSE(control.cycleArrows());
    EXPECT_FALSE(control.incrementOnMouseUp());
    control.setFloatValue(48);
    control.incrementWithArrowGranularity(Key::up, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 48) << "no wrapping";
    control.incrementWithArrowGranularity(Key::down, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 47);
}

TEST_F(QVMNumberControlTest, ShowsTheNumberOverItsUnit) {
    control.setFloatValue(18);
    EXPECT_EQ(control.value()->string().string(), "18.0");
    EXPECT_EQ(control.unit()->string().string(), "dB/Oct");
    EXPECT_EQ(control.value()->string().runs.at(0).font.pointSize, 16);
    EXPECT_EQ(control.unit()->string().runs.at(0).font.pointSize, 11);
    EXPECT_GT(control.value()->frame().midY(), control.unit()->frame().midY()) << "y grows upwards";
}

TEST_F(QVMNumberControlTest, HalfTypedTextStandsInForTheNumberUntilItIsDiscarded) {
    control.setFloatValue(18);
    control.setDisplayingTransientBufferValue(true);
    control.displayTransientBufferValue({"2", {"Any", 16}, Color::clear()});
    EXPECT_EQ(control.value()->string().string(), "2");
    control.setFloatValue(20);
    EXPECT_EQ(control.value()->string().string(), "2") << "automation does not overwrite typing";
    control.discardTransientBufferValue();
    EXPECT_FALSE(control.displayingTransientBufferValue());
    EXPECT_EQ(control.value()->string().string(), "20.0");
}

TEST_F(QVMNumberControlTest, AnOptionClickResetsAndDiscardsHalfTypedText) {
    control.setFloatValue(18);
    control.setDisplayingTransientBufferValue(true);
    control.displayTransientBufferValue({"2", {"Any", 16}, Color::clear()});
    press(control, {40, 20}, EventModifier::option);
    EXPECT_EQ(control.floatValue(), 12);
    EXPECT_EQ(control.value()->string().string(), "12.0");
}

TEST_F(QVMNumberControlTest, ADisabledBoxIsFaintAndIgnoresDrags) {
    control.setFloatValue(12);
    control.setPreventInteraction(true);
    press(control, {40, 0});
    drag(control, {40, 100});
    EXPECT_EQ(control.floatValue(), 12);
    EXPECT_LT(control.alpha(), 1);
}

TEST_F(QVMNumberControlTest, FocusStandsAroundTheBox) {
    control.setHighlit(true);
    EXPECT_EQ(control.highlight()->frame(), (Rect{-4, -3, 88, 50}));
    EXPECT_EQ(control.highlight()->opacity(), 1);
}

// Notes the cursors that are asked for.
class CursorHost : public WindowHost {
public:
    void setCursor(Cursor cursor) override { shown = cursor; }
    void contentSizeDidChange(Size) override {}
    void takeKeyboardFocus() override {}
    void popUpMenu(std::unique_ptr<Menu>, Point) override {}
    Cursor shown = Cursor::arrow;
};

TEST_F(QVMNumberControlTest, ADragShowsItsOwnCursorUntilTheRelease) {
    CursorHost host;
    Window window(&host);
    auto& inWindow = window.setContentView(std::make_unique<View>(Rect{0, 0, 200, 100}))
                         .addSubview(std::make_unique<QVMNumberControl>(Rect{10, 10, 80, 44}, parameter));
    press(inWindow, {40, 20});
    EXPECT_EQ(host.shown, Cursor::resizeUpDown);
    drag(inWindow, {40, 40});
    release(inWindow, {40, 40});
    press(inWindow, {40, 20});
    const auto removed = inWindow.removeFromSuperview();
    EXPECT_EQ(host.shown, Cursor::arrow) << "leaving the window in mid-drag ends it as well";
}

TEST_F(QVMNumberControlTest, AKeyHeldAtTheReleaseDoesNotKeepTheDragCursor) {
    CursorHost host;
    Window window(&host);
    auto& inWindow = window.setContentView(std::make_unique<View>(Rect{0, 0, 200, 100}))
                         .addSubview(std::make_unique<QVMNumberControl>(Rect{10, 10, 80, 44}, parameter));
    for (const std::uint32_t key : {EventModifier::option, EventModifier::control}) {
        press(inWindow, {40, 20});
        EXPECT_EQ(host.shown, Cursor::resizeUpDown);
        release(inWindow, {40, 20}, key);
        EXPECT_EQ(host.shown, Cursor::arrow);
    }
}

TEST_F(QVMNumberControlTest, EveryNumberOfTheProductHasPointsForEachGranularity) {
    for (const std::uint32_t pid : {14u, 15u, 21u, 22u}) {
        const QVMParameter& product = *GetParameter(pid);
        ASSERT_EQ(product.numberOnlyPixelConstants.size(), 3u) << pid;
        const QVMNumberControl box({0, 0, 80, 44}, product);
        EXPECT_GT(box.rangeForGranularity(QVMGranularityFine), box.rangeForGranularity(QVMGranularityNormal)) << pid;
        EXPECT_LT(box.rangeForGranularity(QVMGranularityCoarse), box.rangeForGranularity(QVMGranularityNormal)) << pid;
    }
}

TEST_F(QVMNumberControlTest, TextsAreLegibleInBothThemes) {
    const auto check = [this] {
        for (const auto& text : {control.value(), control.unit()}) {
            EXPECT_GE(contrastRatio(text->string().runs.at(0).color, control.bg()->look().backgroundColor()),
                      minimumTextContrast)
                << text->name();
        }
    };
    check();
    const DarkTheme dark;
    EXPECT_EQ(control.bg()->look().backgroundColor(), QVMUITheme::dark().palette.boxFill);
    check();
}

TEST_F(QVMNumberControlTest, HoveringAndEqualValuesRasteriseNothingAnew) {
    const auto versions = [this] {
        return std::vector{control.bg()->look().version(), control.value()->look().version(),
                           control.unit()->look().version()};
    };
    const auto before = versions();
    pointAt(control);
    pointAway(control);
    control.setFloatValue(control.floatValue());
    EXPECT_EQ(versions(), before);
}

TEST_F(QVMNumberControlTest, AMarkShowsWhichWayItIsDragged) {
    const QVMParameter sideways = parameterLike(parameter.pid, [](QVMParameter& p) { p.horizontal = true; });
    QVMNumberControl other({0, 0, 80, 44}, sideways);
    const Rect mark = control.dragMark()->path().bounds(), othersMark = other.dragMark()->path().bounds();
    EXPECT_GT(mark.height, mark.width);
    EXPECT_GT(othersMark.width, othersMark.height);
    EXPECT_TRUE(control.bounds().contains(control.dragMark()->frame()));
    EXPECT_GE(contrastRatio(control.dragMark()->strokeColor(), control.bg()->look().backgroundColor()), 2.5);
}

TEST_F(QVMNumberControlTest, LayerTree) {
    control.setFloatValue(18);
    EXPECT_EQ(dumpLayerTree(*control.layer()),
              "Layer (0 0 80 44) y-up\n"
              "  Layer bg (0 0 80 44) y-up background #f1eeecff corner 8 border 1 #dad4d2ff\n"
              "  Layer hover (0 0 80 44) opacity 0 y-up background #0000000d corner 8\n"
              "  TextLayer value (6 17 68 22) y-up \"18.0\"\n"
              "  TextLayer unit (6 4 68 14) y-up \"dB/Oct\"\n"
              "  ShapeLayer dragMark (63 16 12 12) y-up path 6 (3.5 1 5 10) line 1.25\n"
              "  ShapeLayer focusBorder (0 0 0 0) opacity 0 y-up\n");
}

} // namespace
} // namespace QVM_NAMESPACE
