// The marks beside a track by themselves.
#include "controls/SliderScale.h"

#include "controls/Gestures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::UnorderedElementsAre;

const SliderScaleGeometry kLying = {
    .horizontal = true, .edge = 20, .farEdge = 100, .lowest = 0, .highest = 100, .devicePixels = 1};
const SliderScaleGeometry kUpright = {
    .horizontal = false, .edge = 20, .farEdge = 60, .lowest = 0, .highest = 100, .devicePixels = 1};

std::vector<float> valuesOf(const SliderScale& scale) {
    std::vector<float> values;
    for (const QVMCueRect& cue : scale.cueRects())
        values.push_back(cue.value);
    return values;
}

QVMParameter marked(std::vector<float> values) {
    return parameterLike(pidTiltGain, [&](QVMParameter& p) {
        p.tickmarks = {};
        p.cueSymbols = {};
        p.cueSymbolPositions = std::move(values);
    });
}

double identity(float value) {
    return static_cast<double>(value);
}

TEST(SliderScale, MarksTooNearTheEndsGiveWayToThem) {
    SliderScale scale;
    scale.layOut(marked({0, 4, 50, 93, 100}), kUpright, identity);
    EXPECT_THAT(valuesOf(scale), UnorderedElementsAre(0, 50, 100));
}

TEST(SliderScale, ItsLinesHaveTheThemesColourWheneverItIsLaidOut) {
    SliderScale scale;
    const auto lineColor = [&scale] {
        scale.layOut(marked({0, 50, 100}), kUpright, identity);
        return dynamic_cast<const ShapeLayer&>(*scale.layer()->tree().sublayers().at(0)).fillColor();
    };
    EXPECT_EQ(lineColor(), QVMUITheme::light().palette.tick);
    const DarkTheme dark;
    EXPECT_EQ(lineColor(), QVMUITheme::dark().palette.tick);
}

TEST(SliderScale, TextsBelowATrackNeedMoreRoomThanTextsBesideOne) {
    SliderScale scale;
    scale.layOut(marked({0, 20, 40, 60, 80, 100}), kUpright, identity);
    EXPECT_EQ(scale.cueRects().size(), 6u);
    scale.layOut(marked({0, 20, 40, 60, 80, 100}), kLying, identity);
    EXPECT_LT(scale.cueRects().size(), 6u);
}

TEST(SliderScale, CuesLieBetweenTheTrackAndTheFarSideOfTheirTexts) {
    SliderScale scale;
    scale.layOut(marked({50}), kUpright, identity);
    ASSERT_EQ(scale.cueRects().size(), 1u);
    EXPECT_TRUE(scale.cueRects()[0].rect.contains(Point{21, 50}));
    EXPECT_TRUE(scale.cueRects()[0].rect.contains(Point{59, 53}));
    EXPECT_FALSE(scale.cueRects()[0].rect.contains(Point{30, 57}));
    scale.layOut(marked({50}), kLying, identity);
    EXPECT_TRUE(scale.cueRects()[0].rect.contains(Point{50, 19}));
    EXPECT_FALSE(scale.cueRects()[0].rect.contains(Point{50, 21})); // the track itself
}

TEST(SliderScale, SymbolsWithoutValuesStandAtEvenDistances) {
    const QVMParameter parameter = parameterLike(pidTiltGain, [](QVMParameter& p) {
        p.tickmarks = p.cueSymbolPositions = {};
        p.cueSymbols = {"a", "b", "c"};
    });
    SliderScale scale;
    scale.layOut(parameter, kLying, identity);
    ASSERT_EQ(scale.cueRects().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(scale.cueRects()[i].indexed);
        EXPECT_DOUBLE_EQ(scale.cueRects()[i].rect.midX(), 50.0 * static_cast<double>(i));
    }
}

TEST(SliderScale, LayingOutAgainReplacesWhatWasThere) {
    SliderScale scale;
    scale.layOut(marked({0, 50, 100}), kUpright, identity);
    const std::size_t layers = scale.layer()->tree().sublayers().size();
    scale.layOut(marked({0, 50, 100}), kUpright, identity);
    EXPECT_EQ(scale.layer()->tree().sublayers().size(), layers);
    EXPECT_EQ(scale.cueRects().size(), 3u);
}

TEST(SliderScale, AParameterWithoutMarksHasNone) {
    EXPECT_FALSE(SliderScale::hasMarks(*GetParameter(pidTiltRangeLow)));
    EXPECT_TRUE(SliderScale::hasMarks(*GetParameter(pidTiltGain)));
    SliderScale scale;
    scale.layOut(*GetParameter(pidTiltRangeLow), kLying, identity);
    EXPECT_TRUE(scale.cueRects().empty());
}

} // namespace
} // namespace QVM_NAMESPACE
