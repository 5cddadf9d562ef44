#include "platform/view/Control.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {
namespace {

TEST(Control, SendsItsActionWithItselfAsTheSender) {
    Control control;
    EXPECT_FALSE(control.sendAction());
    Control* sender = nullptr;
    control.setAction([&](Control& c) { sender = &c; });
    EXPECT_TRUE(control.sendAction());
    EXPECT_EQ(sender, &control);
}

TEST(Control, ActionMayReplaceItself) {
    Control control;
    int first = 0, second = 0;
    control.setAction([&](Control& c) {
        c.setAction([&second](Control&) { ++second; });
        ++first;
    });
    control.sendAction();
    control.sendAction();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TEST(Control, ActionMayDestroyTheControl) {
    auto control = std::make_unique<Control>();
    int calls = 0;
    control->setAction([&](Control&) {
        control.reset();
        ++calls;
    });
    control->sendAction();
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace QVM_NAMESPACE
