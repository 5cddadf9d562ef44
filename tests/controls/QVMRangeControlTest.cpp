// A low/high pair as the editor builds it: two parameter controls and two range controls on one band.
#include "controls/QVMRangeControl.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "controls/QVMRangeSlider.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

constexpr Rect kBand = {0, 28, 321, 14}; // in the middle of the two, a point lower
constexpr double kLeft = 30;             // of the sliders in their controls

class Pair : public testing::Test, public QVMParameterControlDelegate {
protected:
    Pair() {
        View& content = window.setContentView(std::make_unique<View>(Rect{0, 0, 321, 72}));
        low = &content.addSubview(
            std::make_unique<QVMParameterControl>(Rect{0, 0, 321, 36}, Rect{}, GetParameter(pidTiltRangeLow), 125.0f));
        high = &content.addSubview(std::make_unique<QVMParameterControl>(Rect{0, 36, 321, 36}, Rect{},
                                                                         GetParameter(pidTiltRangeHigh), 6300.0f));
        top = &content.addSubview(
            std::make_unique<QVMRangeControl>(kBand, Rect{}, GetParameter(pidTiltRangeHigh), 6300.0f));
        bottom = &content.addSubview(
            std::make_unique<QVMRangeControl>(kBand, Rect{}, GetParameter(pidTiltRangeHigh), 6300.0f), Order::below);
        for (QVMRangeControl* range : {top, bottom}) {
            range->setLow(low);
            range->setHigh(high);
            range->setDelegate(this);
            range->updateRangeAnimated(Animate::no);
        }
        top->setInteractive(true);
        low->setRange(top);
        high->setRange(top);
        low->setDelegate(this);
        high->setDelegate(this);
        time.advance(1);
    }
    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                        const Event*) override {
        const char* who = &control == low ? "low" : &control == high ? "high" : "range";
        reports.push_back(std::string(who) + (state == QVMInteractionBegan ? " began" : " ended"));
    }
    void parameterControlHasRequestedDocumentation(QVMParameterControl&) override {}
    void parameterControlDidTapMeaninglessly(QVMParameterControl&) override {}
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t) override {}
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override {}

    static QVMVerticalSlider& sliderOf(QVMParameterControl* control) {
        return dynamic_cast<QVMVerticalSlider&>(*control->primaryControl());
    }
    void send(EventType type, Point at, std::uint32_t modifiers = 0) {
        window.sendEvent(eventAt(type, *window.contentView(), at, modifiers));
    }
    double lowX() { return kLeft + sliderOf(low).handleValue(); }
    double highX() { return kLeft + sliderOf(high).handleValue(); }
    double middleX() { return std::round((lowX() + highX()) / 2); }

    VirtualTime time;
    Window window;
    QVMParameterControl *low = nullptr, *high = nullptr;
    QVMRangeControl *top = nullptr, *bottom = nullptr;
    std::vector<std::string> reports;
};

TEST_F(Pair, TheInnerControlIsARangeSliderInABandAsHighAsTheControl) {
    EXPECT_EQ(top->controlFrame(), (Rect{kLeft, 0, 260, 14}));
    EXPECT_EQ(top->rangeSlider()->frame(), (Rect{kLeft, 0, 260, 14}));
    EXPECT_EQ(top->rangeSlider()->lowPid(), 2u);
    EXPECT_EQ(top->rangeSlider()->highPid(), 3u);
    EXPECT_FALSE(top->rangeSlider()->doLimit());
    top->setPairing(true);
    EXPECT_TRUE(top->pairing());
    EXPECT_TRUE(top->rangeSlider()->pairing());
}

TEST_F(Pair, OnlyTheOneBelowDraws) {
    EXPECT_TRUE(top->rangeSlider()->interactive());
    EXPECT_TRUE(top->rangeSlider()->background()->isHidden());
    EXPECT_TRUE(top->rangeSlider()->band()->isHidden());
    EXPECT_FALSE(bottom->rangeSlider()->background()->isHidden());
    EXPECT_FALSE(bottom->rangeSlider()->band()->isHidden());
    EXPECT_TRUE(sliderOf(low).background()->isHidden());
    EXPECT_TRUE(sliderOf(high).background()->isHidden());
}

TEST_F(Pair, TheBandEndsUnderTheHandlesAndItsTrackMatchesTheirs) {
    const Rect band = bottom->rangeSlider()->band()->frame();
    EXPECT_DOUBLE_EQ(band.minX(), sliderOf(low).handleValue());
    EXPECT_DOUBLE_EQ(band.maxX(), sliderOf(high).handleValue());
    EXPECT_DOUBLE_EQ(band.height, 14);
    EXPECT_EQ(bottom->rangeSlider()->layers().trackRect(), (Rect{11, 0, 238, 14}));
}

