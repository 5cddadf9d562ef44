#include "platform/juce/HostFocus.h"

#include "platform/juce/NativePeer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace QVM_NAMESPACE {
namespace {

TEST(HostFocus, WithoutADisplayNothingHappens) {
    const std::string display = std::getenv("DISPLAY");
    unsetenv("DISPLAY");
    HostFocus focus;
    focus.remember(42);
    focus.giveBack(42);
    setenv("DISPLAY", display.c_str(), 1);
}

TEST(HostFocus, DeadDisplayIsNoDisplay) {
    HostFocus focus;
    focus.remember(42);
    focus.giveBack(42);
    EXPECT_FALSE(focus.sendKey(42, {65, false, true, false, 0, 0}));
}

} // namespace
} // namespace QVM_NAMESPACE
