// Without a display; what happens on one is in the tests of keys inside hosts.
#include "toolkit/HostFocus.h"

#include "toolkit/NativePeer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(HostFocus, WithoutADisplayNobodyGetsAKey) {
    XConnection connection;
    HostFocus focus(connection);
    focus.remember(42);
    focus.giveBack(42);
    EXPECT_FALSE(focus.sendKey(42, {65, false, true, false, 0, 0}));
}

} // namespace
} // namespace QVM_NAMESPACE
