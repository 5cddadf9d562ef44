#include "viz/displays/QVMGoniometer.h"

#include "viz/analysis/StereoSignals.h"
#include "viz/sketches/RecordingSurface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

class QVMGoniometerTest : public testing::Test {
protected:
    void start(Signal signal, double rate = 48000) {
        source = std::make_unique<SignalSource>(signal, rate);
        goniometer.init(displayCanvas(), static_cast<float>(rate), kBlock);
    }
    void run(int frames) {
        play(
            *source, goniometer.sampleRate(), frames,
            [this](QVMAudioBuffer<float>& block, unsigned n) { goniometer.processAudio(&block, n, false); },
            [this](float dt) { last = goniometer.prepareForDrawing(dt); });
    }
    // One block of the same frame, then as long a frame.
    void show(float left, float right, bool midSide = false) {
        goniometer.init(displayCanvas(), 48000, 1600);
        QVMAudioBuffer<float> block(2);
        block.alloc(1600);
        std::fill_n(block.channels[0], 1600, left);
        std::fill_n(block.channels[1], 1600, right);
        goniometer.processAudio(&block, 1600, midSide);
        ASSERT_EQ(goniometer.prepareForDrawing(1601.0f / 48000), Redraw::yes);
    }

    // One block around a circle of this magnitude, then as long a frame; what is drawn of it at two pixels a point.
    std::vector<RecordingSurface::Shape> shapesOf(float magnitude) {
        goniometer.init(displayCanvas(240, 120, 2), 48000, 1600);
        QVMAudioBuffer<float> block(2);
        block.alloc(1600);
        for (unsigned i = 0; i < 1600; ++i) {
            block.channels[0][i] = magnitude * std::cos(static_cast<float>(i) / 200);
            block.channels[1][i] = magnitude * std::sin(static_cast<float>(i) / 200);
        }
        goniometer.processAudio(&block, 1600, false);
        EXPECT_EQ(goniometer.prepareForDrawing(1601.0f / 48000), Redraw::yes);
        RecordingSurface surface;
        surface.begin({240, 120}, 2);
        goniometer.glDraw(surface, {0.3f, 0.7f, 0.95f});
        return surface.shapes;
    }

    QVMGoniometer goniometer;
    std::unique_ptr<SignalSource> source;
    Redraw last = Redraw::no;
};

TEST_F(QVMGoniometerTest, KeepsAThirtiethOfASecondInWholeBlocks) {
    const struct {
        float rate;
        unsigned block, capacity;
    } cases[] = {{48000, 512, 2048}, {48000, 1600, 1600}, {44100, 64, 1472}, {192000, 512, 6656}, {48000, 4096, 4096}};
    for (const auto& c : cases) {
        goniometer.init(displayCanvas(), c.rate, c.block);
        EXPECT_EQ(goniometer.capacity(), c.capacity) << c.rate << ", " << c.block;
    }
    EXPECT_EQ(goniometer.gain(), 0.5f);
    EXPECT_EQ(goniometer.pointCount(), 0u);
}

TEST_F(QVMGoniometerTest, AMonoSignalIsAVerticalLine) {
    start(Signal::mono);
    run(60);
    ASSERT_EQ(goniometer.pointCount(), 800u);
    float highest = 0;
    for (std::size_t i = 0; i < 800; ++i) {
        EXPECT_EQ(goniometer.x()[i], 0);
        highest = std::max(highest, std::abs(goniometer.y()[i]));
    }
    EXPECT_GT(highest, 0.4f);
    EXPECT_LE(highest, 1.0f);
}

TEST_F(QVMGoniometerTest, OppositePhasesAreAHorizontalLine) {
    start(Signal::opposite);
    run(60);
    float farthest = 0;
    for (std::size_t i = 0; i < goniometer.pointCount(); ++i) {
        EXPECT_EQ(goniometer.y()[i], 0);
        farthest = std::max(farthest, std::abs(goniometer.x()[i]));
    }
    EXPECT_GT(farthest, 0.4f);
}

TEST_F(QVMGoniometerTest, OneSideAloneLeansToItsSide) {
    for (const Signal signal : {Signal::left, Signal::right}) {
        start(signal);
        run(30);
        const float side = signal == Signal::left ? -1.0f : 1.0f;
        float farthest = 0;
        for (std::size_t i = 0; i < goniometer.pointCount(); ++i) {
            EXPECT_NEAR(goniometer.x()[i], side * goniometer.y()[i], 1e-6);
            farthest = std::max(farthest, std::abs(goniometer.x()[i]));
        }
        EXPECT_GT(farthest, 0.2f);
    }
}

