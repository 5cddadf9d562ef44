#include "toolkit/WindowMapState.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(WindowMapState, WhatIsNoWindowIsTakenForViewable) {
    XConnection connection;
    EXPECT_TRUE(isWindowViewable(connection, 0));
}

TEST(WindowMapState, WithoutAServerNobodyCanSayOtherwise) {
    XConnection connection;
    EXPECT_TRUE(isWindowViewable(connection, 42));
}

} // namespace
} // namespace QVM_NAMESPACE
