#include "viz/sketches/PBGLSketchAbstract.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class EmptySketch final : public PBGLSketchAbstract {
public:
    void init(PBGLCanvas, float, unsigned) override {}
    void glDraw(PBGLCanvas, DrawingSurface&) override {}
};

TEST(PBGLSketchAbstract, StartsWithNothing) {
    EmptySketch sketch;
    EXPECT_EQ(sketch.chanIn, 0u);
    EXPECT_EQ(sketch.paramCount(), 0u);
    EXPECT_EQ(sketch.refCount, 0u);
    EXPECT_EQ(sketch.interpAmount(), 0);
    EXPECT_FALSE(sketch.isInterpolating());
    EXPECT_FALSE(sketch.interpPending());
    EXPECT_TRUE(sketch.isAlive);
    EXPECT_STREQ(sketch.numericMeterFormat(), "");
    EXPECT_STREQ(sketch.numericMeterSuffix(), "");
}

// One word, whichever way it is reached.
TEST(PBGLSketchAbstract, ItsFieldsAreTheSharedState) {
    EmptySketch sketch;
    sketch.sizeStates(24);
    EXPECT_EQ(sketch.paramCount(), 24u);
    EXPECT_EQ(sketch.sharedState.glide.paramCount, 24u);
    sketch.sharedState.glide.post(3, -7);
    EXPECT_EQ(sketch.parameterStates()[3].value, -7);
    EXPECT_EQ(sketch.interpTargets()[3], -7);
    EXPECT_EQ(sketch.interpValues().size(), 24u);
    EXPECT_EQ(sketch.interpScratch().size(), 24u);
    sketch.interpPending() = true;
    EXPECT_TRUE(sketch.sharedState.glide.interpPending);
    sketch.interpAmount() = 0.5f;
    EXPECT_EQ(sketch.sharedState.glide.interpAmount, 0.5f);
    sketch.sharedState.numericMeter.value = 2;
    sketch.sharedState.numericMeter.format = "%.1f";
    sketch.sharedState.numericMeter.suffix = "dB";
    EXPECT_EQ(sketch.numericMeterValue(), 2);
    EXPECT_STREQ(sketch.numericMeterFormat(), "%.1f");
    EXPECT_STREQ(sketch.numericMeterSuffix(), "dB");
}

TEST(PBGLSketchAbstract, GlidesAndAsksForFramesAsItsSharedStateDoes) {
    EmptySketch sketch;
    sketch.sizeStates(24);
    sketch.sharedState.glide.post(3, -7);
    EXPECT_FALSE(sketch.isFrameRequested());
    sketch.restartGlide();
    EXPECT_TRUE(sketch.isInterpolating());
    EXPECT_TRUE(sketch.isFrameRequested());
    EXPECT_TRUE(sketch.takeFrameRequest());
    EXPECT_FALSE(sketch.sharedState.frameRequest.isAsked());
    sketch.requestFrame();
    EXPECT_TRUE(sketch.sharedState.frameRequest.isAsked());
    for (int frame = 0; frame < 7; ++frame)
        sketch.performInterp();
    EXPECT_EQ(sketch.parameterStates()[3].displayValue, -7);
}

} // namespace
} // namespace QVM_NAMESPACE
