#include "platform/juce/HostFocus.h"

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
}

} // namespace
} // namespace QVM_NAMESPACE
