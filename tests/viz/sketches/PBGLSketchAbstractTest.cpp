#include "viz/sketches/PBGLSketchAbstract.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

class EmptySketch final : public PBGLSketchAbstract {
public:
    void init(PBGLCanvas, float, unsigned) override {}
    void glDraw(PBGLCanvas, DrawingSurface&) override {}
};

class Glide : public testing::Test {
protected:
    void SetUp() override { sketch.sizeStates(24); }
    void post(float value) {
        for (std::size_t i = 0; i < 24; ++i) {
            sketch.interpTargets[i] = value + static_cast<float>(i);
            sketch.parameterStates[i].interpolating = true;
        }
        sketch.restartGlide();
    }
    bool anyInterpolating() const {
        return std::any_of(sketch.parameterStates.begin(), sketch.parameterStates.end(),
                           [](const QVMParameterState& state) { return state.interpolating.load(); });
    }

    EmptySketch sketch;
};

TEST(PBGLSketchAbstract, StartsWithNothing) {
    const EmptySketch sketch;
    EXPECT_EQ(sketch.chanIn, 0u);
    EXPECT_EQ(sketch.paramCount, 0u);
    EXPECT_EQ(sketch.refCount, 0u);
    EXPECT_EQ(sketch.interpAmount, 0);
    EXPECT_FALSE(sketch.isInterpolating);
    EXPECT_FALSE(sketch.interpPending);
    EXPECT_TRUE(sketch.isAlive);
    EXPECT_STREQ(sketch.numericMeterFormat, "");
    EXPECT_STREQ(sketch.numericMeterSuffix, "");
}

TEST_F(Glide, ReachesItsTargetsExactlyWithTheSeventhFrame) {
    post(100);
    float last = 0;
    for (int frame = 1; frame <= 6; ++frame) {
        sketch.performInterp();
        const float shown = sketch.parameterStates[0].displayValue;
        EXPECT_GT(shown, last);
        EXPECT_LT(shown, 100);
        EXPECT_NEAR(shown, 100 * (1 - std::exp(-5.0 / 6 * frame)), 1e-4);
        EXPECT_TRUE(anyInterpolating());
        EXPECT_TRUE(sketch.interpPending);
        last = shown;
    }
    sketch.performInterp();
    for (std::size_t i = 0; i < 24; ++i) {
        EXPECT_EQ(sketch.parameterStates[i].displayValue, 100 + static_cast<float>(i));
        EXPECT_EQ(sketch.interpValues[i], 100 + static_cast<float>(i));
    }
    EXPECT_FALSE(anyInterpolating());
    EXPECT_FALSE(sketch.interpPending);
}

// The frame that arrives is still one that is drawn.
TEST_F(Glide, IsOverOneFrameAfterItArrived) {
    post(1);
    for (int frame = 0; frame < 7; ++frame)
        sketch.performInterp();
    EXPECT_TRUE(sketch.isInterpolating);
    sketch.performInterp();
    EXPECT_FALSE(sketch.isInterpolating);
}

TEST_F(Glide, WithNothingPendingItEndsAndChangesNoValue) {
    post(50);
    sketch.performInterp();
    const float shown = sketch.parameterStates[3].displayValue;
    sketch.interpPending = false;
    sketch.performInterp();
    EXPECT_FALSE(sketch.isInterpolating);
    EXPECT_EQ(sketch.parameterStates[3].displayValue, shown);
    EXPECT_EQ(sketch.interpValues[3], shown);
}

TEST_F(Glide, DoesNothingWhileNoneRuns) {
    post(50);
    sketch.isInterpolating = false;
    sketch.performInterp();
    EXPECT_EQ(sketch.parameterStates[0].displayValue, 0);
    EXPECT_EQ(sketch.interpAmount, 0);
}

TEST_F(Glide, NewTargetsStartItAnewFromWhereItIs) {
    post(100);
    for (int frame = 0; frame < 4; ++frame)
        sketch.performInterp();
    const float before = sketch.parameterStates[0].displayValue;
    post(0);
    sketch.performInterp();
    EXPECT_NEAR(sketch.parameterStates[0].displayValue, before * std::exp(-5.0 / 6), 1e-4);
    for (int frame = 0; frame < 5; ++frame)
        sketch.performInterp();
    EXPECT_NE(sketch.parameterStates[0].displayValue, 0);
    sketch.performInterp();
    EXPECT_EQ(sketch.parameterStates[0].displayValue, 0);
}

// Whatever the two threads are in the middle of, the last targets posted are arrived at.
TEST_F(Glide, NoTargetIsLostToAGlideThatIsEnding) {
    constexpr int kPosts = 5000;
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (int i = 1; i <= kPosts; ++i) {
            post(static_cast<float>(i));
            if (i % 16 == 0) std::this_thread::yield();
        }
        done = true;
    });
    while (!done)
        sketch.performInterp();
    writer.join();
    for (int frame = 0; frame < 8; ++frame)
        sketch.performInterp();
    EXPECT_FALSE(sketch.isInterpolating);
    for (std::size_t i = 0; i < 24; ++i)
        EXPECT_EQ(sketch.parameterStates[i].displayValue, kPosts + static_cast<float>(i));
}

} // namespace
} // namespace QVM_NAMESPACE
