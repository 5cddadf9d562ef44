#include "platform/layer/Animation.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

BasicAnimation oneSecond() {
    BasicAnimation animation;
    animation.duration = 1;
    animation.timing = TimingFunction::linear;
    return animation;
}

TEST(AnimationTest, TimingFunctionsMeetTheirEndsAndGrow) {
    for (const auto timing :
         {TimingFunction::linear, TimingFunction::easeIn, TimingFunction::easeOut, TimingFunction::easeInEaseOut}) {
        EXPECT_EQ(ease(timing, 0), 0);
        EXPECT_EQ(ease(timing, 1), 1);
        EXPECT_EQ(ease(timing, -1), 0);
        EXPECT_EQ(ease(timing, 2), 1);
        for (double p = 0; p < 1; p += 0.01)
            EXPECT_LT(ease(timing, p), ease(timing, p + 0.01));
    }
}

TEST(AnimationTest, TimingFunctionsAtTheQuarters) {
    // Points of the Bezier curves themselves: at parameter t, x = 3(1-t)^2 t x1 + 3(1-t) t^2 x2 + t^3, y alike.
    const auto at = [](double t, double c1, double c2) {
        return 3 * (1 - t) * (1 - t) * t * c1 + 3 * (1 - t) * t * t * c2 + t * t * t;
    };
    for (const double t : {0.25, 0.5, 0.75}) {
        EXPECT_NEAR(ease(TimingFunction::easeIn, at(t, 0.42, 1)), at(t, 0, 1), 1e-9);
        EXPECT_NEAR(ease(TimingFunction::easeOut, at(t, 0, 0.58)), at(t, 0, 1), 1e-9);
        EXPECT_NEAR(ease(TimingFunction::easeInEaseOut, at(t, 0.42, 0.58)), at(t, 0, 1), 1e-9);
    }
    EXPECT_NEAR(ease(TimingFunction::easeInEaseOut, 0.5), 0.5, 1e-12);
    EXPECT_NEAR(ease(TimingFunction::easeIn, 0.25) + ease(TimingFunction::easeOut, 0.75), 1, 1e-9);
    EXPECT_LT(ease(TimingFunction::easeIn, 0.25), 0.25);
    EXPECT_GT(ease(TimingFunction::easeOut, 0.25), 0.25);
}

TEST(AnimationTest, ProgressAtTheQuarters) {
    const BasicAnimation animation = oneSecond();
    EXPECT_EQ(animation.progressAt(-1), 0);
    EXPECT_EQ(animation.progressAt(0), 0);
    EXPECT_EQ(animation.progressAt(0.25), 0.25);
    EXPECT_EQ(animation.progressAt(0.75), 0.75);
    EXPECT_EQ(animation.progressAt(1), 1);
    EXPECT_EQ(animation.progressAt(7), 1);
    EXPECT_FALSE(animation.isFinishedAt(0.99));
    EXPECT_TRUE(animation.isFinishedAt(1));
}

TEST(AnimationTest, ADelayHoldsTheStart) {
    BasicAnimation animation = oneSecond();
    animation.beginDelay = 2;
    EXPECT_EQ(animation.progressAt(1.5), 0);
    EXPECT_EQ(animation.progressAt(2.5), 0.5);
    EXPECT_FALSE(animation.isFinishedAt(2.9));
    EXPECT_TRUE(animation.isFinishedAt(3));
}

TEST(AnimationTest, AutoreverseGoesThereAndBack) {
    BasicAnimation animation = oneSecond();
    animation.autoreverses = true;
    EXPECT_EQ(animation.totalDuration(), 2);
    EXPECT_EQ(animation.progressAt(0.5), 0.5);
    EXPECT_EQ(animation.progressAt(1), 1);
    EXPECT_EQ(animation.progressAt(1.75), 0.25);
    EXPECT_EQ(animation.progressAt(2), 0);
    EXPECT_EQ(animation.progressAt(9), 0);
}

TEST(AnimationTest, RepeatsAndEndsWhereItsLastTurnEnds) {
    BasicAnimation animation = oneSecond();
    animation.repeatCount = 2.5;
    EXPECT_EQ(animation.progressAt(1.25), 0.25);
    EXPECT_EQ(animation.progressAt(2.25), 0.25);
    EXPECT_EQ(animation.progressAt(2.5), 0.5);
    EXPECT_EQ(animation.progressAt(10), 0.5);
    animation.repeatCount = 3;
    EXPECT_EQ(animation.progressAt(3), 1);
}

TEST(AnimationTest, ForeverNeverEnds) {
    BasicAnimation animation = oneSecond();
    animation.repeatCount = BasicAnimation::forever;
    EXPECT_FALSE(animation.isFinishedAt(1e9));
    EXPECT_NEAR(animation.progressAt(1000000.25), 0.25, 1e-6);
}

TEST(AnimationTest, NoDurationIsOverAtOnceEvenForever) {
    BasicAnimation animation = oneSecond();
    animation.duration = 0;
    animation.repeatCount = BasicAnimation::forever;
    EXPECT_TRUE(animation.isFinishedAt(0));
    EXPECT_EQ(animation.progressAt(0), 1);
}

TEST(AnimationTest, InterpolatesEachKindOfValue) {
    EXPECT_EQ(interpolate(1.0, 3.0, 0.25), AnimatableValue(1.5));
    EXPECT_EQ(interpolate(Point{0, 8}, Point{4, 0}, 0.25), AnimatableValue(Point{1, 6}));
    EXPECT_EQ(interpolate(Rect{0, 0, 4, 8}, Rect{4, 8, 8, 8}, 0.5), AnimatableValue(Rect{2, 4, 6, 8}));
    EXPECT_EQ(interpolate(AffineTransform{}, AffineTransform::scale(3, 5), 0.5),
              AnimatableValue(AffineTransform::scale(2, 3)));
    EXPECT_EQ(interpolate(Color{0, 0, 0, 0}, Color{1, 0.5f, 0, 1}, 0.5), AnimatableValue(Color{0.5f, 0.25f, 0, 0.5f}));
}

TEST(AnimationTest, EndsExactlyWhereItGoesHoweverFarItCame) {
    EXPECT_EQ(interpolate(1e16, 1.0, 1), AnimatableValue(1.0)) << "their difference is rounded";
}

TEST(AnimationTest, OfDifferentKindsTheSecondCounts) {
    EXPECT_EQ(interpolate(1.0, Point{4, 0}, 0.25), AnimatableValue(Point{4, 0}));
    EXPECT_EQ(interpolate(1.0, Point{4, 0}, 0), AnimatableValue(Point{4, 0}));
}

} // namespace
} // namespace QVM_NAMESPACE
