#include "editor/surface/CurveReadout.h"

#include "description/NumberText.h"
#include "editor/surface/CurveNumbersFixture.h"
#include "editor/surface/CurveTexts.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/NearestNote.h"
#include "viz/sketches/ReferenceResponse.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using CurveReadoutTest = CurveNumbersFixture;

TEST_F(CurveReadoutTest, NearThePointerAHairLineTellsWhatTheFormulasGive) {
    hostSets(pidTiltGain, 9);
    frames(1);
    reference::Settings settings{};
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        settings[pid] = double{memoized(pid)};
    const reference::Response expected = reference::evaluate(settings, object().numPoints());
    for (std::size_t i = 20; i < expected.frequency.size(); i += 31) {
        const double hertz = expected.frequency[i], x = scale().xOf(hertz);
        if (numbers().hitTest({x, 150}) != &numbers()) continue; // a corner
        pointTo({x, 150});
        ASSERT_TRUE(readout().isShown());
        EXPECT_EQ(readout().content().frequency, frequencyText(hertz));
        EXPECT_EQ(readout().content().level, levelText(expected.total[i] - expected.reference)) << hertz;
        EXPECT_EQ(readout().content().note, nearestNote(hertz).name);
        EXPECT_EQ(readout().content().cents, "");
        EXPECT_NEAR(readout().content().at.x, x, 0.01);
    }
    pointOut();
    EXPECT_FALSE(readout().isShown());
}

TEST_F(CurveReadoutTest, WhereTheCurveHasLeftTheBoxItIsToldWithoutADot) {
    hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(1000));
    frames(1);
    pointTo({150, 150});
    EXPECT_THAT(shownLayers(), Contains("curveDot"));
    pointTo({60, 150});
    EXPECT_THAT(shownLayers(), AllOf(Contains("hairLine"), Not(Contains("curveDot"))));
    EXPECT_THAT(readout().content().level, HasSubstr(std::string(minusSign)));
}

TEST_F(CurveReadoutTest, AMoveOfThePointerDrawsItsTextsAgainAndNothingElse) {
    pointTo({90, 150});
    drawnAgain();
    pointTo({120, 150});
    EXPECT_THAT(drawnAgain(), ElementsAre("readFrequency", "readNote")) << "the level is the same, and lines move";
    hostSets(pidTiltGain, 6);
    frames(1);
    drawnAgain();
    pointTo({90, 150});
    EXPECT_THAT(drawnAgain(), ElementsAre("readFrequency", "readLevel", "readNote"));
    EXPECT_THAT(drawFrame().rasterised, IsEmpty());
    EXPECT_THAT(drawFrame().damage, IsEmpty());
    EXPECT_FALSE(renderer_.isAnimating());
}

TEST_F(CurveReadoutTest, WhatTheCurveSaysFollowsAGlideUnderARestingPointer) {
    pointTo({150, 150});
    const std::string before = readout().content().level;
    hostSets(pidTiltGain, 12);
    frames(1);
    EXPECT_NE(readout().content().level, before);
    EXPECT_THAT(readout().content().level, HasSubstr("+"));
}

TEST_F(CurveReadoutTest, ThePlateKeepsAwayFromTheFrameButtonAndMarksGiveWayToIt) {
    const Rect button = FrameButton::placeIn({0, 0, 200, 200}, FrameButton::inset);
    for (const float gain : {0.0f, 6.0f, -18.0f}) {
        hostSets(pidTiltGain, gain);
        frames(1);
        for (double x = 0; x < 200; x += 5) {
            pointTo({x, 140});
            const auto [plate, hairLine] = readout().frames();
            ASSERT_TRUE((Rect{0, 0, 200, 200}.contains(plate))) << x;
            ASSERT_FALSE(plate.intersects(button)) << x;
            for (const auto& layer : numbers().marks().layer()->tree().sublayers()) {
                const bool isMark = !layer->isHidden() && layer->name().starts_with("curveMark:");
                ASSERT_FALSE(isMark && layer->frame().intersects(plate)) << layer->name() << " at " << x;
                ASSERT_FALSE(isMark && layer->frame().intersects(hairLine)) << layer->name() << " at " << x;
            }
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
