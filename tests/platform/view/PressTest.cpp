#include "platform/view/Press.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

bool isClickAfter(const std::vector<Point>& way) {
    Press press;
    press.beginAt({60, 50});
    for (const Point at : way)
        press.moveTo(at);
    return press.isClick();
}

TEST(Press, IsAClickUntilItHasGoneFurtherThanAHandTrembles) {
    EXPECT_TRUE(isClickAfter({}));
    EXPECT_TRUE(isClickAfter({{62, 51}, {60, 54}, {58, 47}}));
    EXPECT_FALSE(isClickAfter({{60, 55}}));
    EXPECT_FALSE(isClickAfter({{63, 53}})) << "askew";
    EXPECT_FALSE(isClickAfter({{70, 50}, {60, 50}})) << "there and back";
}

TEST(Press, IsAnotherOneFromItsBeginOn) {
    Press press;
    press.beginAt({60, 50});
    press.moveTo({90, 50});
    EXPECT_EQ(press.pointer(), (Point{90, 50}));
    press.beginAt({10, 20});
    EXPECT_EQ(press.pointer(), (Point{10, 20}));
    press.moveTo({12, 20});
    EXPECT_TRUE(press.isClick());
}

} // namespace
} // namespace QVM_NAMESPACE
