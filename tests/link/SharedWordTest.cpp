#include "link/SharedWord.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

TEST(SharedWord, IsReadWrittenAndCopiedLikeAPlainWord) {
    SharedWord<float> word = 2.5f;
    EXPECT_EQ(word, 2.5f);
    word = 3.0f;
    const SharedWord<float> copy = word;
    word = 4.0f;
    EXPECT_EQ(copy, 3.0f);
    word = copy;
    EXPECT_EQ(word, 3.0f);
    EXPECT_EQ(word.exchange(5), 3.0f);
    EXPECT_EQ(word.exchangeOrdered(6), 5.0f);
    EXPECT_EQ(word.loadOrdered(), 6.0f);
}

TEST(SharedWord, IsRaisedByWhatIsGreaterOnly) {
    SharedWord<float> word = 1.0f;
    word.raiseTo(2);
    EXPECT_EQ(word, 2.0f);
    word.raiseTo(1.5f);
    EXPECT_EQ(word, 2.0f);
    word.raiseTo(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(word, 2.0f);
}

TEST(SharedWord, TheHighestOfSeveralThreadsStays) {
    constexpr int writers = 4, values = 20000;
    SharedWord<int> word = 0;
    std::vector<std::thread> threads;
    for (int writer = 0; writer < writers; ++writer)
        threads.emplace_back([&word, writer] {
            for (int i = 0; i < values; ++i)
                word.raiseTo(i * writers + writer);
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(word, values * writers - 1);
}

// What was written before an ordered store is there after an ordered load of it.
TEST(SharedWord, AnOrderedStoreCarriesWhatWasWrittenBefore) {
    SharedWord<int> value = 0, flag = 0;
    std::thread writer([&] {
        for (int i = 1; i <= 20000; ++i) {
            value = i;
            flag.storeOrdered(i);
        }
    });
    int behind = 0;
    for (int seen = 0; seen < 20000;) {
        seen = flag.loadOrdered();
        if (value < seen) ++behind;
    }
    writer.join();
    EXPECT_EQ(behind, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
