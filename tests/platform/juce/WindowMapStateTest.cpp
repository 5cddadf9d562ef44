#include "platform/juce/WindowMapState.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(WindowMapState, WhatIsNoWindowIsTakenForViewable) {
    WindowMapState state;
    EXPECT_TRUE(state.isViewable(0));
}

TEST(WindowMapState, WithoutAServerNobodyCanSayOtherwise) {
    WindowMapState state;
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(state.isViewable(42));
}

} // namespace
} // namespace QVM_NAMESPACE
