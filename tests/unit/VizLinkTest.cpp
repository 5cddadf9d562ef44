// How a unit's values reach the drawing object, and who is asked for a frame.
#include "unit/VizLinkFixture.h"

#include "description/Description.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>

namespace QVM_NAMESPACE {
namespace {

float hostValue(std::uint32_t pid, float shown) {
    return GetParameter(pid)->reverseCastValue(shown);
}

using VizLinkTest = VizLinkFixture;

TEST_F(VizLinkTest, ANewObjectGetsEveryParameterAndGlidesThere) {
    set(pidTiltGain, -7);
    link.exchange(&drawing->sharedState);
    EXPECT_EQ(link.state(), &drawing->sharedState);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const float shown = GetParameter(pid)->heldValueFromHostValue(parameters.value(pid));
        EXPECT_EQ(posted(pid), shown) << pid;
        EXPECT_EQ(drawing->interpTargets()[pid], shown) << pid;
    }
    EXPECT_EQ(posted(pidTiltGain), -7);
    EXPECT_TRUE(drawing->isInterpolating());
    endGlide();
    EXPECT_EQ(drawing->parameterStates()[pidTiltGain].displayValue, -7);
}

TEST_F(VizLinkTest, AnObjectThatShowsTheValuesAlreadyGlidesAllTheSame) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        drawing->parameterStates()[pid].value = drawing->interpTargets()[pid] =
            GetParameter(pid)->heldValueFromHostValue(parameters.value(pid));
    link.exchange(&drawing->sharedState);
    EXPECT_TRUE(drawing->isInterpolating()) << "its first picture is made in a glide";
}

TEST_F(VizLinkTest, AChangeIsPostedAtOnceInTheShownDomain) {
    link.exchange(&drawing->sharedState);
    endGlide();
    ASSERT_FALSE(drawing->isInterpolating());
    set(pidTiltRangeLow, 12005);
    EXPECT_NEAR(posted(pidTiltRangeLow), 489.9f, 1e-3);
    EXPECT_EQ(drawing->interpTargets()[pidTiltRangeLow], posted(pidTiltRangeLow));
    EXPECT_TRUE(drawing->parameterStates()[pidTiltRangeLow].interpolating);
    EXPECT_FALSE(drawing->parameterStates()[pidTiltRangeHigh].interpolating);
    EXPECT_TRUE(drawing->isInterpolating());
}

TEST_F(VizLinkTest, AValueThatIsThereAlreadyStartsNoGlide) {
    link.exchange(&drawing->sharedState);
    set(pidTiltRangeLow, 12005);
    endGlide();
    set(pidTiltRangeLow, 12005);
    link.allParametersChanged();
    EXPECT_FALSE(drawing->isInterpolating());
    EXPECT_FALSE(drawing->parameterStates()[pidTiltRangeLow].interpolating);
}

// What any control of the editor can send, for every parameter but the hidden link switches, which read clamped.
TEST_F(VizLinkTest, AValueThatWasStoredAgainIsSaidToBe) {
    link.exchange(&drawing->sharedState);
    drawing->takeStoredParameters();
    EXPECT_EQ(drawing->takeStoredParameters(), 0U);
    set(pidTiltGain, 0);
    EXPECT_EQ(drawing->takeStoredParameters(), 1U << pidTiltGain) << "the one that was there";
    EXPECT_EQ(drawing->takeStoredParameters(), 0U);
}

TEST_F(VizLinkTest, AValueThatTheEditorSentComesBackBitForBit) {
    link.exchange(&drawing->sharedState);
    std::mt19937 random(15);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        std::uniform_real_distribution<float> position(0, 1);
        for (int i = 0; i < 3000; ++i) {
            const std::uint32_t granularity = i % 2 ? QVMGranularityFine : QVMGranularityNormal;
            const float sent = parameter.normalizedFloatValueFromPercent(position(random), granularity);
            if (parameter.castValue(hostValue(pid, sent)) < parameter.minValue) continue;
            set(pid, hostValue(pid, sent));
            ASSERT_EQ(posted(pid), parameter.heldValueFromHostValue(hostValue(pid, sent)));
            ASSERT_NEAR(posted(pid), sent, parameter.fineGranularity * 0.51f) << pid;
            if (i % 2 == 0) continue;
            ASSERT_EQ(posted(pid), sent) << pid;
        }
    }
}