TEST_F(QVMGoniometerTest, IndependentSidesFillACircle) {
    start(Signal::wide);
    run(60);
    double xx = 0, yy = 0, xy = 0;
    for (std::size_t i = 0; i < goniometer.pointCount(); ++i) {
        const double x = goniometer.x()[i], y = goniometer.y()[i];
        xx += x * x, yy += y * y, xy += x * y;
    }
    EXPECT_NEAR(xx / yy, 1, 0.25);
    EXPECT_NEAR(xy / xx, 0, 0.15);
}

TEST_F(QVMGoniometerTest, SilenceKeepsTheGainRisingSlowlyTowardItsLimitAndDrawsNoFan) {
    start(Signal::silence);
    const double limit = 0.68 / 0.0056234132;
    float before = goniometer.gain();
    for (int second = 1; second <= 12; ++second) {
        run(60);
        EXPECT_GT(goniometer.gain(), before);
        EXPECT_LT(goniometer.gain(), limit);
        EXPECT_NEAR(goniometer.gain(), limit + (0.5 - limit) * std::exp(-second), 0.02 * limit) << second;
        before = goniometer.gain();
    }
    EXPECT_NEAR(before, limit, 0.01);
    EXPECT_TRUE(goniometer.fan().empty());
    start(Signal::wide);
    run(4);
    EXPECT_FALSE(goniometer.fan().empty());
}

TEST_F(QVMGoniometerTest, TheGainFallsAHundredTimesAsFastAsItRises) {
    show(0.5f, 0); // target 1.36, above the first gain: rises
    const double dt = 1601.0 / 48000;
    EXPECT_NEAR(goniometer.gain(), 1.36 + (0.5 - 1.36) * std::exp(-dt), 1e-4);
    show(4, 0); // target 0.17: falls
    EXPECT_NEAR(goniometer.gain(), 0.17 + (0.5 - 0.17) * std::exp(-100 * dt), 1e-4);
    EXPECT_NEAR(goniometer.gains()[799], 0.17 + (0.5 - 0.17) * std::exp(-100 * dt / 2), 1e-4);
}

TEST_F(QVMGoniometerTest, EachPointIsTurnedByItsOwnGain) {
    show(0.25f, -0.125f);
    for (std::size_t i = 0; i < goniometer.pointCount(); ++i) {
        EXPECT_FLOAT_EQ(goniometer.y()[i], 0.125f * goniometer.gains()[i]);
        EXPECT_FLOAT_EQ(goniometer.x()[i], -0.375f * goniometer.gains()[i]);
        EXPECT_FLOAT_EQ(goniometer.magnitudes()[i], std::hypot(0.25f, 0.125f));
    }
}

TEST_F(QVMGoniometerTest, PointsStayWithinTheDisplay) {
    show(100, 90);
    EXPECT_EQ(goniometer.y()[0], 1);
    EXPECT_EQ(goniometer.x()[0], -1);
}

TEST_F(QVMGoniometerTest, MidAndSideBecomeLeftAndRight) {
    show(0.5f, 0.25f, true); // left 0.75, right 0.25
    EXPECT_FLOAT_EQ(goniometer.y()[0], 1.0f * goniometer.gains()[0]);
    EXPECT_FLOAT_EQ(goniometer.x()[0], -0.5f * goniometer.gains()[0]);
}

TEST_F(QVMGoniometerTest, AFrameLongerThanTheRingReadsAtMostItsCapacity) {
    goniometer.init(displayCanvas(), 48000, 512);
    EXPECT_EQ(goniometer.prepareForDrawing(10), Redraw::yes);
    EXPECT_EQ(goniometer.pointCount(), goniometer.capacity());
    EXPECT_EQ(goniometer.tap().readPosition(), goniometer.capacity());
}

TEST_F(QVMGoniometerTest, WithoutNewAudioTheLastPointsStay) {
    start(Signal::mono);
    run(10);
    const std::vector<float> before(goniometer.y().begin(), goniometer.y().end());
    for (int i = 0; i < 10; ++i)
        last = goniometer.prepareForDrawing(kFrame);
    EXPECT_EQ(last, Redraw::no);
    EXPECT_EQ(goniometer.pointCount(), before.size());
    for (const float dt : {0.0f, -1.0f, NAN, 1e-6f})
        EXPECT_EQ(goniometer.prepareForDrawing(dt), Redraw::no);
}

