// What becomes a step of the history when the user's hand does it: pointer and keys through the window, in virtual
// time.
#include "editor/EditorFixture.h"

#include "controls/QVMRangeControl.h"
#include "controls/QVMSymbolButton.h"
#include "controls/QVMVerticalSlider.h"
#include "editor/surface/QVMPresetBar.h"

#include <gmock/gmock.h>

#include <random>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::Not;

constexpr std::uint32_t gain = 1, tiltLow = 2, tiltHigh = 3, output = 7;

class QVMGenericUIHistoryGestures : public EditorFixture {
protected:
    Point handleOf(std::uint32_t pid) {
        const auto& slider = dynamic_cast<QVMVerticalSlider&>(*control(pid).primaryControl());
        return slider.convertToWindow(slider.readoutBulb()->position());
    }
    void down(Point at, std::uint32_t modifiers = 0) {
        window_.sendEvent(mouseEvent(EventType::mouseDown, at, modifiers));
    }
    void drag(Point to) { window_.sendEvent(mouseEvent(EventType::mouseDragged, to)); }
    void up(Point at, std::uint32_t modifiers = 0) { window_.sendEvent(mouseEvent(EventType::mouseUp, at, modifiers)); }
    void keyGoesDown(char32_t arrow) { window_.sendEvent(keyEvent(arrow, 0, EventModifier::numericPad)); }
    void keyGoesUp(char32_t arrow) {
        Event event = keyEvent(arrow, 0, EventModifier::numericPad);
        event.type = EventType::keyUp;
        window_.sendEvent(event);
    }
    // As a display server repeats it: two thirds of a second after the press, then thirty times a second.
    void holdKey(char32_t arrow, int repeats) {
        keyGoesDown(arrow);
        frames(0.66);
        for (int i = 0; i < repeats; ++i) {
            keyGoesDown(arrow);
            frames(1.0 / 30);
        }
    }
    void set(std::uint32_t pid, float value) {
        userSets(pid, value);
        frames(1);
    }
    void undo() {
        click(middleOf(ui_->presetBar()->undo()));
        frames(1);
    }
    void redo() {
        click(middleOf(ui_->presetBar()->redo()));
        frames(1);
    }
    std::size_t steps() { return stack().stack().size(); }
};

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

// Gestures at random with rests in them, undo and redo between, against two plain lists of what was to be seen.
TEST_F(QVMGenericUIHistoryGestures, AgreesWithASimpleModelOverRandomGestures) {
    struct Seen {
        std::vector<float> values;
        std::uint32_t side, preset;
        bool isSameState(const Seen& other) const { return values == other.values && side == other.side; }
    };
    const auto present = [this] { return Seen{memoized(), ui_->abState(), ui_->currentPreset()}; };
    std::mt19937 random(11);
    const auto rest = [&] { frames(0.05 * static_cast<double>(random() % 20)); };
    std::vector<Seen> done = {present()}, undone;
    const std::vector<std::uint32_t> sliders = {gain, tiltLow, tiltHigh, output, 9, 10};

    for (int step = 0; step < 150; ++step) {
        const std::uint32_t pid = sliders[random() % sliders.size()];
        const Point start = handleOf(pid);
        const std::size_t before = steps();
        bool isGesture = true;
        switch (random() % 8) {
        case 0:
        case 1: { // a drag, let go of with a modifier now and then
            const std::uint32_t modifier = random() % 4 ? 0 : EventModifier::option;
            Point at = start;
            down(at);
            for (int moves = 0; moves < 4; ++moves) {
                at = start + Point{double(random() % 160) - 80, double(random() % 100) - 50};
                drag(at);
                rest();
                ASSERT_EQ(steps(), before) << "step " << step;
            }
            up(at, modifier);
            break;
        }
        case 2: // a reset, held or not
            down(start, EventModifier::option);
            rest();
            ASSERT_EQ(steps(), before) << "step " << step;
            up(start, EventModifier::option);
            break;
        case 3: { // a held key
            ui_->bringParameterControlIntoFocus(&control(pid));
            const char32_t arrow = random() % 2 ? Key::left : Key::right;
            holdKey(arrow, static_cast<int>(random() % 10));
            ASSERT_EQ(steps(), before) << "step " << step;
            keyGoesUp(arrow);
            break;
        }
        case 4: // the next preset
            click(ui_->presetBar()->convertToWindow(Point{320, 15}));
            break;
        case 5: // the other side
            click(middleOf(random() % 2 ? ui_->presetBar()->ab().b() : ui_->presetBar()->ab().arrow()));
            break;
        case 6:
            isGesture = false;
            undo();
            if (done.size() > 1) {
                undone.push_back(done.back());
                done.pop_back();
            }
            break;
        default:
            isGesture = false;
            redo();
            if (!undone.empty()) {
                done.push_back(undone.back());
                undone.pop_back();
            }
        }
        if (isGesture) {
            frames(1.1);
            const bool isValueChange = present().values != done.back().values;
            if (isValueChange) {
                done.push_back(present());
                undone.clear();
                ASSERT_EQ(steps(), done.size()) << "step " << step;
            } else if (present().isSameState(done.back())) {
                done.back() = present(); // it may go by another preset
            } else {
                // A flip between equal sides is seen in the history with the next change.
                click(middleOf(ui_->presetBar()->ab().b()));
                frames(1.1);
                done.back() = present();
            }
        }
        ASSERT_EQ(memoized(), done.back().values) << "step " << step;
        ASSERT_EQ(ui_->abState(), done.back().side) << "step " << step;
        ASSERT_EQ(ui_->currentPreset(), done.back().preset) << "step " << step;
        ASSERT_EQ(ui_->presetBar()->undo().buttonEnabled(), done.size() > 1) << "step " << step;
        ASSERT_EQ(ui_->presetBar()->redo().buttonEnabled(), !undone.empty()) << "step " << step;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