TEST_F(Pair, TheBandFollowsAMemberAtOnceAndGlidesWithAGlidingOne) {
    sliderOf(low).moveToExactFloatValue(400);
    EXPECT_DOUBLE_EQ(bottom->rangeSlider()->low(), 400);
    EXPECT_DOUBLE_EQ(bottom->rangeSlider()->band()->presentation().frame({0.5, 0.5}).minX(),
                     sliderOf(low).handleValue());
    high->setFloatValue(15000);
    time.advance(0.05);
    const double bandEnd = bottom->rangeSlider()->band()->presentation().frame({0.5, 0.5}).maxX();
    EXPECT_NEAR(bandEnd, sliderOf(high).readoutBulb()->presentation().position.x, 1e-6);
    EXPECT_LT(bandEnd, sliderOf(high).handleValue());
}

TEST_F(Pair, UpdatingTheRangeGlidesForATenthOfASecondOrNotAtAll) {
    QVMRangeSlider& slider = *bottom->rangeSlider();
    slider.updateForLowHighAnimation(20, 100, 0);
    EXPECT_TRUE(slider.band()->animations().isEmpty());
    bottom->updateRangeAnimated(Animate::yes);
    ASSERT_NE(slider.band()->animations().find("position"), nullptr);
    EXPECT_DOUBLE_EQ(slider.band()->animations().find("position")->duration, 0.1);
    bottom->updateRangeAnimated(Animate::no);
    slider.updateForLowHighAnimation(20, 100, 0);
    bottom->updateRangeAnimated(Animate::no);
    EXPECT_TRUE(slider.band()->animations().isEmpty());
    EXPECT_DOUBLE_EQ(slider.band()->frame().minX(), sliderOf(low).handleValue());
}

TEST_F(Pair, ClicksFindTheHandleThenTheBand) {
    EXPECT_EQ(window.hitTest({lowX(), 10}), &sliderOf(low));
    EXPECT_EQ(window.hitTest({lowX(), 31}), &sliderOf(low)); // its pointer reaches into the band
    EXPECT_EQ(window.hitTest({highX(), 50}), &sliderOf(high));
    EXPECT_EQ(window.hitTest({highX(), 43}), &sliderOf(high));
    EXPECT_EQ(window.hitTest({middleX(), 37}), top->rangeSlider());
    EXPECT_EQ(window.hitTest({lowX() - 20, 37}), top->rangeSlider());
    EXPECT_EQ(window.hitTest({highX() + 20, 37}), top->rangeSlider());
    EXPECT_EQ(window.hitTest({kLeft - 10, 37}), top) << "beside the slider";
}

TEST_F(Pair, DraggingTheBandMovesBothEndsByThePointersWay) {
    const double lowWas = lowX(), highWas = highX(), x = middleX();
    send(EventType::mouseDown, {x, 37});
    EXPECT_FLOAT_EQ(low->floatValue(), 125);
    EXPECT_FLOAT_EQ(high->floatValue(), 6300);
    send(EventType::mouseDragged, {x + 15, 37});
    EXPECT_NEAR(lowX(), lowWas + 15, 1);
    EXPECT_NEAR(highX(), highWas + 15, 1);
    EXPECT_NE(low->floatValue(), 125);
    send(EventType::mouseUp, {x + 15, 37});
    EXPECT_FALSE(sliderOf(low).dragging());
    EXPECT_THAT(reports,
                ElementsAre("high began", "low began", "range began", "high ended", "low ended", "range ended"));
    EXPECT_DOUBLE_EQ(bottom->rangeSlider()->low(), low->floatValue());
}

TEST_F(Pair, APressBesideTheBandMovesBothEndsByThePointersWayAndJumpsNeither) {
    const double places[] = {kLeft - 10, kLeft + 5, lowX() - 10, highX() + 10, kLeft + 265};
    for (const double x : places) {
        low->setFloatValue(125);
        high->setFloatValue(6300);
        time.advance(1);
        reports.clear();
        const double lowWas = lowX(), highWas = highX();
        send(EventType::mouseDown, {x, 37});
        EXPECT_FLOAT_EQ(low->floatValue(), 125) << x;
        EXPECT_FLOAT_EQ(high->floatValue(), 6300) << x;
        send(EventType::mouseDragged, {x + 12, 37});
        EXPECT_NEAR(lowX(), lowWas + 12, 1) << x;
        EXPECT_NEAR(highX(), highWas + 12, 1) << x;
        send(EventType::mouseUp, {x + 12, 37});
        EXPECT_THAT(reports,
                    ElementsAre("high began", "low began", "range began", "high ended", "low ended", "range ended"))
            << x;
        for (const QVMParameterControl* control : {low, high, static_cast<QVMParameterControl*>(top)})
            EXPECT_FALSE(control->handlingOutsideClick()) << x;
    }
}

TEST_F(Pair, APressOnAHandlesPointerMovesItsEndAlone) {
    for (QVMParameterControl* end : {low, high}) {
        reports.clear();
        const double x = kLeft + sliderOf(end).handleValue(), y = end == low ? 31 : 43;
        QVMParameterControl* const other = end == low ? high : low;
        const float otherWas = other->floatValue();
        send(EventType::mouseDown, {x, y});
        send(EventType::mouseDragged, {x + 12, y});
        EXPECT_NEAR(kLeft + sliderOf(end).handleValue(), x + 12, 1);
        send(EventType::mouseUp, {x + 12, y});
        EXPECT_FLOAT_EQ(other->floatValue(), otherWas);
        EXPECT_EQ(reports.size(), 2u) << "one beginning, one end";
        EXPECT_FALSE(end->handlingOutsideClick());
    }
}

