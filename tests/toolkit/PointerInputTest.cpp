// The user's pointer on its way through the toolkit to a view.
#include "toolkit/PointerInput.h"

#include "toolkit/WindowInput.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Mods = juce::ModifierKeys;
using PointerInputTest = WindowInput;

TEST_F(PointerInputTest, PressDragAndReleaseReachTheView) {
    press({10, 20});
    press({30, 25});
    press({300, 250});
    release({300, 250});
    EXPECT_THAT(take(), ElementsAre("v moved", "v down", "v dragged", "v dragged", "v up", "v exited"));
    EXPECT_EQ(view->events[0].locationInWindow, (Point{10, 20}));
    EXPECT_EQ(view->events[1].locationInWindow, (Point{30, 25}));
    EXPECT_EQ(view->events[2].locationInWindow, (Point{300, 250}));
    EXPECT_EQ(view->events[0].clickCount, 1);
}

TEST_F(PointerInputTest, SecondQuickClickCountsTwo) {
    for (int i = 0; i < 2; ++i) {
        press({10, 20});
        release({10, 20});
    }
    now += 5000;
    press({10, 20});
    release({10, 20});
    std::vector<int> counts;
    for (const Event& e : view->events)
        counts.push_back(e.clickCount);
    EXPECT_THAT(counts, ElementsAre(1, 1, 2, 2, 1, 1));
}

TEST_F(PointerInputTest, ModifiersMayChangeInMidDrag) {
    Mods::currentModifiers = Mods(Mods::altModifier);
    press({10, 20});
    Mods::currentModifiers = Mods(Mods::ctrlModifier | Mods::leftButtonModifier);
    press({12, 20});
    Mods::currentModifiers = Mods(Mods::leftButtonModifier);
    press({14, 20});
    ASSERT_EQ(view->events.size(), 3u);
    EXPECT_EQ(view->events[0].modifierFlags, EventModifier::option);
    EXPECT_EQ(view->events[1].modifierFlags, EventModifier::command);
    EXPECT_EQ(view->events[2].modifierFlags, 0u);
}

TEST_F(PointerInputTest, RightButtonAsksForAMenuAndIsNoDrag) {
    press({10, 20}, Mods::rightButtonModifier);
    press({15, 20}, Mods::rightButtonModifier);
    release({15, 20});
    EXPECT_THAT(view->events, IsEmpty());
    EXPECT_THAT(take(), ::testing::Contains("v menu"));
}

TEST_F(PointerInputTest, MiddleButtonIsNobodys) {
    press({10, 20}, Mods::middleButtonModifier);
    release({10, 20});
    EXPECT_THAT(view->events, IsEmpty());
}

TEST_F(PointerInputTest, HoverEntersAndLeaves) {
    move({10, 10});
    move({-5, 10});
    move({10, 10});
    EXPECT_THAT(take(), ElementsAre("v moved", "v exited", "v entered", "v moved", "v moved"));
}

TEST_F(PointerInputTest, WheelReachesTheViewUnderThePointer) {
    peer().wheel({10, 20}, {0, 50.0f / 256, false, false, false}, now += 10);
    ASSERT_EQ(view->events.size(), 1u);
    EXPECT_DOUBLE_EQ(view->events[0].scrollingDeltaY, 1);
    EXPECT_EQ(view->events[0].locationInWindow, (Point{10, 20}));
}

TEST_F(PointerInputTest, CursorOfTheViewIsShown) {
    view->setCursor(Cursor::resizeUpDown);
    EXPECT_TRUE(component->getMouseCursor() == juce::MouseCursor::UpDownResizeCursor);
    component->window().pushCursor(Cursor::none);
    EXPECT_TRUE(component->getMouseCursor() == juce::MouseCursor::NoCursor);
    component->window().popCursor();
    EXPECT_TRUE(component->getMouseCursor() == juce::MouseCursor::UpDownResizeCursor);
}

TEST_F(PointerInputTest, PressOfAHiddenWindowEndsThere) {
    press({10, 20});
    take();
    desktop->setVisible(false);
    component->visibilityChanged();
    EXPECT_THAT(take(), ElementsAre("v cancelled"));
}

TEST_F(PointerInputTest, AfterALostPressThePointerHoldsNothingAndTheNextPressIsOne) {
    press({10, 20});
    component->window().cancelPress();
    component->parentHierarchyChanged(); // it looks around
    time.advance(0.1);
    take();
    press({30, 20}); // the toolkit was told of no release
    release({30, 20});
    EXPECT_THAT(take(), ::testing::IsSupersetOf({std::string("v down"), std::string("v up")}));
}

