// Responders, keys, what is told to the host and what comes from it.
#include "platform/view/Window.h"

#include "platform/runloop/NotificationCenter.h"
#include "platform/view/WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using WindowTest = WindowFixture;

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

TEST_F(WindowTest, AHandledKeyIsHeldUntilItsRelease) {
    Event up = key(U'a');
    up.type = EventType::keyUp;
    window->makeFirstResponder(a);
    EXPECT_FALSE(window->isKeyHeld());
    window->sendEvent(key(U'a'));
    EXPECT_TRUE(window->isKeyHeld());
    window->sendEvent(up);
    EXPECT_FALSE(window->isKeyHeld());
    a->handlesKeys = root->handlesKeys = false;
    window->sendEvent(key(U'a'));
    EXPECT_FALSE(window->isKeyHeld()) << "it is the host's";
    a->handlesEquivalents = true;
    window->sendEvent(key(Key::left, EventModifier::numericPad));
    EXPECT_TRUE(window->isKeyHeld());
}

TEST_F(WindowTest, WhoLosesTheKeyboardHoldsNoKey) {
    window->makeFirstResponder(a);
    window->setKeyWindow(true);
    window->sendEvent(key(U'a'));
    window->setKeyWindow(false);
    EXPECT_FALSE(window->isKeyHeld());
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
}

TEST_F(WindowTest, AWindowThatHasTheFocusAsksForNone) {
    window->setKeyWindow(true);
    window->makeKey();
    EXPECT_EQ(host.taken, 0);
}

TEST_F(WindowTest, WithoutAHostTheWindowIsKeyAtOnce) {
    window->setHost(nullptr);
    window->makeKey();
    EXPECT_TRUE(window->isKeyWindow());
}

TEST_F(WindowTest, ScaleReachesEveryLayerThenEveryViewIsTold) {
    const auto deep = std::make_shared<Layer>();
    inner->layer()->tree().add(deep);
    double seen = 0;
    root->also = [&](const std::string&) { seen = deep->look().contentsScale(); };
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

TEST_F(WindowTest, ContentViewIsHandedBack) {
    const std::unique_ptr<View> back = window->takeContentView();
    EXPECT_EQ(back.get(), root);
    EXPECT_EQ(back->window(), nullptr);
    EXPECT_EQ(window->takeContentView(), nullptr);
    EXPECT_FALSE(send(EventType::mouseDown, {10, 10}));
}

} // namespace
} // namespace QVM_NAMESPACE
