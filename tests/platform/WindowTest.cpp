#include "platform/Window.h"

#include "platform/NotificationCenter.h"
#include "platform/RecordingView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A 100 x 100 window with "a" at its left and "b" at its right, each 50 x 100, and "inner" in the top of "a".
class WindowTest : public ::testing::Test {
protected:
    WindowTest() {
        root = &window->setContentView(std::make_unique<RecordingView>("root", record, Rect{0, 0, 100, 100}));
        a = &root->addSubview(std::make_unique<RecordingView>("a", record, Rect{0, 0, 50, 100}));
        b = &root->addSubview(std::make_unique<RecordingView>("b", record, Rect{50, 0, 50, 100}));
        inner = &a->addSubview(std::make_unique<RecordingView>("inner", record, Rect{0, 0, 50, 20}));
        window->sendEvent(mouse(EventType::mouseExited, {}));
        record.clear();
    }
    bool send(EventType type, Point at, std::uint32_t modifiers = 0) {
        return window->sendEvent(mouse(type, at, modifiers));
    }
    Record take() { return std::exchange(record, {}); }

    Record record;
    RecordingHost host;
    std::unique_ptr<Window> window = std::make_unique<Window>(&host);
    RecordingView *root = nullptr, *a = nullptr, *b = nullptr, *inner = nullptr;
};

TEST_F(WindowTest, PressIsCapturedUntilTheRelease) {
    send(EventType::mouseMoved, {60, 50});
    take();
    EXPECT_TRUE(send(EventType::mouseDown, {60, 50}));
    EXPECT_EQ(window->mouseCapture(), b);
    send(EventType::mouseDragged, {10, 50});
    send(EventType::mouseDragged, {-500, 900});
    send(EventType::mouseUp, {-500, 900});
    EXPECT_THAT(take(), ElementsAre("b down", "b dragged", "b dragged", "b up", "b exited", "root exited"));
    EXPECT_EQ(window->mouseCapture(), nullptr);
    EXPECT_FALSE(send(EventType::mouseDragged, {10, 50}));
    EXPECT_FALSE(send(EventType::mouseUp, {10, 50}));
}

TEST_F(WindowTest, NothingIsEnteredOrLeftWhileAViewHasThePointer) {
    send(EventType::mouseDown, {60, 50});
    take();
    EXPECT_FALSE(send(EventType::mouseMoved, {10, 50}));
    EXPECT_FALSE(send(EventType::mouseExited, {10, 50}));
    EXPECT_THAT(take(), IsEmpty());
    send(EventType::mouseUp, {10, 50});
    EXPECT_THAT(take(), ElementsAre("b up", "b exited", "a entered"));
}

TEST_F(WindowTest, PressOutsideOfTheContentIsNobodys) {
    EXPECT_FALSE(send(EventType::mouseDown, {200, 50}));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowTest, UnhandledPressGoesUpTheTree) {
    inner->passesOn = a->passesOn = true;
    send(EventType::mouseMoved, {10, 10});
    take();
    send(EventType::mouseDown, {10, 10});
    EXPECT_THAT(take(), ElementsAre("inner down", "a down", "root down"));
}

TEST_F(WindowTest, HoverIsToldToAncestorsToo) {
    send(EventType::mouseMoved, {10, 10});
    EXPECT_THAT(take(),
                ElementsAre("root entered", "a entered", "inner entered", "root moved", "a moved", "inner moved"));
    send(EventType::mouseMoved, {10, 50});
    EXPECT_THAT(take(), ElementsAre("inner exited", "root moved", "a moved"));
    send(EventType::mouseMoved, {60, 50});
    EXPECT_THAT(take(), ElementsAre("a exited", "b entered", "root moved", "b moved"));
    send(EventType::mouseExited, {-1, 50});
    EXPECT_THAT(take(), ElementsAre("b exited", "root exited"));
}

TEST_F(WindowTest, ScrollGoesToTheViewUnderThePointer) {
    EXPECT_TRUE(send(EventType::scrollWheel, {60, 50}));
    EXPECT_THAT(take(), ElementsAre("b scroll"));
    EXPECT_FALSE(send(EventType::scrollWheel, {600, 50}));
}

