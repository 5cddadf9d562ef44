#include "tools/render/ProgressText.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

TEST(ProgressText, TellsShareFilesAndTimeLeft) {
    EXPECT_EQ(progressText({0.5, 10, 3, 8}, 80),
              "[===================>                    ]   50 %  3 of 8 files  0:10 left");
    EXPECT_EQ(progressText({0, 0, 0, 1}, 80), "[                                        ]    0 %");
    EXPECT_EQ(progressText({1, 3, 1, 1}, 80), "[========================================]  100 %  0:00 left");
}

TEST(ProgressText, SaysNothingOfTheTimeBeforeItCan) {
    EXPECT_EQ(progressText({0.9, 0.4, 0, 1}, 80).find("left"), std::string::npos);
    EXPECT_EQ(progressText({0.009, 5, 0, 1}, 80).find("left"), std::string::npos);
}

TEST(ProgressText, NeverIsWiderThanTheTerminal) {
    for (std::size_t width = 0; width < 90; ++width)
        for (const double share : {0.0, 0.1, 0.99, 1.0, 7.0})
            EXPECT_LE(progressText({share, 100, 3, 8}, width).size(), width);
    EXPECT_EQ(progressText({0.5, 10, 3, 8}, 30), " 50 %  3 of 8 files  0:10 left");
    EXPECT_EQ(progressText({0.5, 10, 3, 8}, 20), " 50 %  3 of 8 files");
    EXPECT_EQ(progressText({0.5, 10, 0, 1}, 30), "[====>     ]   50 %  0:10 left");
}

TEST(ProgressText, TimesAreRoundedUp) {
    EXPECT_EQ(durationText(0), "0:00");
    EXPECT_EQ(durationText(6.1), "0:07");
    EXPECT_EQ(durationText(754), "12:34");
    EXPECT_EQ(durationText(3723), "1:02:03");
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