TEST_F(VizLinkTest, NothingIsWrittenBeforeAnObjectIsThereOrAfterItWasTaken) {
    set(pidTiltGain, 3);
    link.exchange(&drawing->sharedState);
    EXPECT_EQ(posted(pidTiltGain), 3);
    link.exchange(nullptr);
    EXPECT_EQ(link.state(), nullptr);
    set(pidTiltGain, 5);
    link.postLevels(std::array{1.0f, 1.0f}, blockSeconds);
    EXPECT_EQ(posted(pidTiltGain), 3);
    EXPECT_EQ(level(0), -96);
    link.exchange(&drawing->sharedState);
    EXPECT_EQ(posted(pidTiltGain), 5) << "the next one is up to date";
}

TEST_F(VizLinkTest, AnObjectWithFewerParametersGetsThose) {
    drawing->sizeStates(2);
    link.exchange(&drawing->sharedState);
    set(pidOutputGain, -3);
    set(pidTiltGain, 4);
    EXPECT_EQ(posted(pidTiltGain), 4);
}

TEST_F(VizLinkTest, ABlocksPeaksAreTheMetersLevels) {
    link.exchange(&drawing->sharedState);
    link.postLevels(std::array{1.0f, 0.1f}, blockSeconds);
    EXPECT_NEAR(level(0), 0, 1e-4);
    EXPECT_NEAR(level(1), -20, 1e-4);
    link.postLevels(std::array{0.0f, 8.0f}, blockSeconds);
    EXPECT_EQ(level(0), -96);
    EXPECT_EQ(level(1), 12);
}

TEST_F(VizLinkTest, OneOutputShowsOnBothChannels) {
    link.exchange(&drawing->sharedState);
    link.postLevels(std::array{0.5f}, blockSeconds);
    EXPECT_NEAR(level(0), -6.0206f, 1e-3);
    EXPECT_EQ(level(1), level(0));
}

TEST_F(VizLinkTest, WhateverIsPostedAsksForAFrame) {
    link.exchange(&drawing->sharedState);
    EXPECT_TRUE(drawing->takeFrameRequest());
    EXPECT_FALSE(drawing->takeFrameRequest());
    set(pidTiltGain, 5);
    EXPECT_TRUE(drawing->takeFrameRequest());
    set(pidTiltGain, 5);
    EXPECT_TRUE(drawing->takeFrameRequest()) << "an editor may have sent another value, which it is not";
    link.postLevels(std::array{0.0f, 1e-3f}, blockSeconds);
    EXPECT_TRUE(drawing->takeFrameRequest());
}

TEST_F(VizLinkTest, SilenceAsksForNoFrame) {
    link.exchange(&drawing->sharedState);
    drawing->takeFrameRequest();
    link.postLevels(std::array{0.0f, 1e-6f}, blockSeconds);
    EXPECT_FALSE(drawing->takeFrameRequest());
}

TEST_F(VizLinkTest, TheEditorWhoseObjectIsTakenAwayGetsAFrameToSeeIt) {
    link.exchange(&drawing->sharedState);
    drawing->takeFrameRequest();
    const std::unique_ptr<QVM0015GLSketch> another = makeDrawing();
    link.exchange(&another->sharedState);
    EXPECT_TRUE(drawing->takeFrameRequest());
    link.exchange(nullptr);
}

TEST_F(VizLinkTest, ADrawingWithoutAMeterTakesLevelsAndShowsNone) {
    drawing = std::make_unique<QVM0015GLSketch>();
    drawing->sizeStates(QVMParameterCount);
    link.exchange(&drawing->sharedState);
    link.postLevels(std::array{1.0f, 1.0f}, blockSeconds);
    EXPECT_EQ(drawing->levelMeter(), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
