// The levels at which the response display draws its grid.
#include "SketchFixture.h"
#include "viz/sketches/QVMFreqResp.h"

#include <gmock/gmock.h>

#include <limits>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

QVMFreqResp makeDisplay() {
    QVMFreqResp display;
    display.init(curveCanvas(54, 62, 2), 0.5f, {4, 24000}, {-7.5f, 7.5f}, 1);
    return display;
}

TEST(FreqRespGrid, GridLinesStandEverySixDecibelsFromTheReference) {
    QVMFreqResp display = makeDisplay();
    EXPECT_THAT(display.gridLevels(), ElementsAre(-12, -6, 6));
    display.referenceLevel = 1;
    EXPECT_THAT(display.gridLevels(), ElementsAre(-11, -5, 7));
    display.dbRange = {-19.5f, 19.5f};
    EXPECT_THAT(display.gridLevels(), ElementsAre(-23, -17, -11, -5, 7, 13, 19));
}

TEST(FreqRespGrid, AReferenceThatNoSettingsGiveHasNoGrid) {
    QVMFreqResp display = makeDisplay();
    display.referenceLevel = -100;
    EXPECT_EQ(display.gridLevels().front(), -112);
    EXPECT_EQ(display.gridLevels().back(), 2);
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const float reference : {-1e6f, -1e30f, -infinity, 1e30f, infinity, std::numeric_limits<float>::quiet_NaN()}) {
        display.referenceLevel = reference;
        EXPECT_TRUE(display.gridLevels().empty()) << reference;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
