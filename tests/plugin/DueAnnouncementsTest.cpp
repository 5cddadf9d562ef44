#include "plugin/DueAnnouncements.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(DueAnnouncements, AreCollectedAndTakenOnce) {
    DueAnnouncements due;
    EXPECT_EQ(due.take(), 0U);
    due.add(1U << 3);
    due.add(1U << 24 | 1U << 3);
    EXPECT_EQ(due.take(), 1U << 24 | 1U << 3);
    EXPECT_EQ(due.take(), 0U);
}

} // namespace
} // namespace QVM_NAMESPACE
