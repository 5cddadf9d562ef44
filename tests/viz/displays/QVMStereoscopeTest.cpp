#include "viz/displays/QVMStereoscope.h"

#include "viz/analysis/StereoSignals.h"
#include "viz/sketches/RecordingSurface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace QVM_NAMESPACE {
namespace {

constexpr float kFloorDb = -14.7365f * 8.685889f;

class QVMStereoscopeTest : public testing::Test {
protected:
    // Fills the window with a signal and analyses it.
    void analyse(const std::function<std::array<double, 2>(unsigned)>& sample, float rate = 48000) {
        stereoscope.init(displayCanvas(), rate, 512);
        const unsigned frames = stereoscope.tap().capacity();
        QVMAudioBuffer<float> block(2);
        block.alloc(frames);
        for (unsigned i = 0; i < frames; ++i) {
            const auto [left, right] = sample(i);
            block.channels[0][i] = static_cast<float>(left);
            block.channels[1][i] = static_cast<float>(right);
        }
        stereoscope.processAudio(&block, frames);
        stereoscope.processAudioData(0);
    }
    void analyse(Signal signal) {
        SignalSource source(signal, 48000);
        analyse([&](unsigned) {
            const QVMAudioBuffer<float>& one = source.next(1);
            return std::array{double{one.channels[0][0]}, double{one.channels[1][0]}};
        });
    }
    void analyseSine(unsigned bin, double left, double right) {
        analyse([=](unsigned i) {
            const double value = std::sin(2 * std::numbers::pi * bin * i / 4096);
            return std::array{left * value, right * value};
        });
    }
    double mean(std::span<const float> values, const std::function<double(double)>& f) const {
        double sum = 0;
        for (const float value : values)
            sum += f(value);
        return sum / static_cast<double>(values.size());
    }

