// The user's input on its way through the toolkit to a view.
#include "toolkit/WindowComponent.h"

#include "platform/runloop/VirtualTime.h"
#include "platform/view/RecordingView.h"
#include "toolkit/FakePeer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Mods = juce::ModifierKeys;

// Keeps the events themselves too.
class Listener : public RecordingView {
public:
    using RecordingView::RecordingView;
    std::vector<Event> events;
    void mouseDown(const Event& e) override { keep(e), RecordingView::mouseDown(e); }
    void mouseDragged(const Event& e) override { keep(e), RecordingView::mouseDragged(e); }
    void mouseUp(const Event& e) override { keep(e), RecordingView::mouseUp(e); }
    void scrollWheel(const Event& e) override { keep(e), RecordingView::scrollWheel(e); }
    bool keyDown(const Event& e) override { return keep(e), RecordingView::keyDown(e); }

private:
    void keep(const Event& e) { events.push_back(e); }
};

class WindowComponentInputTest : public ::testing::Test {
protected:
    WindowComponentInputTest() {
        view = &component->window().setContentView(std::make_unique<Listener>("v", record, Rect{0, 0, 100, 80}));
        desktop = std::make_unique<FakeDesktopWindow>(*component);
        Mods::currentModifiers = {};
        move({50, 40});
        record.clear();
    }
    ~WindowComponentInputTest() override {
        Mods::currentModifiers = {};
        mouse({-10, -10}, 0); // the pointer outlives the window
        desktop.reset();
        component.reset();
        runPostedMessages();
    }
    FakePeer& peer() { return desktop->peer(); }
    void mouse(juce::Point<float> at, int mods) { peer().mouse(at, mods, now += 10); }
    void move(juce::Point<float> at) { mouse(at, 0); }
    void press(juce::Point<float> at, int button = Mods::leftButtonModifier) { mouse(at, button); }
    void release(juce::Point<float> at) { mouse(at, 0); }
    // With no display this program never has the focus, for want of which a menu closes when messages are run for long:
    // none is before the test is through with it.
    int openMenus() const {
        int menus = 0;
        for (const juce::Component* child : component->getChildren())
            menus += child->getName().contains("menu") && child->isVisible() ? 1 : 0;
        return menus;
    }
    Record take() { return std::exchange(record, {}); }

    VirtualTime time{100};
    Record record;
    juce::int64 now = 1000;
    std::unique_ptr<WindowComponent> component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost);
    Listener* view = nullptr;
    std::unique_ptr<FakeDesktopWindow> desktop;
};

