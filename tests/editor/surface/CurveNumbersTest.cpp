#include "editor/surface/CurveNumbers.h"

#include "editor/RenderedEditorFixture.h"
#include "editor/surface/CurveTexts.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/NearestNote.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/ScaleGrip.h"
#include "platform/layer/TextLayer.h"
#include "platform/view/Menu.h"
#include "viz/sketches/QVM0015GLSketch.h"
#include "viz/sketches/ReferenceResponse.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// An editor in its compact form, at rest.
class CurveNumbersTest : public RenderedEditorFixture {
protected:
    void SetUp() override {
        RenderedEditorFixture::SetUp();
        window_.makeKey();
        ui_->requestFrame(QVMAltFrameCompact);
        frames(1);
        drawAll();
        delegate_.calls.clear();
        delegate_.sent.clear();
    }
    CurveNumbers& numbers() { return *ui_->sketches().numbers(); }
    const CurveReadout& readout() { return numbers().readout(); }
    QVMParameterControl& corner(std::uint32_t pid) { return *numbers().corner(pid); }
    CurveCorner& handle(std::uint32_t pid) { return static_cast<CurveCorner&>(*corner(pid).primaryControl()); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*ui_->sketch()->getVizRef()); }
    CurveScale scale() { return CurveScale(object().responseDisplay()); }

    void pointTo(Point at) { window_.sendEvent(mouseEvent(EventType::mouseMoved, at)); }
    void pointOut() { window_.sendEvent(mouseEvent(EventType::mouseExited, {-1, -1})); }
    void press(Point at, std::uint32_t modifiers = 0) {
        window_.sendEvent(mouseEvent(EventType::mouseDown, at, modifiers));
    }
    void dragTo(Point at, std::uint32_t modifiers = 0) {
        window_.sendEvent(mouseEvent(EventType::mouseDragged, at, modifiers));
    }
    void release(Point at) { window_.sendEvent(mouseEvent(EventType::mouseUp, at)); }
    bool typeKey(std::uint16_t code, char32_t character = 0, std::uint32_t modifiers = 0) {
        return window_.sendEvent(keyEvent(character, code, modifiers));
    }
    bool arrow(char32_t which, std::uint32_t modifiers = 0) {
        return typeKey(0, which, modifiers | EventModifier::numericPad);
    }
    // What is drawn again for a move of the pointer.
    std::vector<std::string> drawnAgain() { return renderer_.update(time_.now()).rasterised; }
    // The names of all layers that can be seen.
    static void addNames(const Layer& layer, std::vector<std::string>& names) {
        if (layer.isHidden() || layer.opacity() == 0) return;
        names.push_back(layer.name());
        for (const auto& sublayer : layer.tree().sublayers())
            addNames(*sublayer, names);
    }
    std::vector<std::string> shownLayers() {
        std::vector<std::string> names;
        addNames(*ui_->sketch()->layer(), names);
        return names;
    }
};

TEST_F(CurveNumbersTest, TheSmallBoxHasNothingOfThem) {
    ui_->requestFrame(QVMAltFrameNormal);
    frames(1);
    EXPECT_THAT(shownLayers(), ElementsAre("parameterSketch", "sketch"));
    const Point middle = middleOf(*ui_->sketch());
    pointTo(middle);
    EXPECT_THAT(shownLayers(), ElementsAre("parameterSketch", "sketch"));
    EXPECT_EQ(window_.hitTest(middle), ui_->sketch());
}

TEST_F(CurveNumbersTest, TheCompactFormHasMarksBelowTheCurveAndCornersAboveIt) {
    const std::vector<std::string> names = shownLayers();
    const auto place = [&](const char* name) { return std::find(names.begin(), names.end(), name) - names.begin(); };
    EXPECT_LT(place("curveMark:0 dB"), place("sketch"));
    EXPECT_LT(place("curveMark:1k"), place("sketch"));
    EXPECT_LT(place("sketch"), place("corner:TiltRangeLow"));
    EXPECT_THAT(names, AllOf(Contains("corner:TiltRangeHigh"), Contains("corner:FilterRangeLow"),
                             Contains("corner:FilterRangeHigh"), Not(Contains("hairLine"))));
}

