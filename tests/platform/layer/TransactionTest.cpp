#include "platform/layer/Transaction.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(TransactionTest, ChangesAreImmediateOutsideOfAny) {
    EXPECT_EQ(Transaction::currentDuration(), 0);
}

TEST(TransactionTest, TheInnermostCounts) {
    const auto outer = Transaction::animated(0.5, TimingFunction::easeOut);
    EXPECT_EQ(Transaction::currentDuration(), 0.5);
    EXPECT_EQ(Transaction::currentTiming(), TimingFunction::easeOut);
    {
        const auto still = Transaction::disablingActions();
        EXPECT_EQ(Transaction::currentDuration(), 0);
        {
            const auto inner = Transaction::animated(0.1);
            EXPECT_EQ(Transaction::currentDuration(), 0.1);
            EXPECT_EQ(Transaction::currentTiming(), TimingFunction::easeInEaseOut);
        }
        EXPECT_EQ(Transaction::currentDuration(), 0);
    }
    EXPECT_EQ(Transaction::currentDuration(), 0.5);
}

} // namespace
} // namespace QVM_NAMESPACE