TEST_F(QVMGoniometerTest, TheFanGoesThroughWhatIsLouderThanAThousandth) {
    for (const float magnitude : {0.00099f, 0.00101f}) {
        const auto shapes = shapesOf(magnitude);
        EXPECT_EQ(!goniometer.fan().empty(), magnitude > 0.001f) << magnitude;
        EXPECT_EQ(shapes.size(), magnitude > 0.001f ? 2u : 1u) << magnitude;
    }
}

// Four points of a quadrilateral that is not around the middle: of what lies between them and the middle, nothing.
TEST_F(QVMGoniometerTest, TheFanRunsFromEachPointToTheNextOne) {
    constexpr float sides[4][2] = {{0.5f, 0.5f}, {0.7f, 0.4f}, {0.8f, 0.8f}, {0.4f, 0.7f}};
    goniometer.init(displayCanvas(), 48000, 1600);
    QVMAudioBuffer<float> block(2);
    block.alloc(1600);
    for (std::size_t i = 0; i < 1600; ++i)
        for (std::size_t side = 0; side < 2; ++side)
            block.channels[side][i] = sides[std::min<std::size_t>(i, 3)][side];
    goniometer.processAudio(&block, 1600, false);
    ASSERT_EQ(goniometer.prepareForDrawing(4.5f / 48000), Redraw::yes);
    ASSERT_EQ(goniometer.pointCount(), 4u);
    double around = 0, covered = 0; // areas
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t next = (i + 1) % 4;
        around += double{goniometer.x()[i]} * double{goniometer.y()[next]} / 2;
        around -= double{goniometer.x()[next]} * double{goniometer.y()[i]} / 2;
    }
    const std::vector<Vertex>& fan = goniometer.fan();
    for (std::size_t i = 0; i + 2 < fan.size(); i += 3) {
        const Vertex a = fan[i], b = fan[i + 1], c = fan[i + 2];
        covered += double{std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y))} / 2;
    }
    EXPECT_GT(std::abs(around), 0.03);
    EXPECT_NEAR(covered, std::abs(around), 0.01 * std::abs(around));
}

TEST_F(QVMGoniometerTest, EveryPointThatIsNotSilentIsASquare) {
    for (const float magnitude : {1e-15f, 0.0005f, 0.5f}) {
        const auto shapes = shapesOf(magnitude);
        ASSERT_FALSE(shapes.empty()) << magnitude;
        EXPECT_EQ(shapes.back().line.size(), 1600u) << magnitude;
    }
    EXPECT_TRUE(shapesOf(0).empty());
}

TEST_F(QVMGoniometerTest, TheFanLiesBehindThePointsInLessOfTheColour) {
    const auto shapes = shapesOf(0.5f);
    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_FALSE(shapes[0].triangles.empty());
    EXPECT_EQ(shapes[0].color(), (Color{0.3f, 0.7f, 0.95f, 0.65f}));
    EXPECT_FALSE(shapes[1].line.empty());
    EXPECT_EQ(shapes[1].color(), (Color{0.3f, 0.7f, 0.95f, 1}));
}

TEST_F(QVMGoniometerTest, APointIsTwoPointsWideAndHighAroundItsPlace) {
    const auto shapes = shapesOf(0.5f);
    for (std::size_t i = 0; i < 1600; i += 100) {
        const StrokeSegment& square = shapes.back().line[i];
        EXPECT_NEAR(square.halfWidth, 2, 1e-5);
        EXPECT_NEAR(square.to.x - square.from.x, 4, 1e-3);
        EXPECT_EQ(square.to.y, square.from.y);
        EXPECT_TRUE(square.isCutAtFrom && square.isCutAtTo);
        // Two pixels a point, and the shorter side is -1 to 1.
        EXPECT_NEAR((square.from.x + square.to.x) / 2, 240 + 120 * goniometer.x()[i], 1e-2);
        EXPECT_NEAR(square.from.y, 120 - 120 * goniometer.y()[i], 1e-2);
    }
}

TEST_F(QVMGoniometerTest, ASampleThatIsNoNumberIsGoneWithItsFrame) {
    show(NAN, 0.5f);
    EXPECT_TRUE(goniometer.fan().empty());
    EXPECT_TRUE(std::isfinite(goniometer.gain()));
    show(INFINITY, 0.5f);
    EXPECT_TRUE(std::isfinite(goniometer.gain()));
}

} // namespace
} // namespace QVM_NAMESPACE