TEST_F(CurveNumbersTest, NearThePointerAHairLineTellsWhatTheFormulasGive) {
    hostSets(pidTiltGain, 9);
    frames(1);
    reference::Settings settings{};
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        settings[pid] = double{memoized(pid)};
    const reference::Response expected = reference::evaluate(settings, object().numPoints());
    for (std::size_t i = 20; i < expected.frequency.size(); i += 31) {
        const double hertz = expected.frequency[i], x = scale().xOf(hertz);
        if (numbers().hitTest({x, 150}) != &numbers()) continue; // a corner
        pointTo({x, 150});
        ASSERT_TRUE(readout().isShown());
        EXPECT_EQ(readout().content().frequency, frequencyText(hertz));
        EXPECT_EQ(readout().content().level, levelText(expected.total[i] - expected.reference)) << hertz;
        EXPECT_EQ(readout().content().note, nearestNote(hertz).name);
        EXPECT_EQ(readout().content().cents, "");
        EXPECT_NEAR(readout().content().at.x, x, 0.01);
    }
    pointOut();
    EXPECT_FALSE(readout().isShown());
}

TEST_F(CurveNumbersTest, WhereTheCurveHasLeftTheBoxItIsToldWithoutADot) {
    hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(1000));
    frames(1);
    pointTo({150, 150});
    EXPECT_THAT(shownLayers(), Contains("curveDot"));
    pointTo({60, 150});
    EXPECT_THAT(shownLayers(), AllOf(Contains("hairLine"), Not(Contains("curveDot"))));
    EXPECT_THAT(readout().content().level, HasSubstr(minusSign));
}

TEST_F(CurveNumbersTest, AMoveOfThePointerDrawsItsTextsAgainAndNothingElse) {
    pointTo({90, 150});
    drawnAgain();
    pointTo({120, 150});
    EXPECT_THAT(drawnAgain(), ElementsAre("readFrequency", "readNote")) << "the level is the same, and lines move";
    hostSets(pidTiltGain, 6);
    frames(1);
    drawnAgain();
    pointTo({90, 150});
    EXPECT_THAT(drawnAgain(), ElementsAre("readFrequency", "readLevel", "readNote"));
    EXPECT_THAT(drawFrame().rasterised, IsEmpty());
    EXPECT_THAT(drawFrame().damage, IsEmpty());
    EXPECT_FALSE(renderer_.isAnimating());
}

TEST_F(CurveNumbersTest, WhatTheCurveSaysFollowsAGlideUnderARestingPointer) {
    pointTo({150, 150});
    const std::string before = readout().content().level;
    hostSets(pidTiltGain, 12);
    frames(1);
    EXPECT_NE(readout().content().level, before);
    EXPECT_THAT(readout().content().level, HasSubstr("+"));
}

TEST_F(CurveNumbersTest, ThePlateKeepsAwayFromTheFrameButtonAndMarksGiveWayToIt) {
    const Rect button = FrameButton::placeIn({0, 0, 200, 200}, FrameButton::inset);
    for (const float gain : {0.0f, 6.0f, -18.0f}) {
        hostSets(pidTiltGain, gain);
        frames(1);
        for (double x = 0; x < 200; x += 5) {
            pointTo({x, 140});
            const auto [plate, hairLine] = readout().frames();
            ASSERT_TRUE((Rect{0, 0, 200, 200}.contains(plate))) << x;
            ASSERT_FALSE(plate.intersects(button)) << x;
            for (const auto& layer : numbers().marks().layer()->tree().sublayers()) {
                const bool isMark = !layer->isHidden() && layer->name().starts_with("curveMark:");
                ASSERT_FALSE(isMark && layer->frame().intersects(plate)) << layer->name() << " at " << x;
                ASSERT_FALSE(isMark && layer->frame().intersects(hairLine)) << layer->name() << " at " << x;
            }
        }
    }
}

TEST_F(CurveNumbersTest, NothingOfThemStandsWhereTheEditorsCornerIsTaken) {
    const Rect grip = ui_->parts().scaleGrip()->frame();
    for (const float gain : {0.0f, 18.0f, -18.0f}) {
        hostSets(pidTiltGain, gain);
        frames(1);
        EXPECT_FALSE(corner(pidFilterRangeHigh).frame().intersects(grip)) << corner(pidFilterRangeHigh).frame().maxY();
        for (double x = 0; x < 200; x += 5) {
            pointTo({x, 140});
            EXPECT_FALSE(readout().frames()[0].intersects(grip)) << x << " at " << gain;
        }
    }
}

TEST_F(CurveNumbersTest, CornersStandAtTheirFrequenciesOnTheCurve) {
    hostSets(pidTiltGain, 6);
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(200));
    hostSets(pidTiltRangeHigh, GetParameter(pidTiltRangeHigh)->reverseCastValue(2000));
    frames(1);
    for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh}) {
        const Point center = middleOf(corner(pid));
        EXPECT_NEAR(center.x, scale().xOf(double{memoized(pid)}), 0.51);
        EXPECT_LT(std::abs(center.y - 100), 70);
    }
    EXPECT_GT(middleOf(corner(pidTiltRangeLow)).y, middleOf(corner(pidTiltRangeHigh)).y);
}

