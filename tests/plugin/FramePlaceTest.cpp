#include "plugin/FramePlace.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(FramePlace, AFrameOfItsSizeIsFilled) {
    const FramePlace place = placeInFrame({480, 320}, 1.5, {720, 480});
    EXPECT_EQ(place.scale, 1.5);
    EXPECT_EQ(place.origin, Point(0, 0));
}

TEST(FramePlace, ALargerFrameHasItInTheMiddleOnAWholePixel) {
    const FramePlace place = placeInFrame({200, 200}, 1, {480, 321});
    EXPECT_EQ(place.scale, 1);
    EXPECT_EQ(place.origin, Point(140, 60));
}

TEST(FramePlace, ASmallerFrameHasAllOfItSmaller) {
    const FramePlace narrow = placeInFrame({480, 320}, 1, {240, 320});
    EXPECT_EQ(narrow.scale, 0.5);
    EXPECT_EQ(narrow.origin, Point(0, 80));
    const FramePlace low = placeInFrame({480, 320}, 2, {960, 160});
    EXPECT_EQ(low.scale, 0.5);
    EXPECT_EQ(low.origin, Point(360, 0));
}

TEST(FramePlace, ASizeThatWasRoundedUpIsNoReasonToShrink) {
    EXPECT_EQ(placeInFrame({481, 321}, 1.1, {529, 353}).scale, 1.1);
    EXPECT_TRUE(fitsFrame({200, 200}, 1, {199, 199}));
    EXPECT_FALSE(fitsFrame({200, 200}, 1, {198, 200}));
}

TEST(FramePlace, IsFilledByWhatHasItsSizeButForRounding) {
    EXPECT_TRUE(fillsFrame({680, 320}, 400.0 / 480, {567, 267}));
    EXPECT_FALSE(fillsFrame({680, 320}, 1, {567, 267}));
    EXPECT_FALSE(fillsFrame({480, 320}, 1, {482, 320}));
    EXPECT_FALSE(fillsFrame({480, 320}, 1, {480, 322}));
}

TEST(FramePlace, TheScaleThatFitsFillsAsMuchAsItCan) {
    EXPECT_EQ(scaleToFit({480, 320}, {960, 640}), 2);
    EXPECT_EQ(scaleToFit({480, 320}, {600, 900}), 1.25);
    EXPECT_EQ(scaleToFit({480, 320}, {900, 160}), 0.5);
    EXPECT_EQ(scaleToFit({0, 0}, {900, 160}), 1);
}

TEST(FramePlace, AFrameHasTheShapeWhateverItsSizeIsButForWhatWasRounded) {
    EXPECT_TRUE(hasShapeOf({480, 320}, {480, 320}));
    EXPECT_TRUE(hasShapeOf({480, 320}, {601, 401}));
    EXPECT_FALSE(hasShapeOf({480, 320}, {600, 420}));
    EXPECT_FALSE(hasShapeOf({480, 320}, {1900, 1000}));
}

TEST(FramePlace, NothingAtAllHasItsScale) {
    for (const auto& [content, frame] :
         {std::pair{Size{480, 320}, Size{0, 0}}, {Size{0, 0}, Size{480, 320}}, {Size{480, 320}, Size{-5, 300}}}) {
        const FramePlace place = placeInFrame(content, 1.25, frame);
        EXPECT_EQ(place.scale, 1.25);
        EXPECT_EQ(place.origin, Point(0, 0));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