TEST_F(WindowComponentInputTest, PressDragAndReleaseReachTheView) {
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

TEST_F(WindowComponentInputTest, SecondQuickClickCountsTwo) {
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

TEST_F(WindowComponentInputTest, ModifiersMayChangeInMidDrag) {
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

TEST_F(WindowComponentInputTest, RightButtonAsksForAMenuAndIsNoDrag) {
    press({10, 20}, Mods::rightButtonModifier);
    press({15, 20}, Mods::rightButtonModifier);
    release({15, 20});
    EXPECT_THAT(view->events, IsEmpty());
    EXPECT_THAT(take(), ::testing::Contains("v menu"));
}

TEST_F(WindowComponentInputTest, MiddleButtonIsNobodys) {
    press({10, 20}, Mods::middleButtonModifier);
    release({10, 20});
    EXPECT_THAT(view->events, IsEmpty());
}

TEST_F(WindowComponentInputTest, HoverEntersAndLeaves) {
    move({10, 10});
    move({-5, 10});
    move({10, 10});
    EXPECT_THAT(take(), ElementsAre("v moved", "v exited", "v entered", "v moved", "v moved"));
}

TEST_F(WindowComponentInputTest, WheelReachesTheViewUnderThePointer) {
    peer().wheel({10, 20}, {0, 50.0f / 256, false, false, false}, now += 10);
    ASSERT_EQ(view->events.size(), 1u);
    EXPECT_DOUBLE_EQ(view->events[0].scrollingDeltaY, 1);
    EXPECT_EQ(view->events[0].locationInWindow, (Point{10, 20}));
}

TEST_F(WindowComponentInputTest, ClickAloneTakesNoFocus) {
    press({10, 20});
    release({10, 20});
    EXPECT_FALSE(component->hasKeyboardFocus(true));
    EXPECT_FALSE(component->window().isKeyWindow());
}

TEST_F(WindowComponentInputTest, ViewThatWantsKeysGetsThem) {
    view->also = [this](const std::string& word) {
        if (word == "down") component->window().makeKey();
    };
    press({10, 20});
    release({10, 20});
    EXPECT_TRUE(component->hasKeyboardFocus(true));
    EXPECT_TRUE(component->window().isKeyWindow());
    component->window().makeFirstResponder(view);
    EXPECT_TRUE(peer().handleKeyPress('7', '7'));
    EXPECT_EQ(view->events.back().charactersIgnoringModifiers, U"7");
}

// Nothing else would ever tell of its release.
TEST_F(WindowComponentInputTest, KeyThatNoHandPressedIsNotHeld) {
    component->window().makeKey();
    component->window().makeFirstResponder(view);
    EXPECT_TRUE(peer().handleKeyPress('7', '7'));
    EXPECT_FALSE(component->window().isKeyHeld());
}

TEST_F(WindowComponentInputTest, FocusIsTakenAtTheEndOfAPressAndOnlyIfKeysAreWantedThen) {
    view->also = [this](const std::string& word) {
        if (word == "down") component->window().makeKey();
    };
    component->window().makeFirstResponder(view);
    view->handlesKeys = true;
    press({10, 20});
    EXPECT_FALSE(component->hasKeyboardFocus(true)) << "not yet known what for";
    release({10, 20});
    EXPECT_TRUE(component->hasKeyboardFocus(true));

    component->giveAwayKeyboardFocus();
    component->window().setKeyWindow(false);
    peer().focused = false;
    view->keysAreWanted = false;
    press({10, 20});
    release({10, 20});
    EXPECT_FALSE(component->hasKeyboardFocus(true));
    EXPECT_FALSE(component->window().isKeyWindow());
}

TEST_F(WindowComponentInputTest, KeysThatNobodyHandlesAreTheHosts) {
    component->window().makeKey();
    EXPECT_FALSE(peer().handleKeyPress(juce::KeyPress::spaceKey, ' '));
    component->window().makeFirstResponder(view);
    view->handlesKeys = false;
    EXPECT_FALSE(peer().handleKeyPress(juce::KeyPress::spaceKey, ' '));
    view->handlesKeys = true;
    EXPECT_TRUE(peer().handleKeyPress(juce::KeyPress::spaceKey, ' '));
}

TEST_F(WindowComponentInputTest, FocusThatComesBackAtOnceWasNeverLost) {
    component->window().makeKey();
    peer().focused = false;
    peer().handleFocusLoss();
    EXPECT_TRUE(component->window().isKeyWindow());
    peer().focused = true;
    peer().handleFocusGain();
    time.advance(1);
    EXPECT_TRUE(component->window().isKeyWindow());
}

TEST_F(WindowComponentInputTest, LostFocusResignsTheKeyWindow) {
    component->window().makeKey();
    peer().focused = false;
    peer().handleFocusLoss();
    time.advance(1);
    EXPECT_FALSE(component->window().isKeyWindow());
}

TEST_F(WindowComponentInputTest, CursorOfTheViewIsShown) {
    view->setCursor(Cursor::resizeUpDown);
    EXPECT_TRUE(component->getMouseCursor() == juce::MouseCursor::UpDownResizeCursor);
    component->window().pushCursor(Cursor::none);
    EXPECT_TRUE(component->getMouseCursor() == juce::MouseCursor::NoCursor);
    component->window().popCursor();
    EXPECT_TRUE(component->getMouseCursor() == juce::MouseCursor::UpDownResizeCursor);
}

TEST_F(WindowComponentInputTest, ThereIsNoToolTipFromAKeyUntilThePointerMoves) {
    view->setToolTip("Tilt");
    move({50, 40});
    component->keyPressed(juce::KeyPress('5'));
    EXPECT_EQ(component->getTooltip(), "");
    move({50, 40}); // it rests
    EXPECT_EQ(component->getTooltip(), "");
    move({52, 40});
    EXPECT_EQ(component->getTooltip(), "Tilt");
}

TEST_F(WindowComponentInputTest, ToolTipIsTheViewsAndThereIsNoneInMidDrag) {
    view->setToolTip("Tilt");
    EXPECT_EQ(component->getTooltip(), "Tilt");
    press({50, 40});
    EXPECT_EQ(component->getTooltip(), "");
    release({50, 40});
}

TEST_F(WindowComponentInputTest, MenuIsShownInsideTheWindowAndClosesWithIt) {
    const FakeDisplay display;
    view->menu = std::make_unique<Menu>(Menu{"Tilt", {{"Reset", true, false, nullptr, {}}}});
    press({10, 20}, Mods::rightButtonModifier);
    release({10, 20});
    EXPECT_EQ(openMenus(), 1);
    desktop.reset();
    component.reset();
    runPostedMessages();
    EXPECT_FALSE(juce::PopupMenu::dismissAllActiveMenus());
    component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost);
    desktop = std::make_unique<FakeDesktopWindow>(*component);
}

TEST_F(WindowComponentInputTest, ChosenItemOfTheMenuRuns) {
    const FakeDisplay display;
    int runs = 0;
    view->menu = std::make_unique<Menu>(Menu{"", {{"Reset", true, false, [&] { ++runs; }, {}}}});
    press({10, 20}, Mods::rightButtonModifier);
    release({10, 20});
    auto* menu = component->getChildComponent(component->getNumChildComponents() - 1);
    ASSERT_NE(menu, nullptr);
    menu->keyPressed(juce::KeyPress(juce::KeyPress::downKey));
    menu->keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    runPostedMessages();
    EXPECT_EQ(runs, 1);
}

// The ways to press beside an open menu, by the button.
class WindowComponentMenuTest : public WindowComponentInputTest, public ::testing::WithParamInterface<int> {};

TEST_P(WindowComponentMenuTest, PressBesideAMenuClosesItAndDoesNoMore) {
    const FakeDisplay display;
    int runs = 0;
    const MenuItem row{"Reset", true, false, [&] { ++runs; }, {}};
    view->menu = std::make_unique<Menu>(Menu{"", {row, {"More", true, false, nullptr, {row}}}});
    component->window().popUpMenu(std::move(view->menu), {90, 70});
    ASSERT_EQ(openMenus(), 1);
    view->menu = std::make_unique<Menu>(Menu{"", {row}}); // a right press would open another one
    take();
    press({2, 2}, GetParam());
    press({8, 2}, GetParam());
    release({8, 2});
    runPostedMessages();
    EXPECT_EQ(openMenus(), 0);
    EXPECT_THAT(view->events, IsEmpty());
    EXPECT_THAT(take(), ::testing::Not(::testing::Contains("v menu")));
    EXPECT_EQ(runs, 0);

    press({8, 2});
    release({8, 2});
    EXPECT_EQ(view->events.size(), 2u) << "the next one is a press as any";
}

INSTANTIATE_TEST_SUITE_P(Buttons, WindowComponentMenuTest,
                         ::testing::Values(int(Mods::leftButtonModifier), int(Mods::rightButtonModifier)));

TEST_F(WindowComponentInputTest, MenuWithoutRowsIsNone) {
    const FakeDisplay display;
    component->window().popUpMenu(std::make_unique<Menu>(), {10, 20});
    runPostedMessages();
    press({10, 20});
    release({10, 20});
    EXPECT_EQ(view->events.size(), 2u);
}

TEST_F(WindowComponentInputTest, PressOfAHiddenWindowEndsThere) {
    press({10, 20});
    take();
    desktop->setVisible(false);
    component->visibilityChanged();
    EXPECT_THAT(take(), ElementsAre("v cancelled"));
}

TEST_F(WindowComponentInputTest, AfterALostPressThePointerHoldsNothingAndTheNextPressIsOne) {
    press({10, 20});
    component->window().cancelPress();
    component->parentHierarchyChanged(); // it looks around
    time.advance(0.1);
    take();
    press({30, 20}); // the toolkit was told of no release
    release({30, 20});
    EXPECT_THAT(take(), ::testing::IsSupersetOf({std::string("v down"), std::string("v up")}));
}

TEST_F(WindowComponentInputTest, MenuOfTheKeyboardHasItsFirstRowMarkedThatCanBeChosen) {
    const FakeDisplay display;
    std::string chosen;
    const auto row = [&](const char* title, bool isEnabled) {
        return MenuItem{title, isEnabled, false, [&chosen, title] { chosen = title; }, {}};
    };
    view->menu =
        std::make_unique<Menu>(Menu{"Tilt", {row("Reset", false), row("Read", true), row("Copy", true)}, true});
    press({10, 20}, Mods::rightButtonModifier);
    release({10, 20});
    auto* menu = component->getChildComponent(component->getNumChildComponents() - 1);
    ASSERT_NE(menu, nullptr);
    menu->keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    runPostedMessages();
    EXPECT_EQ(chosen, "Read");
}

TEST_F(WindowComponentInputTest, WindowMayBeDestroyedByWhatItsViewsDo) {
    view->also = [this](const std::string& word) {
        if (word == "up") component.reset();
    };
    press({10, 20});
    release({10, 20});
    EXPECT_EQ(component, nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