TEST_F(CurveNumbersTest, NoTwoCornersStandInTheSamePlace) {
    const std::uint32_t pids[] = {pidTiltRangeLow, pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh};
    for (const float high : {24000.0f, 20000.0f, 16000.0f, 2000.0f}) {
        hostSets(pidFilterRangeHigh, GetParameter(pidFilterRangeHigh)->reverseCastValue(high));
        hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(20));
        frames(0.5);
        for (const std::uint32_t one : pids) {
            EXPECT_EQ(window_.hitTest(middleOf(corner(one))), &handle(one)) << one << " at " << high;
            for (const std::uint32_t other : pids) {
                const Point a = middleOf(corner(one)), b = middleOf(corner(other));
                if (one == other) continue;
                EXPECT_GE(std::hypot(a.x - b.x, a.y - b.y), 2 * CurveCorner::discRadius) << high;
            }
        }
    }
}

TEST_F(CurveNumbersTest, ACornerIsLitWhileThePointerIsOverItAndNotOnceItHasMovedAway) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    pointTo(at);
    EXPECT_TRUE(handle(pidTiltRangeLow).isHovered());
    EXPECT_FALSE(handle(pidTiltRangeHigh).isHovered());
    pointTo({100, 150});
    EXPECT_FALSE(handle(pidTiltRangeLow).isHovered());
    pointTo(at);
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(500));
    frames(0.2);
    EXPECT_FALSE(handle(pidTiltRangeLow).isHovered()) << "the pointer rests where it was";
    press(middleOf(corner(pidTiltRangeLow)));
    dragTo({160, 100});
    release({160, 100});
    EXPECT_TRUE(handle(pidTiltRangeLow).isHovered()) << "it came along";
    pointOut();
    EXPECT_FALSE(handle(pidTiltRangeLow).isHovered());
}

TEST_F(CurveNumbersTest, NoCornerStandsBelowTheFrameButtonOrCutsAMark) {
    const Rect button = FrameButton::placeIn({0, 0, 200, 200}, FrameButton::inset);
    for (const float gain : {0.0f, 6.0f, 18.0f, -18.0f}) {
        for (const float low : {10.0f, 12.0f, 16.0f, 40.0f}) {
            hostSets(pidTiltGain, gain);
            hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(low));
            frames(0.3);
            for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh}) {
                const Point center = middleOf(corner(pid));
                constexpr double radius = CurveCorner::discRadius;
                const Rect disc = {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
                ASSERT_FALSE(disc.intersects(button)) << pid << " at " << gain;
                for (const auto& layer : numbers().marks().layer()->tree().sublayers()) {
                    const bool isMark = !layer->isHidden() && layer->name().starts_with("curveMark:");
                    ASSERT_FALSE(isMark && layer->frame().intersects(disc)) << layer->name() << ", " << gain;
                }
            }
        }
    }
}

TEST_F(CurveNumbersTest, ADragOfACornerIsOneGestureOfItsParameter) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + 20, at.y});
    frame();
    dragTo({at.x + 40, at.y + 30});
    frame();
    release({at.x + 40, at.y + 30});
    frames(0.2);
    EXPECT_THAT(delegate_.calls, ElementsAre("began 2", "updated 2", "updated 2", "ended 2"));
    const double reached = scale().hertzAt(scale().xOf(20) + 40);
    EXPECT_NEAR(memoized(pidTiltRangeLow), reached, 1);
    EXPECT_EQ(control(pidTiltRangeLow).floatValue(), memoized(pidTiltRangeLow)) << "the slider shows it";
    EXPECT_TRUE(ui_->sketch()->vizVisible()) << "it was no click on the curve";
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);
    EXPECT_NEAR(middleOf(corner(pidTiltRangeLow)).x, at.x + 40, 1);
}

TEST_F(CurveNumbersTest, TheWholeDragIsOneStepBack) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    for (int i = 1; i <= 40; ++i) {
        dragTo({at.x + i, at.y});
        frames(0.05);
    }
    release({at.x + 40, at.y});
    frames(1);
    ui_->keyboard().keyboardShortcutUndo();
    frames(1);
    EXPECT_EQ(memoized(pidTiltRangeLow), 20);
    EXPECT_NEAR(middleOf(corner(pidTiltRangeLow)).x, at.x, 0.5);
}

