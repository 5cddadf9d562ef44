#include "response/ResponseModel.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE::model {
namespace {

// By a calculator.
TEST(ResponseModel, WeighsFrequenciesByFourSlopes) {
    const struct {
        double hertz, weight;
    } rows[] = {{4, 1.897158510317814e-4},    {20, 5.873424010061139e-3},   {63, 2.6746944115329793e-2},
                {500, 2.8208971806413366e-2}, {1000, 1.787589878766238e-2}, {5000, 2.8143572084716427e-3},
                {24000, 1.930317676463613e-5}};
    for (const auto& row : rows)
        EXPECT_NEAR(loudnessWeight(row.hertz), row.weight, 1e-12 * row.weight) << row.hertz << " Hz";
}

TEST(ResponseModel, CountsTheLowerMiddleLoudest) {
    double loudest = 0;
    for (double hertz = lowestHertz; hertz < highestHertz; hertz *= 1.01)
        if (loudnessWeight(hertz) > loudnessWeight(loudest > 0 ? loudest : lowestHertz)) loudest = hertz;
    EXPECT_NEAR(loudest, 169, 2);
}

} // namespace
} // namespace QVM_NAMESPACE::model
