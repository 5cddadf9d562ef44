#include "toolkit/XConnection.h"

#include <gtest/gtest.h>

#include <string>

namespace QVM_NAMESPACE {
namespace {

TEST(XConnection, ThereIsNoneToADeadDisplay) {
    XConnection connection;
    EXPECT_EQ(connection.get(), nullptr);
    EXPECT_EQ(connection.get(), nullptr);
}

TEST(XConnection, ThereIsNoneWhereNoDisplayIsNamed) {
    const std::string display = std::getenv("DISPLAY");
    unsetenv("DISPLAY");
    XConnection connection;
    EXPECT_EQ(connection.get(), nullptr);
    setenv("DISPLAY", display.c_str(), 1);
}

} // namespace
} // namespace QVM_NAMESPACE