TEST_F(CurveNumbersTest, ThePartnerIsPushedAnOctaveAway) {
    hostSets(pidTiltRangeHigh, GetParameter(pidTiltRangeHigh)->reverseCastValue(1000));
    frames(1);
    delegate_.calls.clear();
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + scale().xOf(800) - scale().xOf(20), at.y});
    frames(0.1);
    EXPECT_NEAR(memoized(pidTiltRangeLow), 800, 2);
    EXPECT_EQ(memoized(pidTiltRangeHigh), 2 * memoized(pidTiltRangeLow));
    EXPECT_NEAR(middleOf(corner(pidTiltRangeHigh)).x, scale().xOf(double{memoized(pidTiltRangeHigh)}), 1);
    release(at);
    EXPECT_THAT(delegate_.calls, ElementsAre("began 2", "updated 2", "updated 3", "ended 2"));
}

TEST_F(CurveNumbersTest, AValueOfTheHostsDoesNotTakeACornerOutOfTheHand) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + 20, at.y});
    const float held = handle(pidTiltRangeLow).floatValue();
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(30));
    EXPECT_EQ(handle(pidTiltRangeLow).floatValue(), held);
    release({at.x + 20, at.y});
    frames(0.1);
    EXPECT_EQ(handle(pidTiltRangeLow).floatValue(), 30) << "but then it shows what is";
}

TEST_F(CurveNumbersTest, APressThatIsTakenAwayEndsTheGestureAndLeavesTheCurve) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + 20, at.y});
    window_.cancelPress();
    EXPECT_EQ(delegate_.calls.back(), "ended 2");
    EXPECT_TRUE(ui_->sketch()->vizVisible());
    press({100, 150});
    window_.cancelPress();
    EXPECT_TRUE(ui_->sketch()->vizVisible());
}

TEST_F(CurveNumbersTest, AClickBesideTheCornersHidesTheCurveWithAllOfThemAndAnotherShowsThem) {
    click({100, 150});
    EXPECT_FALSE(ui_->sketch()->vizVisible());
    EXPECT_TRUE(numbers().isHidden());
    EXPECT_EQ(window_.hitTest(middleOf(corner(pidTiltRangeLow))), ui_->sketch()) << "no corner is in the way";
    click(middleOf(corner(pidTiltRangeLow)));
    EXPECT_TRUE(ui_->sketch()->vizVisible());
    EXPECT_FALSE(numbers().isHidden());
}

TEST_F(CurveNumbersTest, ADoubleClickBesideTheCornersLeadsBackAndOneOnACornerDoesNot) {
    Event second = mouseEvent(EventType::mouseDown, middleOf(corner(pidTiltRangeLow)));
    second.clickCount = 2;
    window_.sendEvent(second);
    window_.sendEvent(mouseEvent(EventType::mouseUp, second.locationInWindow));
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);
    EXPECT_EQ(readout().content().frequency, "|") << "it opens an empty field, as on a slider";
    second.locationInWindow = {100, 150};
    window_.sendEvent(second);
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
}

TEST_F(CurveNumbersTest, TabWalksTheCornersInTheirOrder) {
    std::vector<std::string> walked;
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(typeKey(Key::codeTab));
        ASSERT_NE(ui_->focusedControl(), nullptr);
        walked.emplace_back(ui_->focusedControl()->codename());
    }
    EXPECT_THAT(walked,
                ElementsAre("TiltRangeLow", "TiltRangeHigh", "FilterRangeLow", "FilterRangeHigh", "TiltRangeLow"));
    EXPECT_TRUE(handle(pidTiltRangeLow).highlit());
    EXPECT_FALSE(handle(pidFilterRangeHigh).highlit());
    EXPECT_TRUE(readout().isShown()) << "what has the keyboard is told";
    EXPECT_EQ(readout().content().frequency, "20 Hz");
    EXPECT_EQ(readout().content().cents, "+49 ct");
    EXPECT_TRUE(typeKey(Key::codeTab, 0, EventModifier::shift));
    EXPECT_EQ(ui_->focusedControl(), &corner(pidFilterRangeHigh));
}