TEST_F(WindowTest, RightPressAsksUpTheTreeForAMenu) {
    send(EventType::mouseMoved, {10, 10});
    take();
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    EXPECT_TRUE(send(EventType::rightMouseDown, {10, 10}));
    EXPECT_THAT(take(), ElementsAre("inner menu", "a menu", "root menu"));
    EXPECT_THAT(host.menus, ElementsAre("root's"));
    EXPECT_EQ(host.menuPoint, (Point{10, 10}));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowTest, FirstViewThatAnswersGivesTheMenu) {
    a->menu = std::make_unique<Menu>(Menu{"a's", {}});
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::rightMouseDown, {10, 10});
    EXPECT_THAT(host.menus, ElementsAre("a's"));
}

TEST_F(WindowTest, RightPressWithoutAMenuIsAnEvent) {
    send(EventType::mouseMoved, {60, 50});
    take();
    EXPECT_TRUE(send(EventType::rightMouseDown, {60, 50}));
    EXPECT_THAT(take(), ElementsAre("b menu", "root menu", "b rightDown"));
    EXPECT_THAT(host.menus, IsEmpty());
}

TEST_F(WindowTest, RightPressInMidDragIsIgnored) {
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::mouseDown, {60, 50});
    send(EventType::rightMouseDown, {60, 50});
    EXPECT_THAT(host.menus, IsEmpty());
    EXPECT_EQ(window->mouseCapture(), b);
}

TEST_F(WindowTest, ControlClickIsARightClick) {
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::mouseMoved, {60, 50});
    take();
    send(EventType::mouseDown, {60, 50}, EventModifier::control);
    EXPECT_THAT(take(), ElementsAre("b menu", "root menu"));
    EXPECT_THAT(host.menus, ElementsAre("root's"));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowTest, ControlClickWithoutAMenuIsAPress) {
    send(EventType::mouseDown, {60, 50}, EventModifier::control);
    EXPECT_EQ(window->mouseCapture(), b);
    EXPECT_EQ(record.back(), "b down");
}

TEST_F(WindowTest, ControlClickWithOptionOrCommandIsAPress) {
    for (const auto more : {EventModifier::option, EventModifier::command}) {
        root->menu = std::make_unique<Menu>(Menu{"root's", {}});
        send(EventType::mouseDown, {60, 50}, EventModifier::control | more);
        send(EventType::mouseUp, {60, 50}, EventModifier::control | more);
    }
    EXPECT_THAT(host.menus, IsEmpty());
}

TEST_F(WindowTest, ClickMakesAViewThatAcceptsTheFirstResponder) {
    a->acceptsFirst = true;
    send(EventType::mouseDown, {60, 50});
    EXPECT_EQ(window->firstResponder(), nullptr);
    send(EventType::mouseUp, {60, 50});
    send(EventType::mouseDown, {10, 50});
    EXPECT_EQ(window->firstResponder(), a);
}