TEST_F(Pair, APressOnAPointerThatReachesBeyondItsControlIsPerformedOnce) {
    const QVMParameter shallow = parameterLike(pidTiltRangeLow, [](QVMParameter& p) { p.controlFrame.height = 30; });
    QVMParameterControl& end = window.contentView()->addSubview(
        std::make_unique<QVMParameterControl>(Rect{0, 0, 321, 30}, Rect{}, &shallow, 125.0f), Order::below);
    end.setDelegate(this);
    top->setLow(&end);
    time.advance(1);
    low->setHidden(true);
    const Point tip = {kLeft + sliderOf(&end).handleValue(), 31};
    ASSERT_EQ(window.hitTest(tip), &sliderOf(&end));
    send(EventType::mouseDown, tip);
    EXPECT_FALSE(end.handlingOutsideClick());
    send(EventType::mouseUp, tip);
    EXPECT_EQ(reports.size(), 2u) << "one beginning, one end";
    top->setLow(low);
    end.removeFromSuperview();
}

TEST_F(Pair, OptionHeldAtTheReleaseLeavesNeitherEndDragging) {
    const double x = middleX();
    send(EventType::mouseDown, {x, 37});
    send(EventType::mouseDragged, {x + 15, 37});
    send(EventType::mouseUp, {x + 15, 37}, EventModifier::option);
    for (QVMParameterControl* end : {low, high}) {
        EXPECT_FALSE(sliderOf(end).dragging());
        EXPECT_FALSE(sliderOf(end).writeLocked());
    }
    low->setFloatValue(125);
    time.advance(1);
    EXPECT_EQ(sliderOf(low).handleValue(), sliderOf(low).positionValueFromFloatValue(125));
}

TEST_F(Pair, OptionClickOnTheBandResetsBothEnds) {
    send(EventType::mouseDown, {middleX(), 37}, EventModifier::option);
    EXPECT_FLOAT_EQ(low->floatValue(), 20);
    EXPECT_FLOAT_EQ(high->floatValue(), 20000);
    EXPECT_THAT(reports, ElementsAre("high began", "high ended", "low began", "low ended", "range began"));
    reports.clear();
    send(EventType::mouseUp, {middleX(), 37});
    EXPECT_THAT(reports, ElementsAre("range ended")) << "the ends have ended already";
}

TEST_F(Pair, TheRangesOwnValueNeverLeavesIt) {
    int actions = 0;
    top->setAction([&](Control&) { ++actions; });
    top->rangeSlider()->reportInterfaceInitiatedValueChange();
    EXPECT_EQ(actions, 0);
}

TEST_F(Pair, WithoutAPointerOverItTheInteractiveOneShowsNothing) {
    const auto isShown = [&] {
        for (const std::shared_ptr<Layer>& layer : top->rangeSlider()->layer()->tree().sublayers())
            if (layer->name() == "bandHover") return layer->opacity() > 0;
        return false;
    };
    EXPECT_FALSE(isShown());
    send(EventType::mouseMoved, {middleX(), 37});
    EXPECT_TRUE(isShown());
    send(EventType::mouseMoved, {lowX(), 10});
    EXPECT_FALSE(isShown());
}

TEST_F(Pair, AMemberThatGoesAwayLeavesItsPlace) {
    low->removeFromSuperview().reset();
    low = nullptr;
    EXPECT_EQ(top->low(), nullptr);
    EXPECT_EQ(bottom->low(), nullptr);
    top->updateRangeAnimated(Animate::no);
    send(EventType::mouseDown, {highX() - 60, 37});
    send(EventType::mouseDragged, {highX() - 50, 37});
    send(EventType::mouseUp, {highX() - 50, 37});
    top->setHigh(nullptr);
    EXPECT_EQ(top->high(), nullptr);
}

TEST_F(Pair, TheEndsKnowTheirRangeUntilItGoesAway) {
    EXPECT_EQ(low->range(), top);
    top->removeFromSuperview().reset();
    top = nullptr;
    EXPECT_EQ(low->range(), nullptr);
    EXPECT_EQ(high->range(), nullptr);
}

TEST_F(Pair, ARangeThatGoesAwayIsForgottenByItsMembers) {
    bottom->removeFromSuperview().reset();
    bottom = nullptr;
    sliderOf(low).moveToExactFloatValue(400);
    EXPECT_DOUBLE_EQ(top->rangeSlider()->low(), 400);
}

TEST_F(Pair, AFocusedRangeIsMarkedAroundItsBand) {
    top->setFocused(true);
    EXPECT_TRUE(top->rangeSlider()->highlit());
    const Rect border = top->rangeSlider()->highlight()->frame();
    EXPECT_TRUE(border.contains(top->rangeSlider()->band()->frame()));
}

} // namespace
} // namespace QVM_NAMESPACE
