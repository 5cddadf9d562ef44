#include "editor/surface/QVMABControl.h"

#include "controls/QVMFocusBorder.h"
#include "controls/QVMSymbolButton.h"
#include "editor/surface/EditorLayout.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

class QVMABControlTest : public testing::Test, public QVMABControlDelegate {
protected:
    void SetUp() override {
        ab_ = &window_.setContentView(std::make_unique<QVMABControl>(Rect{0, 0, 62, 30}));
        ab_->setDelegate(this);
    }
    void TearDown() override { ab_->setDelegate(nullptr); }
    void abControlChangeTriggeredByButton(QVMABControl&, std::uint32_t button) override { taps_.push_back(button); }
    void press(const View& view, int clickCount = 1) {
        Event event;
        event.type = EventType::mouseDown;
        event.locationInWindow = view.coordinates().toWindow(view.bounds()).center();
        event.clickCount = clickCount;
        window_.sendEvent(event);
        event.type = EventType::mouseUp;
        window_.sendEvent(event);
    }

    VirtualTime time_;
    Window window_;
    QVMABControl* ab_ = nullptr;
    std::vector<std::uint32_t> taps_;
};

using Taps = std::vector<std::uint32_t>;

TEST_F(QVMABControlTest, ReportsWhichButtonWasTapped) {
    press(ab_->a());
    press(ab_->b());
    press(ab_->arrow());
    EXPECT_EQ(taps_, (Taps{QVMABButtonA, QVMABButtonB, QVMABButtonArrow}));
}

TEST_F(QVMABControlTest, ATapOnAnythingElseCountsAsA) {
    ab_->handleTap(*ab_);
    EXPECT_EQ(taps_, Taps{QVMABButtonA});
}

TEST_F(QVMABControlTest, ADoubleClickIsTwoTapsAndNoMore) {
    press(ab_->b(), 1);
    press(ab_->b(), 2);
    EXPECT_EQ(taps_, (Taps{QVMABButtonB, QVMABButtonB}));
}

TEST_F(QVMABControlTest, WhateverIsTypedFlipsIt) {
    EXPECT_TRUE(ab_->incrementWithArrowGranularity(Key::left, QVMGranularityNormal));
    ab_->setTransientStringValue("7");
    EXPECT_TRUE(ab_->toggleBooleanControl());
    EXPECT_TRUE(ab_->tap());
    EXPECT_EQ(taps_, (Taps{0, 0, 0, 0}));
    EXPECT_FALSE(ab_->acceptsTransientStringBuffers());
}

TEST_F(QVMABControlTest, TheIndicatorMovesAtOnceOrGlides) {
    const Rect atA = ab_->indicator()->frame();
    ab_->updatePositionAnimated(1, Animate::no);
    EXPECT_GT(ab_->indicator()->frame().minX(), atA.maxX());
    EXPECT_FALSE(ab_->indicator()->animations().isRunning());
    ab_->updatePositionAnimated(0, Animate::yes);
    EXPECT_EQ(ab_->indicator()->frame(), atA);
    EXPECT_TRUE(ab_->indicator()->animations().isRunning("position"));
    EXPECT_TRUE(ab_->box()->frame().contains(atA));
}

TEST_F(QVMABControlTest, TheArrowPointsToTheOtherSide) {
    const std::string toB = ab_->arrow().symbol();
    ab_->updatePositionAnimated(1, Animate::no);
    EXPECT_NE(ab_->arrow().symbol(), toB);
    EXPECT_TRUE(ab_->arrow().toolTip().starts_with("Copy B to A\n"));
}

TEST_F(QVMABControlTest, TheArrowCanBeHitAndSeenBetweenTheDiscs) {
    const Rect arrow = ab_->arrow().frame();
    EXPECT_GE(arrow.width, 16);
    for (double x = arrow.minX() + 0.5; x < arrow.maxX(); ++x)
        EXPECT_EQ(ab_->hitTest({x, 15}), &ab_->arrow()) << x;
    for (const std::uint32_t position : {0u, 1u}) {
        ab_->updatePositionAnimated(position, Animate::no);
        const QVMSymbolButton& letter = position == 0 ? ab_->a() : ab_->b();
        EXPECT_EQ(ab_->indicator()->frame().midX(), letter.frame().midX()) << "a letter stands in its disc's middle";
        EXPECT_LT(ab_->indicator()->frame().intersectionWith(arrow).width, 1);
    }
    EXPECT_GE(ab_->arrow().size(), 14);
}

TEST_F(QVMABControlTest, TheFocusBorderStaysClearOfTheColumnBesideTheBar) {
    ab_->setFocused(true);
    const auto border = ab_->layer()->tree().sublayers()[2];
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(QVMAltFrameNormal);
    constexpr double halfLine = 1;
    EXPECT_LT(layout.abControl.x + border->frame().maxX() + halfLine, layout.powerBox.x);
}

TEST_F(QVMABControlTest, TheIndicatorIsADiscInTheBox) {
    EXPECT_EQ(ab_->box()->look().cornerRadius(), ab_->box()->frame().height / 2);
    for (const std::uint32_t position : {0u, 1u}) {
        ab_->updatePositionAnimated(position, Animate::no);
        const Rect disc = ab_->indicator()->frame();
        EXPECT_EQ(disc.width, disc.height);
        EXPECT_EQ(ab_->indicator()->look().cornerRadius(), disc.height / 2);
        EXPECT_TRUE(ab_->box()->frame().contains(disc));
    }
}

TEST_F(QVMABControlTest, ShowsKeyboardFocus) {
    const auto border = ab_->layer()->tree().sublayers()[2];
    EXPECT_EQ(border->opacity(), 0);
    ab_->setFocused(true);
    EXPECT_TRUE(ab_->focused());
    EXPECT_EQ(border->opacity(), 1);
}

} // namespace
} // namespace QVM_NAMESPACE
