#include "controls/QVMFocusBorder.h"

#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/VirtualTime.h"
#include "theme/Colors.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* kMarch = "PhaseShift";

double value(const std::optional<AnimatableValue>& animatable) {
    return std::get<double>(animatable.value());
}

TEST(QVMFocusBorder, StartsHiddenWithItsDashes) {
    const QVMFocusBorder border;
    EXPECT_EQ(border.fillColor(), Color::clear());
    EXPECT_EQ(border.lineWidth(), 2);
    EXPECT_EQ(border.lineDashPhase(), 0);
    EXPECT_EQ(border.opacity(), 0);
    EXPECT_EQ(border.lineDashPattern(), (std::vector<double>{3, 2}));
    EXPECT_EQ(border.lineCap(), LineCap::butt);
    EXPECT_EQ(border.lineJoin(), LineJoin::round);
}

TEST(QVMFocusBorder, ASharpOutlineOf100By20TakesThePatternAsItIs) {
    QVMFocusBorder border;
    border.updateWithFrameRounding({5, 6, 100, 20}, 0);
    border.setOpacity(1);
    ASSERT_EQ(border.lineDashPattern().size(), 2u);
    EXPECT_NEAR(border.lineDashPattern()[0], 3, 1e-12);
    EXPECT_NEAR(border.lineDashPattern()[1], 2, 1e-12);
    const BasicAnimation* march = border.animations().find(kMarch);
    ASSERT_TRUE(march);
    EXPECT_EQ(march->keyPath, "lineDashPhase");
    EXPECT_EQ(value(march->fromValue), 0);
    EXPECT_NEAR(value(march->toValue), 10, 1e-12);
    EXPECT_EQ(march->duration, 2);
    EXPECT_EQ(march->repeatCount, BasicAnimation::forever);
}

TEST(QVMFocusBorder, ARoundedOutlineStretchesThePatternToAWholeNumberOfPeriods) {
    QVMFocusBorder border;
    border.updateWithFrameRounding({0, 0, 100, 20}, 6);
    border.setOpacity(1);
    EXPECT_NEAR(border.lineDashPattern()[0], 2.996, 0.0005);
    EXPECT_NEAR(border.lineDashPattern()[1], 1.997, 0.0005);
    EXPECT_NEAR(value(border.animations().find(kMarch)->toValue), 2 * 229.699 / 46, 0.001);
}

TEST(QVMFocusBorder, OpacityZeroStopsTheMarchingAndAnyPositiveOneStartsIt) {
    QVMFocusBorder border;
    border.updateWithFrameRounding({0, 0, 100, 20}, 6);
    EXPECT_FALSE(border.animations().find(kMarch));
    border.setOpacity(0.01);
    EXPECT_TRUE(border.animations().find(kMarch));
    border.setOpacity(0);
    EXPECT_FALSE(border.animations().find(kMarch));
    EXPECT_TRUE(border.animations().isEmpty());
}

TEST(QVMFocusBorder, MarchesTwoPeriodsInTwoSecondsAtAnEvenPace) {
    VirtualTime time;
    QVMFocusBorder border;
    border.updateWithFrameRounding({0, 0, 100, 20}, 0);
    border.setOpacity(1);
    EXPECT_NEAR(border.presentation(0.5).lineDashPhase, 2.5, 1e-9);
    EXPECT_NEAR(border.presentation(1.5).lineDashPhase, 7.5, 1e-9);
    EXPECT_NEAR(border.presentation(2.5).lineDashPhase, 2.5, 1e-9);
}

TEST(QVMFocusBorder, TheOutlineStartsBehindTheFirstCornerAndFillsTheFrame) {
    QVMFocusBorder border;
    border.updateWithFrameRounding({-3, -4, 100, 20}, 6);
    EXPECT_EQ(border.frame(), (Rect{-3, -4, 100, 20}));
    EXPECT_EQ(border.rounding(), 6);
    const auto& elements = border.path().elements();
    ASSERT_FALSE(elements.empty());
    EXPECT_EQ(elements.front().verb, Path::Verb::move);
    EXPECT_EQ(elements.front().end, (Point{6, 0}));
    EXPECT_EQ(elements.back().verb, Path::Verb::close);
    const Rect box = border.path().bounds();
    EXPECT_NEAR(box.minX(), 0, 1e-9);
    EXPECT_NEAR(box.minY(), 0, 1e-9);
    EXPECT_NEAR(box.maxX(), 100, 1e-9);
    EXPECT_NEAR(box.maxY(), 20, 1e-9);
}

TEST(QVMFocusBorder, StrokesTheOwnersColourAtSevenTenths) {
    QVMFocusBorder border;
    border.setStrokeNSColor(colorFromHex(0xA54D55));
    EXPECT_EQ(border.strokeNSColor(), colorFromHex(0xA54D55));
    EXPECT_EQ(border.strokeColor(), colorFromHex(0xA54D55, 0.7f));
}

TEST(QVMFocusBorder, FitsTheDashesAnewWhileVisible) {
    QVMFocusBorder border;
    border.updateWithFrameRounding({0, 0, 100, 20}, 0);
    border.setOpacity(1);
    border.updateWithFrameRounding({0, 0, 101, 20}, 0);
    EXPECT_NEAR(border.lineDashPattern()[0], 3 * 242.0 / 240, 1e-9);
    EXPECT_NEAR(value(border.animations().find(kMarch)->toValue), 10 * 242.0 / 240, 1e-9);
}

TEST(QVMFocusBorder, ABorderThatOnlyMovesMarchesOn) {
    VirtualTime time;
    QVMFocusBorder border;
    border.updateWithFrameRounding({0, 0, 100, 20}, 0);
    border.setOpacity(1);
    time.advance(0.5);
    border.updateWithFrameRounding({10, 0, 100, 20}, 0);
    EXPECT_NEAR(border.presentation().lineDashPhase, 2.5, 1e-9) << "not started over";
}

TEST(QVMFocusBorder, AnOutlineOfNoLengthDividesByNothing) {
    QVMFocusBorder border;
    border.updateWithFrameRounding({0, 0, 0, 0}, 0);
    border.setOpacity(1);
    EXPECT_EQ(border.lineDashPattern(), (std::vector<double>{3, 2}));
}

} // namespace
} // namespace QVM_NAMESPACE
