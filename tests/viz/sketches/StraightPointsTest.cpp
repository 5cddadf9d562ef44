#include "viz/sketches/StraightPoints.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class StraightPoints : public testing::Test {
protected:
    void drop(float straightness) {
        const std::size_t kept = dropStraightPoints(xs, ys, xs.size(), straightness);
        xs.resize(kept);
        ys.resize(kept);
    }
    std::vector<float> xs, ys;
};

TEST_F(StraightPoints, OfALineTheFirstTwoAndTheLastAreLeft) {
    xs = {0, 1, 2, 3, 4};
    ys = {0, 2, 4, 6, 8};
    drop(0);
    EXPECT_THAT(xs, ElementsAre(0, 1, 4));
    EXPECT_THAT(ys, ElementsAre(0, 2, 8));
}

TEST_F(StraightPoints, APointThatTurnsAwayFromTheLastTwoIsKept) {
    xs = {0, 1, 2, 3, 4, 5};
    ys = {0, 0, 0, 3, 3, 3};
    drop(0);
    EXPECT_THAT(xs, ElementsAre(0, 1, 3, 4, 5)) << "the one before the turn went on straight";
    EXPECT_THAT(ys, ElementsAre(0, 0, 3, 3, 3));
}

TEST_F(StraightPoints, HowLittleAPointMayTurnTheLineIsTheCallers) {
    xs = {0, 1, 2, 3};
    ys = {0, 0, 0.01f, 0.02f};
    drop(0.1f); // twice the area is 0.01, and a quarter of a tenth is more
    EXPECT_THAT(xs, ElementsAre(0, 1, 3));
    xs = {0, 1, 2, 3};
    ys = {0, 0, 0.01f, 0.02f};
    drop(0.01f);
    EXPECT_THAT(xs, ElementsAre(0, 1, 2, 3));
}

TEST_F(StraightPoints, FewerThanThreePointsAreALine) {
    xs = ys = {1, 2};
    drop(1);
    EXPECT_THAT(xs, ElementsAre(1, 2));
    xs = ys = {};
    drop(1);
    EXPECT_TRUE(xs.empty());
}

} // namespace
} // namespace QVM_NAMESPACE
