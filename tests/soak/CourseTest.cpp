#include "Course.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace slantwise_tests {
namespace {

constexpr long turns = 200;

// Work that is as much as so many yardsticks.
void work(int yardsticks) {
    static Yardstick yardstick;
    for (int i = 0; i < yardsticks; ++i)
        yardstick.run();
}

TEST(Course, FindsNothingWhereEachTurnIsLikeTheOther) {
    EXPECT_TRUE(Course(turns).run({.measured = [] {
        work(1);
        return 0U;
    }}));
}

TEST(Course, FindsWhatEachTurnLeavesBehind) {
    if (Footprint::now().heapBytes == 0) GTEST_SKIP() << "a sanitizer's allocator does not tell, it finds leaks itself";
    std::vector<std::unique_ptr<std::string>> left;
    EXPECT_FALSE(Course(turns).run({.measured = [&left] {
        left.push_back(std::make_unique<std::string>(4000, 'x'));
        return 0U;
    }}));
}

TEST(Course, LetsPassWhatIsMadeOnceInTheFirstHalf) {
    std::vector<std::unique_ptr<std::string>> made;
    EXPECT_TRUE(Course(turns).run({.measured = [&made] {
        if (made.size() < turns / 3) made.push_back(std::make_unique<std::string>(4000, 'x'));
        return 0U;
    }}));
}

TEST(Course, FindsAThreadThatStays) {
    std::thread staying;
    std::atomic<bool> isDone = false;
    long i = 0;
    EXPECT_FALSE(Course(turns).run({.measured = [&] {
        if (++i == turns - 1) staying = std::thread([&isDone] { isDone.wait(false); });
        return 0U;
    }}));
    isDone = true;
    isDone.notify_all();
    staying.join();
}

TEST(Course, FindsWorkThatGrows) {
    int i = 0;
    EXPECT_FALSE(Course(turns).run({.measured = [&i] {
        work(1 + i++ / 50);
        return 0U;
    }}));
}

// As with an editor that is mostly closed at first and mostly open later.
TEST(Course, ComparesTheWorkOfTurnsOfOneKind) {
    int i = 0;
    EXPECT_TRUE(Course(turns).run({.measured = [&i] {
        const bool isMuch = ++i % 4 == 0 || (i > turns / 2 && i % 4 != 1);
        work(isMuch ? 4 : 1);
        return isMuch ? 1U : 0U;
    }}));
}

TEST(Course, FindsWorkThatGrowsInTurnsOfOneKindAlone) {
    int i = 0;
    EXPECT_FALSE(Course(turns).run({.measured = [&i] {
        ++i;
        const bool isOther = i % 3 == 0;
        work(isOther ? 1 + i / 50 : 2);
        return isOther ? 1U : 0U;
    }}));
}

TEST(Course, WhatIsDoneBeforeIsNotCompared) {
    int i = 0;
    EXPECT_TRUE(Course(turns).run({.before = [&i] { work(i++ / 20); },
                                   .measured =
                                       [] {
                                           work(1);
                                           return 0U;
                                       }}));
}

TEST(Course, FindsNothingOfWhatComesToRest) {
    std::vector<std::string> held;
    EXPECT_TRUE(Course(turns).run({.measured =
                                       [&held] {
                                           held.emplace_back(40000, 'x');
                                           return 0U;
                                       },
                                   .rest = [&held] { held = {}; }}));
}

} // namespace
} // namespace slantwise_tests
