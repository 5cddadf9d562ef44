#include "platform/view/Responder.h"

#include "platform/view/RecordingView.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class Last : public Responder {
public:
    int presses = 0, keys = 0;
    void mouseDown(const Event&) override { ++presses; }
    void mouseDragged(const Event&) override { ++presses; }
    void mouseUp(const Event&) override { ++presses; }
    void rightMouseDown(const Event&) override { ++presses; }
    void scrollWheel(const Event&) override { ++presses; }
    bool keyDown(const Event&) override { return ++keys, true; }
};

TEST(Responder, PassesOnWhatItDoesNotHandle) {
    Last last;
    Responder middle, first;
    first.setNextResponder(&middle);
    middle.setNextResponder(&last);
    const Event event;
    first.mouseDown(event);
    first.mouseDragged(event);
    first.mouseUp(event);
    first.rightMouseDown(event);
    first.scrollWheel(event);
    EXPECT_EQ(last.presses, 5);
    EXPECT_TRUE(first.keyDown(event));
    EXPECT_EQ(last.keys, 1);
}

TEST(Responder, NobodyHandlesAKeyAtTheEndOfTheChain) {
    Responder middle, first;
    first.setNextResponder(&middle);
    EXPECT_FALSE(first.keyDown({}));
    first.mouseDown({});
}

TEST(Responder, KeyEquivalentsAreNotPassedOn) {
    Record record;
    RecordingView next("next", record, {});
    next.handlesEquivalents = true;
    Responder first;
    first.setNextResponder(&next);
    EXPECT_FALSE(first.performKeyEquivalent({}));
    EXPECT_TRUE(record.empty());
}

TEST(Responder, DestroyedAsFirstResponderLeavesNone) {
    Window window;
    {
        Last first;
        EXPECT_TRUE(window.makeFirstResponder(&first));
        EXPECT_TRUE(window.sendEvent(key(U'a')));
    }
    EXPECT_EQ(window.firstResponder(), nullptr);
    EXPECT_FALSE(window.sendEvent(key(U'a')));
}

TEST(Responder, OutlivesTheWindowWhoseFirstResponderItWas) {
    Last first;
    {
        Window window;
        window.makeFirstResponder(&first);
    }
    Window other;
    EXPECT_TRUE(other.makeFirstResponder(&first));
}

} // namespace
} // namespace QVM_NAMESPACE
