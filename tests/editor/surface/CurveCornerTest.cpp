#include "editor/surface/CurveCorner.h"

#include "controls/Gestures.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// A corner of the high filter on a curve of 200 points, that stands where its value is.
class CurveCornerTest : public testing::Test, protected CurveCornerSite {
protected:
    CurveCornerTest() {
        PBGLCanvas canvas;
        canvas.width = canvas.height = 200;
        canvas.scale = 1;
        QVMFreqResp display;
        display.init(canvas, 0.5f, {4, 24000}, {-7.5f, 7.5f}, 1);
        scale_ = CurveScale(display);
        corner_.setSite(*this);
        corner_.setFloatValue(1000);
        told_.clear();
    }
    const CurveScale& scale() const override { return scale_; }
    double pointerX(const Event& event) override { return event.locationInWindow.x; }
    void cornerDidChange(CurveCorner&) override { told_.push_back("changed"); }
    void cornerWasUsed(CurveCorner&) override { told_.push_back("used"); }
    void cornerWasLeft(CurveCorner&) override { told_.push_back("left"); }

    double xOf(double hertz) const { return scale_.xOf(hertz); }
    Event at(EventType type, double x, std::uint32_t modifiers = 0) const {
        Event event;
        event.type = type;
        event.locationInWindow = {x, 50};
        event.modifierFlags = modifiers;
        return event;
    }
    void pressAt(double x, std::uint32_t modifiers = 0) { corner_.mouseDown(at(EventType::mouseDown, x, modifiers)); }
    void dragTo(double x, std::uint32_t modifiers = 0) {
        corner_.mouseDragged(at(EventType::mouseDragged, x, modifiers));
    }
    void releaseAt(double x, std::uint32_t modifiers = 0) { corner_.mouseUp(at(EventType::mouseUp, x, modifiers)); }

    VirtualTime time_;
    CurveScale scale_;
    CurveCorner corner_{Rect{0, 0, CurveCorner::hitSize, CurveCorner::hitSize}, *GetParameter(pidFilterRangeHigh)};
    GestureRecord record_{corner_};
    std::vector<std::string> told_;
};

TEST_F(CurveCornerTest, APressAloneMovesNothing) {
    pressAt(xOf(1000) + 3);
    EXPECT_TRUE(corner_.isPressed());
    releaseAt(xOf(1000) + 3);
    EXPECT_FALSE(corner_.isPressed());
    EXPECT_THAT(record_.lines, ElementsAre("began", "ended"));
    EXPECT_EQ(corner_.floatValue(), 1000);
}

TEST_F(CurveCornerTest, ADragKeepsItWhereItWasTakenHoldOf) {
    pressAt(xOf(1000) + 3);
    dragTo(xOf(4000) + 3);
    EXPECT_EQ(corner_.floatValue(), 4000);
    releaseAt(xOf(4000) + 3);
    EXPECT_THAT(record_.lines, ElementsAre("began", "action 4000", "ended"));
}

TEST_F(CurveCornerTest, AndInStepsOfTheParameter) {
    pressAt(xOf(1000));
    dragTo(xOf(100.4));
    EXPECT_EQ(corner_.floatValue(), 100) << "in whole hertz";
    dragTo(xOf(2345));
    EXPECT_EQ(corner_.floatValue(), 2350) << "in tens above a kilohertz";
}

TEST_F(CurveCornerTest, WithShiftItSnapsToThirdsOfAnOctave) {
    pressAt(xOf(1000));
    dragTo(xOf(1900), EventModifier::shift);
    EXPECT_EQ(corner_.floatValue(), 2000);
    dragTo(xOf(77), EventModifier::shift);
    EXPECT_EQ(corner_.floatValue(), 80);
    dragTo(xOf(77));
    EXPECT_EQ(corner_.floatValue(), 77) << "and follows the pointer again without";
}

TEST_F(CurveCornerTest, WithCtrlInMidDragItGoesSlowlyAndDoesNotJump) {
    pressAt(xOf(1000));
    dragTo(xOf(2000));
    const double x = xOf(2000);
    dragTo(x, EventModifier::command);
    EXPECT_EQ(corner_.floatValue(), 2000);
    dragTo(x + 12, EventModifier::command);
    EXPECT_GT(corner_.floatValue(), 2000);
    EXPECT_LT(corner_.floatValue(), 2060) << "a step about every six points";
    dragTo(x, EventModifier::command);
    EXPECT_NEAR(corner_.floatValue(), 2000, 10);
}