TEST_F(PointerInputTest, PressEndsWithTheWindowAndTheNextOneIsTheNextWindows) {
    for (const int button : {Mods::leftButtonModifier, Mods::rightButtonModifier, Mods::middleButtonModifier}) {
        Mods::currentModifiers = Mods(button);
        press({10, 20}, button);
        component.reset();
        EXPECT_FALSE(Mods::currentModifiers.isAnyMouseButtonDown());
        component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost);
        view = &component->window().setContentView(std::make_unique<EventListener>("v", record, Rect{0, 0, 100, 80}));
        desktop = std::make_unique<FakeDesktopWindow>(*component);
        take();
        press({30, 20});
        EXPECT_THAT(take(), ::testing::Contains("v down"));
        release({30, 20});
    }
}

TEST_F(PointerInputTest, PressInAnotherWindowGoesOnWhenThisOneGoes) {
    WindowComponent other(WindowComponent::Embedding::inHost);
    other.window().setContentView(std::make_unique<EventListener>("w", record, Rect{0, 0, 100, 80}));
    FakeDesktopWindow otherDesktop(other);
    otherDesktop.peer().mouse({10, 20}, Mods::leftButtonModifier, now += 10);
    component.reset();
    take();
    otherDesktop.peer().mouse({40, 30}, Mods::leftButtonModifier, now += 10);
    EXPECT_THAT(take(), ElementsAre("w dragged"));
    otherDesktop.peer().mouse({40, 30}, 0, now += 10);
    component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost); // for the fixture's end
    desktop = std::make_unique<FakeDesktopWindow>(*component);
}

TEST_F(PointerInputTest, WindowMayBeDestroyedByWhatItsViewsDo) {
    view->also = [this](const std::string& word) {
        if (word == "up") component.reset();
    };
    press({10, 20});
    release({10, 20});
    EXPECT_EQ(component, nullptr);
}

TEST_F(PointerInputTest, ThereIsNoToolTipFromAKeyUntilThePointerMoves) {
    view->setToolTip("Tilt");
    move({50, 40});
    component->keyPressed(juce::KeyPress('5'));
    EXPECT_EQ(component->getTooltip(), "");
    move({50, 40}); // it rests
    EXPECT_EQ(component->getTooltip(), "");
    move({52, 40});
    EXPECT_EQ(component->getTooltip(), "Tilt");
}

TEST_F(PointerInputTest, ThereIsNoToolTipOfWhatWasPressedUntilThePointerHasLeftIt) {
    View& low = view->addSubview(std::make_unique<View>(Rect{0, 0, 50, 80}));
    View& high = view->addSubview(std::make_unique<View>(Rect{50, 0, 50, 80}));
    low.setToolTip("Low");
    high.setToolTip("High");
    const auto tip = [this] { return component->getTooltip(); };
    move({20, 40});
    EXPECT_EQ(tip(), "Low");
    for (const int button : {Mods::leftButtonModifier, Mods::rightButtonModifier}) {
        press({20, 40}, button);
        release({20, 40});
        move({22, 40});
        EXPECT_EQ(tip(), "") << "after a click";
        move({60, 40});
        EXPECT_EQ(tip(), "High") << "of another";
        move({20, 40});
        EXPECT_EQ(tip(), "Low") << "it has come back";
    }
    press({20, 40});
    mouse({60, 40}, Mods::leftButtonModifier);
    mouse({30, 40}, Mods::leftButtonModifier);
    release({30, 40});
    move({31, 40});
    EXPECT_EQ(tip(), "") << "a drag that ended where it began";
    move({-5, 40});
    move({20, 40});
    EXPECT_EQ(tip(), "Low") << "the pointer was outside";
    press({20, 40});
    mouse({60, 40}, Mods::leftButtonModifier);
    release({60, 40});
    EXPECT_EQ(tip(), "") << "where the drag has led";
    move({20, 40});
    EXPECT_EQ(tip(), "Low") << "it has come to something else";
    press({20, 40});
    view->also = [&](const std::string& word) {
        if (word == "up") low.setFrame({0, 0, 10, 80}), high.setFrame({10, 0, 90, 80});
    };
    release({20, 40});
    move({21, 40});
    EXPECT_EQ(tip(), "") << "what the release has put below the pointer";
}

TEST_F(PointerInputTest, ToolTipIsTheViewsAndThereIsNoneInMidDrag) {
    view->setToolTip("Tilt");
    EXPECT_EQ(component->getTooltip(), "Tilt");
    press({50, 40});
    EXPECT_EQ(component->getTooltip(), "");
    release({50, 40});
}

} // namespace
} // namespace QVM_NAMESPACE