    QVMStereoscope stereoscope;
};

TEST_F(QVMStereoscopeTest, Uses4096PointsAt48kHzAnd8192At96kHzAnd16384Above) {
    const struct {
        float rate;
        unsigned points;
    } cases[] = {{8000, 4096},  {44100, 4096}, {48000, 4096},  {48001, 8192},
                 {88200, 8192}, {96000, 8192}, {96001, 16384}, {192000, 16384}};
    for (const auto& c : cases) {
        stereoscope.init(displayCanvas(), c.rate, 512);
        EXPECT_EQ(stereoscope.fftSize(), c.points) << c.rate;
        EXPECT_EQ(stereoscope.numBins(), c.points / 2) << c.rate;
    }
}

TEST_F(QVMStereoscopeTest, TheWindowIsAHannWindowWhoseSquaresHaveAMeanOfOne) {
    stereoscope.init(displayCanvas(), 48000, 512);
    double squares = 0;
    for (const float w : stereoscope.window())
        squares += double{w} * w;
    EXPECT_NEAR(squares / 4096, 1, 1e-6);
    EXPECT_EQ(stereoscope.window()[0], 0);
    EXPECT_NEAR(stereoscope.window()[1024], stereoscope.window()[2048] / 2, 1e-6);
}

TEST_F(QVMStereoscopeTest, AMonoSignalHasPanAndWidthZero) {
    analyse(Signal::mono);
    for (std::size_t i = 0; i < stereoscope.numBins(); ++i) {
        EXPECT_NEAR(stereoscope.pan()[i], 0, 1e-6);
        EXPECT_EQ(stereoscope.width()[i], 0);
    }
    EXPECT_GT(mean(stereoscope.levelDb(), [](double x) { return x; }), -70);
}

TEST_F(QVMStereoscopeTest, OneSideAloneIsAtTheEndWithHalfTheWidth) {
    for (const Signal signal : {Signal::left, Signal::right}) {
        analyse(signal);
        for (std::size_t i = 0; i < stereoscope.numBins(); ++i) {
            EXPECT_NEAR(stereoscope.pan()[i], signal == Signal::left ? -1 : 1, 1e-6);
            EXPECT_NEAR(stereoscope.width()[i], 0.5, 1e-6);
        }
    }
}

TEST_F(QVMStereoscopeTest, OppositePhasesHaveTheFullWidth) {
    analyse(Signal::opposite);
    for (std::size_t i = 0; i < stereoscope.numBins(); ++i) {
        EXPECT_NEAR(stereoscope.pan()[i], 0, 1e-6);
        EXPECT_NEAR(stereoscope.width()[i], 1, 1e-6);
    }
}

// Two independent magnitudes of a Rayleigh distribution: the angle's density is sin 2x, which gives these means.
TEST_F(QVMStereoscopeTest, IndependentSidesAreSpreadAsTheorySays) {
    analyse(Signal::wide);
    EXPECT_NEAR(mean(stereoscope.pan(), [](double x) { return x; }), 0, 0.03);
    EXPECT_NEAR(mean(stereoscope.pan(), [](double x) { return std::abs(x); }), 1 - 2 / std::numbers::pi, 0.02);
    EXPECT_NEAR(mean(stereoscope.width(), [](double x) { return x; }), 0.5, 0.02);
}

TEST_F(QVMStereoscopeTest, ASoundThatIsPannedSitsAtItsAngle) {
    for (const double degrees : {10.0, 30.0, 45.0, 70.0}) {
        const double angle = degrees * std::numbers::pi / 180;
        analyseSine(100, std::cos(angle), std::sin(angle));
        EXPECT_NEAR(stereoscope.pan()[100], degrees / 45 - 1, 1e-5);
        EXPECT_NEAR(stereoscope.width()[100], std::abs(degrees / 45 - 1) / 2, 1e-5);
    }
}

TEST_F(QVMStereoscopeTest, AFullScaleSineReadsMinus176) {
    analyseSine(100, 1, 0.5);
    EXPECT_NEAR(stereoscope.levelDb()[100], 20 * std::log10(std::sqrt(2.0 / 3)), 1e-3);
    EXPECT_NEAR(stereoscope.levelDb()[101], 20 * std::log10(std::sqrt(2.0 / 3) / 2), 1e-3);
    EXPECT_LT(stereoscope.levelDb()[200], -100);
}

TEST_F(QVMStereoscopeTest, SilenceIsAtTheFloorInTheMiddle) {
    analyse(Signal::silence);
    for (std::size_t i = 0; i < stereoscope.numBins(); ++i) {
        EXPECT_EQ(stereoscope.pan()[i], 0);
        EXPECT_EQ(stereoscope.width()[i], 0);
        EXPECT_NEAR(stereoscope.levelDb()[i], kFloorDb, 1e-3);
    }
}

TEST_F(QVMStereoscopeTest, StandsAtTheFloorBeforeThereIsAnything) {
    stereoscope.init(displayCanvas(), 48000, 512);
    ASSERT_EQ(stereoscope.levelDb().size(), 2048u);
    for (const float level : stereoscope.levelDb())
        ASSERT_NEAR(level, kFloorDb, 1e-3);
}

TEST_F(QVMStereoscopeTest, TheNyquistTermIsNoPartOfTheConstantOne) {
    analyse([](unsigned i) { return std::array{i % 2 ? -1.0 : 1.0, 0.0}; });
    EXPECT_LT(stereoscope.levelDb()[0], -100);
}

TEST_F(QVMStereoscopeTest, LevelsAboveFullScaleAreClipped) {
    analyseSine(50, 100, 0);
    EXPECT_EQ(stereoscope.levelDb()[50], 0);
}

// The sums of the sides' transforms against transforms of the sums.
TEST_F(QVMStereoscopeTest, WidthIsThatOfTheSumAndTheDifferenceOfTheSamples) {
    analyse(Signal::wide);
    const std::vector<float> width(stereoscope.width().begin(), stereoscope.width().end());
    SignalSource source(Signal::wide, 48000);
    analyse([&](unsigned) { // mid and side in the places of left and right
        const QVMAudioBuffer<float>& one = source.next(1);
        const double left = one.channels[0][0], right = one.channels[1][0];
        return std::array{left + right, left - right};
    });
    for (std::size_t i = 1; i < width.size(); ++i) // atan2(S, M) 2 / pi against atan2(R, L) 4 / pi - 1
        EXPECT_NEAR(width[i], (stereoscope.pan()[i] + 1) / 2, 1e-4) << i;
}

TEST_F(QVMStereoscopeTest, MovesOnOnlyWhileThereIsNewAudio) {
    stereoscope.init(displayCanvas(), 48000, kBlock);
    SignalSource source(Signal::mono, 48000);
    int drawn = 0;
    play(
        source, 48000, 60, [&](QVMAudioBuffer<float>& block, unsigned n) { stereoscope.processAudio(&block, n); },
        [&](float dt) { drawn += stereoscope.prepareForDrawing(dt) == Redraw::yes; });
    EXPECT_GE(drawn, 56);
    for (int i = 0; i < 10; ++i)
        stereoscope.prepareForDrawing(kFrame);
    EXPECT_EQ(stereoscope.prepareForDrawing(kFrame), Redraw::no);
    for (const float dt : {0.0f, -1.0f, NAN})
        EXPECT_EQ(stereoscope.prepareForDrawing(dt), Redraw::no);
}

TEST_F(QVMStereoscopeTest, PlacesFrequenciesEvenlyOnALogarithmicScale) {
    stereoscope.init(displayCanvas(200, 100), 48000, 512);
    const float decade = stereoscope.radiusOf(1000) - stereoscope.radiusOf(100);
    EXPECT_NEAR(stereoscope.radiusOf(10000) - stereoscope.radiusOf(1000), decade, 1e-3);
    EXPECT_LT(stereoscope.radiusOf(20000), 100);
    EXPECT_GT(stereoscope.radiusOf(20), 0);
    const Vertex left = stereoscope.pointAt(50, -1), middle = stereoscope.pointAt(50, 0);
    EXPECT_NEAR(left.x, 50, 1e-4);
    EXPECT_NEAR(left.y, 0, 1e-4);
    EXPECT_NEAR(middle.x, 100, 1e-4);
    EXPECT_NEAR(middle.y, 50, 1e-4);
}

// On a display so small that a band has many bins: all of a sine is in one of them, whose level is then the sine's.
TEST_F(QVMStereoscopeTest, BrightnessFollowsTheDecibelsFromMinus72ToMinus18) {
    for (const double decibels : {-6.0, -18.0, -27.0, -45.0, -63.0, -71.0, -73.0, -100.0}) {
        stereoscope.init(displayCanvas(48, 24), 48000, kBlock);
        const double amplitude = std::pow(10, decibels / 20);
        QVMAudioBuffer<float> block(2);
        block.alloc(kBlock);
        for (unsigned frame = 0; frame < 48000; frame += kBlock) {
            for (unsigned i = 0; i < kBlock; ++i) {
                const double angle = 2 * std::numbers::pi * 500 * (frame + i) / 4096; // in the middle of a bin
                block.channels[0][i] = block.channels[1][i] = static_cast<float>(amplitude * std::sin(angle));
            }
            stereoscope.processAudio(&block, kBlock);
            stereoscope.prepareForDrawing((kBlock + 0.5f) / 48000);
        }
        RecordingSurface surface;
        surface.begin({48, 24}, 1);
        stereoscope.glDraw(surface);
        float brightest = 0;
        for (const RecordingSurface::Shape& shape : surface.shapes)
            for (const FilledTriangle& triangle : shape.triangles)
                brightest = std::max(brightest, triangle.colors[0].a);
        EXPECT_NEAR(brightest, std::clamp((decibels + 72) / 54, 0.0, 1.0), 2e-3) << decibels << " dB";
    }
}

} // namespace
} // namespace QVM_NAMESPACE