TEST_F(CurveNumbersTest, ArrowsMoveTheCornerThatHasTheKeyboard) {
    typeKey(Key::codeTab);
    EXPECT_TRUE(arrow(Key::right));
    frames(0.2);
    EXPECT_EQ(memoized(pidTiltRangeLow), 21);
    EXPECT_TRUE(arrow(Key::right, EventModifier::shift));
    frames(0.2);
    EXPECT_EQ(memoized(pidTiltRangeLow), 30) << "as the slider does";
    EXPECT_TRUE(arrow(Key::down, EventModifier::command));
    frames(0.2);
    EXPECT_FLOAT_EQ(memoized(pidTiltRangeLow), 29.9f);
    EXPECT_EQ(readout().content().frequency, "30 Hz");
    EXPECT_THAT(delegate_.calls,
                ElementsAre("updated 2", "discrete 2", "updated 2", "discrete 2", "updated 2", "discrete 2"));
}

TEST_F(CurveNumbersTest, ANumberIsTypedIntoThePlateAndEscapeGivesTheKeyboardBack) {
    typeKey(Key::codeTab);
    for (const char32_t each : {U'1', U'.', U'2', U'k'})
        EXPECT_TRUE(typeKey(0, each));
    EXPECT_EQ(readout().content().frequency, "1.2k|");
    EXPECT_TRUE(typeKey(Key::codeReturn));
    frames(0.2);
    EXPECT_EQ(memoized(pidTiltRangeLow), 1200);
    EXPECT_EQ(readout().content().frequency, "1.20 kHz");
    EXPECT_TRUE(typeKey(Key::codeEscape));
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    EXPECT_FALSE(readout().isShown());
    EXPECT_FALSE(arrow(Key::right)) << "what nobody has is the host's";
}

TEST_F(CurveNumbersTest, TheKeyboardLeavesACornerThatIsHidden) {
    typeKey(Key::codeTab);
    ui_->toggleSketchVisibility();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    ui_->toggleSketchVisibility();
    typeKey(Key::codeTab);
    ASSERT_EQ(ui_->focusedControl(), &corner(pidTiltRangeLow));
    ui_->requestFrame(QVMAltFrameNormal);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    typeKey(Key::codeTab);
    EXPECT_EQ(ui_->focusedControl(), ui_->parameterControlWithCodename(ui_->config().metadata->tabOrder.front()));
}

TEST_F(CurveNumbersTest, AContextMenuOnACornerIsAboutItsParameter) {
    Event event = mouseEvent(EventType::rightMouseDown, middleOf(corner(pidTiltRangeHigh)));
    const auto menu = ui_->menuForEvent(event);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ui_->lastRightClickedControl(), &corner(pidTiltRangeHigh));
}

TEST_F(CurveNumbersTest, AFilterThatIsOffWaitsAtTheEdgeAndSaysSo) {
    const Point at = middleOf(corner(pidFilterRangeLow));
    EXPECT_LT(at.x, 10);
    EXPECT_TRUE(handle(pidFilterRangeLow).isOff());
    pointTo(at);
    EXPECT_EQ(readout().content().frequency, "Off");
    EXPECT_EQ(readout().content().level, "");
    press(at);
    dragTo({at.x + 60, at.y});
    frames(0.2);
    release({at.x + 60, at.y});
    EXPECT_NEAR(memoized(pidFilterRangeLow), scale().hertzAt(60), 1);
    EXPECT_FALSE(handle(pidFilterRangeLow).isOff());
}

TEST_F(CurveNumbersTest, WithThePowerOffTheCornersAreFaint) {
    EXPECT_EQ(corner(pidTiltRangeLow).alpha(), 1);
    hostSets(pidMasterOnOff, 0);
    EXPECT_EQ(corner(pidTiltRangeLow).alpha(), 0.5);
    hostSets(pidMasterOnOff, 1);
    EXPECT_EQ(corner(pidTiltRangeLow).alpha(), 1);
}

TEST_F(CurveNumbersTest, TextsStandOutInBothThemes) {
    for (int theme = 0; theme < 2; ++theme) {
        const Color ground = ui_->powerBox()->sketchGround();
        pointTo({100, 150});
        int texts = 0;
        std::vector<const Layer*> open = {numbers().marks().layer().get(), readout().layer().get()};
        while (!open.empty()) {
            const Layer* layer = open.back();
            open.pop_back();
            for (const auto& sublayer : layer->tree().sublayers())
                open.push_back(sublayer.get());
            const auto* text = dynamic_cast<const TextLayer*>(layer);
            if (!text || text->string().isEmpty()) continue;
            const Layer* plate = layer->tree().superlayer();
            const Color below = plate->name() == "curvePlate" ? plate->look().backgroundColor() : ground;
            EXPECT_GE(contrastRatio(text->string().runs.front().color, below), 4.5) << layer->name();
            ++texts;
        }
        EXPECT_GE(texts, 9);
        ui_->toggleUITheme();
    }
}

} // namespace
} // namespace QVM_NAMESPACE