TEST_F(CurveCornerTest, AFineDragIsNeverFasterThanASixthOfThePointer) {
    corner_.setFloatValue(8);
    const double x = xOf(8);
    pressAt(x);
    dragTo(x, EventModifier::command);
    dragTo(x + 30, EventModifier::command);
    EXPECT_NEAR(xOf(double{corner_.floatValue()}), x + 5, 0.3);
}

TEST_F(CurveCornerTest, BeyondTheEndsItStaysAtThoseOfItsSideOfTheRange) {
    pressAt(xOf(1000));
    dragTo(-500);
    EXPECT_EQ(corner_.floatValue(), 8) << "an octave above the least that the low end can be";
    dragTo(900);
    EXPECT_EQ(corner_.floatValue(), 24000);
    dragTo(xOf(500));
    EXPECT_EQ(corner_.floatValue(), 500) << "and comes back with the pointer";
}

TEST_F(CurveCornerTest, APressWithAltGoesToTheInitialValue) {
    pressAt(xOf(1000), EventModifier::option);
    EXPECT_FALSE(corner_.isPressed());
    dragTo(xOf(50), EventModifier::option);
    releaseAt(xOf(50), EventModifier::option);
    EXPECT_EQ(corner_.floatValue(), 24000);
    EXPECT_THAT(record_.lines, ElementsAre("action 24000", "began"));
}

TEST_F(CurveCornerTest, APressThatIsTakenAwayEndsTheGesture) {
    pressAt(xOf(1000));
    dragTo(xOf(3000));
    corner_.mouseCancelled(at(EventType::mouseCancelled, xOf(3000)));
    EXPECT_FALSE(corner_.isPressed());
    EXPECT_EQ(record_.lines.back(), "ended");
    dragTo(xOf(200));
    EXPECT_EQ(corner_.floatValue(), 3000);
}

TEST_F(CurveCornerTest, ArrowsStepItAsASlider) {
    EXPECT_TRUE(corner_.incrementWithArrowGranularity(Key::right, QVMGranularityNormal));
    EXPECT_EQ(corner_.floatValue(), 1010);
    corner_.incrementWithArrowGranularity(Key::left, QVMGranularityCoarse);
    EXPECT_EQ(corner_.floatValue(), 800);
    corner_.incrementWithArrowGranularity(Key::up, QVMGranularityFine);
    EXPECT_FLOAT_EQ(corner_.floatValue(), 800.1f);
    EXPECT_THAT(record_.lines,
                ElementsAre("action 1010", "discrete", "action 800", "discrete", "action 800.1", "discrete"));
    EXPECT_THAT(told_, Contains("used"));
}

TEST_F(CurveCornerTest, DisabledItDoesNothing) {
    corner_.setPreventInteraction(true);
    pressAt(xOf(1000));
    dragTo(xOf(3000));
    releaseAt(xOf(3000));
    EXPECT_THAT(record_.lines, IsEmpty());
    EXPECT_EQ(corner_.floatValue(), 1000);
}

TEST_F(CurveCornerTest, WhatIsTypedIsKeptUntilItIsDiscarded) {
    corner_.setDisplayingTransientBufferValue(true);
    corner_.displayTransientBufferValue(AttributedString("1.2k", {}, {}));
    EXPECT_EQ(corner_.typedText(), "1.2k");
    corner_.discardTransientBufferValue();
    EXPECT_FALSE(corner_.displayingTransientBufferValue());
    EXPECT_EQ(corner_.typedText(), "");
}

TEST_F(CurveCornerTest, ItIsLitUnderThePointerAndMoreSoWhilePressed) {
    const Layer& halo = *corner_.layer()->tree().sublayers().at(1);
    ASSERT_EQ(halo.name(), "cornerHalo");
    EXPECT_EQ(halo.opacity(), 0);
    corner_.setHovered(true);
    const double hovered = halo.opacity();
    EXPECT_GT(hovered, 0);
    pressAt(xOf(1000));
    EXPECT_GT(halo.opacity(), hovered);
    releaseAt(xOf(1000));
    corner_.setHovered(false);
    EXPECT_EQ(halo.opacity(), 0);
}

} // namespace
} // namespace QVM_NAMESPACE
