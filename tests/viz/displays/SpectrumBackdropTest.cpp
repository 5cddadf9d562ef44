// The spectrum behind a sketch in a window: what is taken, what is shown, and when it rests.
#include "viz/displays/SpectrumBackdrop.h"

#include "viz/analysis/SpectrumSignals.h"
#include "viz/sketches/ParameterSketchFixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

constexpr double kRate = 48000;
constexpr std::size_t kFrame = 800; // at 60 frames a second

class SpectrumBackdropTest : public ParameterSketchFixture {
protected:
    AudioTap& tap() { return view.getVizRef()->sharedState.tap; }
    SpectrumBackdrop& spectrum() { return static_cast<SpectrumBackdrop&>(*view.backdrop()); }
    void show(SpectrumMode mode) {
        view.setBackdrop(std::make_unique<SpectrumBackdrop>(view.getVizRef(), mode, SpectrumColours{}));
    }
    // As the unit does: an input, and an output of half its amplitude.
    void hear(std::span<const float> sound) {
        std::vector<TapFrame> frames(sound.size());
        std::ranges::transform(sound, frames.begin(), [](float sample) {
            return TapFrame{{sample, sample}, {sample / 2, sample / 2}};
        });
        tap().setSampleRateHz(kRate);
        view.getVizRef()->sharedState.levels.setStandingSeconds(0.25f);
        if (!tap().isWanted()) return;
        tap().append(frames);
        view.getVizRef()->requestFrame();
    }
    // Frames of the display while this is played.
    void play(const std::vector<float>& sound) {
        for (std::size_t at = 0; at + kFrame <= sound.size(); at += kFrame) {
            hear(std::span(sound).subspan(at, kFrame));
            frame();
        }
    }
    // And while nothing comes. Gives how many were wanted.
    int framesWithout(double seconds) {
        int wanted = 0;
        for (int i = 0; i < static_cast<int>(seconds * 60); ++i) {
            wanted += view.isFrameWanted();
            frame();
        }
        return wanted;
    }
    static float highest(std::span<const float> levels) { return *std::ranges::max_element(levels); }
    std::vector<float> tone() const { return sounds::sine(1000, 0.5, kRate, 48000); }
};

TEST_F(SpectrumBackdropTest, WithoutItNothingIsTaken) {
    EXPECT_EQ(view.backdrop(), nullptr);
    EXPECT_FALSE(tap().isWanted());
    EXPECT_EQ(view.layer()->tree().sublayers().size(), 1u);
}

TEST_F(SpectrumBackdropTest, LiesBehindTheCurveAndFillsItsPlace) {
    show(SpectrumMode::output);
    EXPECT_TRUE(tap().isWanted());
    ASSERT_EQ(view.layer()->tree().sublayers().size(), 2u);
    EXPECT_EQ(view.layer()->tree().sublayers().front(), spectrum().layer());
    EXPECT_EQ(spectrum().layer()->frame(), (Rect{0, 0, 54, 62}));
    EXPECT_EQ(spectrum().layer()->look().contentsScale(), view.layer()->look().contentsScale());
    view.setFrame({0, 0, 200, 200});
    EXPECT_EQ(spectrum().layer()->frame(), (Rect{0, 0, 200, 200}));
}

TEST_F(SpectrumBackdropTest, ShowsTheOutput) {
    show(SpectrumMode::output);
    play(tone());
    EXPECT_NEAR(highest(spectrum().outputLevels()), -12.04, 0.5);
    EXPECT_TRUE(spectrum().inputLevels().empty());
}

TEST_F(SpectrumBackdropTest, ShowsTheInputBesideIt) {
    show(SpectrumMode::inputAndOutput);
    play(tone());
    EXPECT_NEAR(highest(spectrum().outputLevels()), -12.04, 0.5);
    EXPECT_NEAR(highest(spectrum().inputLevels()), -6.02, 0.5);
}

TEST_F(SpectrumBackdropTest, SilenceFallsToEmptyAndThenNothingIsDrawn) {
    show(SpectrumMode::output);
    play(tone());
    play(std::vector<float>(kFrame * 60 * 3));
    EXPECT_EQ(highest(spectrum().outputLevels()), SpectrumLevels::range.min);
    framesWithout(3);
    EXPECT_EQ(framesWithout(1), 0) << "it rests";
}

TEST_F(SpectrumBackdropTest, AHostThatRendersNoMoreIsSilent) {
    show(SpectrumMode::output);
    play(tone());
    framesWithout(3);
    EXPECT_EQ(highest(spectrum().outputLevels()), SpectrumLevels::range.min);
    framesWithout(2);
    EXPECT_EQ(framesWithout(1), 0);
    play(tone());
    EXPECT_NEAR(highest(spectrum().outputLevels()), -12.04, 0.5) << "and comes back";
}

TEST_F(SpectrumBackdropTest, ALongBlockIsNoPause) {
    show(SpectrumMode::output);
    play(tone());
    const std::vector<float> sound = tone();
    hear(std::span(sound).first(kFrame));
    framesWithout(0.2);
    EXPECT_NEAR(highest(spectrum().outputLevels()), -12.04, 0.5);
}

TEST_F(SpectrumBackdropTest, WhatStandsStillIsNotDrawnAgain) {
    show(SpectrumMode::output);
    play(tone());
    const std::uint64_t version = spectrum().layer()->look().version();
    play(tone());
    EXPECT_EQ(spectrum().layer()->look().version(), version);
}

TEST_F(SpectrumBackdropTest, AHiddenOneTakesNothingAndBeginsAnew) {
    show(SpectrumMode::output);
    play(tone());
    view.setVizVisible(false);
    EXPECT_FALSE(tap().isWanted());
    EXPECT_EQ(highest(spectrum().outputLevels()), SpectrumLevels::range.min);
    view.setVizVisible(true);
    EXPECT_TRUE(tap().isWanted());
    window.setVisible(false);
    EXPECT_FALSE(tap().isWanted()) << "nobody sees the window";
    window.setVisible(true);
    EXPECT_TRUE(tap().isWanted());
    play(tone());
    EXPECT_NEAR(highest(spectrum().outputLevels()), -12.04, 0.5);
}

TEST_F(SpectrumBackdropTest, IsTakenAwayWithWhatItTook) {
    show(SpectrumMode::output);
    const std::shared_ptr<Layer> layer = spectrum().layer();
    view.setBackdrop(nullptr);
    EXPECT_FALSE(tap().isWanted());
    EXPECT_EQ(layer->tree().superlayer(), nullptr);
}

TEST_F(SpectrumBackdropTest, FollowsTheRateOfTheUnit) {
    show(SpectrumMode::output);
    play(tone());
    const auto peak = [this] {
        const auto levels = spectrum().outputLevels();
        return bands::hertz(static_cast<std::size_t>(std::ranges::max_element(levels) - levels.begin()));
    };
    EXPECT_NEAR(peak(), 1000, 60);
    const std::vector<float> sound = tone(); // the same samples, played twice as fast
    for (std::size_t at = 0; at + kFrame <= sound.size(); at += kFrame) {
        hear(std::span(sound).subspan(at, kFrame));
        tap().setSampleRateHz(2 * kRate);
        frame();
    }
    framesWithout(0.2);
    EXPECT_NEAR(peak(), 2000, 120);
}

} // namespace
} // namespace QVM_NAMESPACE
