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

TEST(FreqRespGrid, GridLinesAreAFewInSightWhereverTheReferenceIs) {
    QVMFreqResp display = makeDisplay();
    for (const float reference : {-7.5f, -100.0f, -1e6f, -1e30f, -std::numeric_limits<float>::infinity(), 1e30f,
                                  std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
        display.referenceLevel = reference;
        EXPECT_LE(display.gridLevels().size(), 7U) << reference;
    }
    display.referenceLevel = -100;
    EXPECT_THAT(display.gridLevels(), ElementsAre(-10, -4, 2));
    display.referenceLevel = -7.5f;
    EXPECT_THAT(display.gridLevels(), ElementsAre(-1.5f, 4.5f));
}

} // namespace
} // namespace QVM_NAMESPACE
