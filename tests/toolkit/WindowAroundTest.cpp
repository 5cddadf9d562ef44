#include "toolkit/WindowAround.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(WindowAround, IsFilledByAWindowOfItsSizeInItsCorner) {
    EXPECT_TRUE((WindowAround{{0, 0, 480, 320}, {480, 320}}.isFilled()));
    EXPECT_FALSE((WindowAround{{0, 0, 480, 320}, {680, 320}}.isFilled()));
    EXPECT_FALSE((WindowAround{{0, 1, 480, 320}, {480, 320}}.isFilled()));
    EXPECT_FALSE((WindowAround{{0, 0, 680, 320}, {480, 320}}.isFilled()));
}

TEST(WindowAround, IsUnknownWithoutAServerAndForWhatIsNoWindow) {
    XConnection connection;
    EXPECT_FALSE(windowAround(connection, 42).has_value());
    EXPECT_FALSE(windowAround(connection, 0).has_value());
}

} // namespace
} // namespace QVM_NAMESPACE