TEST_F(WindowTest, FirstResponderMayRefuseToResign) {
    ASSERT_TRUE(window->makeFirstResponder(a));
    a->mayResignFirst = false;
    EXPECT_FALSE(window->makeFirstResponder(b));
    EXPECT_EQ(window->firstResponder(), a);
    EXPECT_THAT(take(), ElementsAre("a become", "a resign"));
    EXPECT_TRUE(window->makeFirstResponder(a));
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(WindowTest, ResponderMayRefuseToBecomeFirst) {
    window->makeFirstResponder(a);
    b->mayBecomeFirst = false;
    EXPECT_FALSE(window->makeFirstResponder(b));
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(WindowTest, KeysGoUpFromTheFirstResponder) {
    window->makeFirstResponder(inner);
    take();
    inner->handlesKeys = false;
    EXPECT_TRUE(window->sendEvent(key(U'k')));
    EXPECT_THAT(take(), ElementsAre("inner key", "a key"));
    a->handlesKeys = root->handlesKeys = false;
    EXPECT_FALSE(window->sendEvent(key(U'k')));
}

TEST_F(WindowTest, KeysWithoutAFirstResponderAreTheHosts) {
    EXPECT_FALSE(window->sendEvent(key(U' ')));
    EXPECT_FALSE(window->sendEvent(key(Key::up, EventModifier::numericPad)));
    EXPECT_THAT(take(), ElementsAre("root equivalent", "a equivalent", "inner equivalent", "b equivalent"));
}

TEST_F(WindowTest, KeyEquivalentsComeBeforeTheFirstResponder) {
    window->makeFirstResponder(inner);
    take();
    a->handlesEquivalents = true;
    EXPECT_TRUE(window->sendEvent(key(U'z', EventModifier::command)));
    EXPECT_THAT(take(), ElementsAre("root equivalent", "a equivalent"));
    a->handlesEquivalents = false;
    EXPECT_TRUE(window->sendEvent(key(Key::left, EventModifier::numericPad)));
    EXPECT_THAT(take(),
                ElementsAre("root equivalent", "a equivalent", "inner equivalent", "b equivalent", "inner key"));
    window->sendEvent(key(U'z', EventModifier::shift));
    EXPECT_THAT(take(), ElementsAre("inner key"));
}

TEST_F(WindowTest, HiddenViewsGetNoKeyEquivalents) {
    a->setHidden(true);
    window->sendEvent(key(U'z', EventModifier::command));
    EXPECT_THAT(take(), ElementsAre("root equivalent", "b equivalent"));
}

TEST_F(WindowTest, KeyUpAndModifierChangesAreTheHosts) {
    window->makeFirstResponder(a);
    Event event = key(U'a');
    event.type = EventType::keyUp;
    EXPECT_FALSE(window->sendEvent(event));
    event.type = EventType::flagsChanged;
    EXPECT_FALSE(window->sendEvent(event));
}

TEST_F(WindowTest, RemovedViewIsForgotten) {
    send(EventType::mouseDown, {10, 10});
    window->makeFirstResponder(inner);
    a->removeFromSuperview();
    EXPECT_EQ(window->mouseCapture(), nullptr);
    EXPECT_EQ(window->firstResponder(), nullptr);
    take();
    send(EventType::mouseMoved, {10, 10});
    EXPECT_THAT(take(), ElementsAre("root moved"));
}

TEST_F(WindowTest, ViewMayBeDestroyedByItsOwnPress) {
    b->also = [this](const std::string& word) {
        if (word == "down") b->removeFromSuperview();
    };
    EXPECT_TRUE(send(EventType::mouseDown, {60, 50}));
    EXPECT_FALSE(send(EventType::mouseDragged, {61, 50}));
    EXPECT_FALSE(send(EventType::mouseUp, {61, 50}));
}

TEST_F(WindowTest, ViewsMayBeDestroyedWhileThePointerEnters) {
    root->also = [this](const std::string& word) {
        if (word == "entered") a->removeFromSuperview();
    };
    send(EventType::mouseMoved, {10, 10});
    EXPECT_THAT(take(), ElementsAre("root entered", "a willLeaveWindow", "inner willLeaveWindow", "inner outOfWindow",
                                    "a outOfWindow", "root moved"));
}

TEST_F(WindowTest, ViewsMayBeDestroyedWhileKeyEquivalentsAreOffered) {
    root->also = [this](const std::string& word) {
        if (word == "equivalent") a->removeFromSuperview();
    };
    window->sendEvent(key(U'z', EventModifier::command));
    EXPECT_EQ(record.back(), "b equivalent");
}

TEST_F(WindowTest, WindowMayBeDestroyedByAnyEvent) {
    const Event events[] = {mouse(EventType::mouseMoved, {60, 50}), mouse(EventType::mouseDown, {60, 50}),
                            mouse(EventType::rightMouseDown, {60, 50}), key(U'z', EventModifier::command)};
    for (const Event& event : events) {
        auto doomed = std::make_unique<Window>();
        auto& view = doomed->setContentView(std::make_unique<RecordingView>("v", record, Rect{0, 0, 100, 100}));
        view.also = [&doomed](const std::string& word) {
            if (word != "willLeaveWindow" && word != "outOfWindow") doomed.reset();
        };
        doomed->sendEvent(event);
        EXPECT_EQ(doomed, nullptr);
    }
}

TEST_F(WindowTest, WindowMayBeDestroyedByTheRelease) {
    send(EventType::mouseDown, {60, 50});
    b->also = [this](const std::string& word) {
        if (word == "up") window.reset();
    };
    window->sendEvent(mouse(EventType::mouseUp, {60, 50}));
    EXPECT_EQ(window, nullptr);
}

TEST_F(WindowTest, KeyChangesArePostedOnce) {
    std::vector<std::string> posted;
    auto& center = NotificationCenter::defaultCenter();
    const auto observe = [&](const char* name) {
        return center.observe(name, window.get(), [&](const Notification& n) { posted.push_back(n.name); });
    };
    const auto became = observe(Window::didBecomeKeyNotification), resigned = observe(Window::didResignKeyNotification);
    window->setKeyWindow(true);
    window->setKeyWindow(true);
    window->setKeyWindow(false);
    EXPECT_THAT(posted, ElementsAre(Window::didBecomeKeyNotification, Window::didResignKeyNotification));
}

TEST_F(WindowTest, IsVisibleAtFirstAndPostsEachChangeOnce) {
    EXPECT_TRUE(window->isVisible());
    std::vector<bool> seen;
    const auto token =
        NotificationCenter::defaultCenter().observe(Window::didChangeVisibilityNotification, window.get(),
                                                    [&](const Notification&) { seen.push_back(window->isVisible()); });
    for (const bool visible : {true, false, false, true})
        window->setVisible(visible);
    EXPECT_THAT(seen, ElementsAre(false, true));
}

TEST_F(WindowTest, FocusIsAskedOfTheHost) {
    window->makeKey();
    EXPECT_EQ(host.taken, 1);
    EXPECT_FALSE(window->isKeyWindow());
    window->resignKey();
    EXPECT_EQ(host.released, 1);
}

TEST_F(WindowTest, WithoutAHostTheWindowIsKeyAtOnce) {
    window->setHost(nullptr);
    window->makeKey();
    EXPECT_TRUE(window->isKeyWindow());
    window->resignKey();
    EXPECT_FALSE(window->isKeyWindow());
}

TEST_F(WindowTest, ScaleReachesEveryLayerThenEveryViewIsTold) {
    const auto deep = std::make_shared<Layer>();
    inner->layer()->addSublayer(deep);
    double seen = 0;
    root->also = [&](const std::string&) { seen = deep->contentsScale(); };
    window->setBackingScaleFactor(1.5);
    root->also = nullptr;
    EXPECT_EQ(seen, 1.5);
    EXPECT_THAT(take(), ElementsAre("root backing", "a backing", "inner backing", "b backing"));
    window->setBackingScaleFactor(1.5);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(WindowTest, ContentThatChangesItsSizeTellsTheHost) {
    root->setFrame({0, 0, 680, 320});
    root->setFrame({5, 0, 680, 320});
    EXPECT_THAT(host.sizes, ElementsAre(Size{680, 320}));
    a->setFrame({0, 0, 5, 5});
    EXPECT_EQ(host.sizes.size(), 1u);
}

TEST_F(WindowTest, ToolTipIsTheNearestAncestors) {
    a->setToolTip("A");
    EXPECT_EQ(window->toolTipAt({10, 10}), "A");
    inner->setToolTip("Inner");
    EXPECT_EQ(window->toolTipAt({10, 10}), "Inner");
    EXPECT_EQ(window->toolTipAt({60, 10}), "");
    EXPECT_EQ(window->toolTipAt({600, 10}), "");
}

TEST_F(WindowTest, CursorIsThatOfTheViewUnderThePointerOrOfWhatItLiesIn) {
    a->setCursor(Cursor::pointingHand);
    send(EventType::mouseMoved, {10, 10});
    send(EventType::mouseMoved, {60, 10});
    b->setCursor(Cursor::resizeUpDown);
    EXPECT_THAT(host.cursors, ElementsAre(Cursor::pointingHand, Cursor::arrow, Cursor::resizeUpDown));
}

TEST_F(WindowTest, PushedCursorHidesTheViewsOwn) {
    a->setCursor(Cursor::pointingHand);
    send(EventType::mouseMoved, {10, 10});
    window->pushCursor(Cursor::closedHand);
    window->pushCursor(Cursor::none);
    send(EventType::mouseMoved, {60, 10});
    window->popCursor();
    window->popCursor();
    window->popCursor(); // one too many does no harm
    EXPECT_THAT(host.cursors,
                ElementsAre(Cursor::pointingHand, Cursor::closedHand, Cursor::none, Cursor::closedHand, Cursor::arrow));
}

TEST_F(WindowTest, ContentViewIsHandedBack) {
    const std::unique_ptr<View> back = window->takeContentView();
    EXPECT_EQ(back.get(), root);
    EXPECT_EQ(back->window(), nullptr);
    EXPECT_EQ(window->takeContentView(), nullptr);
    EXPECT_FALSE(send(EventType::mouseDown, {10, 10}));
}

} // namespace
} // namespace QVM_NAMESPACE
