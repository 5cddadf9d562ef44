#include "editor/LabelLayer.h"

#include "description/Description.h"
#include "platform/TextLayer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

LabelContent content(std::string image, std::string text) {
    return {std::move(image), std::move(text), {10, 20, 100, 15}, QVMLabelAlignment::left, {}};
}

TEST(LabelLayer, ShowsThePictureInTheGivenColour) {
    LabelLayer label(content(GetClump(1)->label, "TILT"));
    label.setColor({1, 0, 0, 1});
    EXPECT_TRUE(label.layer()->contents());
    EXPECT_EQ(label.layer()->contentsTint(), (Color{1, 0, 0, 1}));
}

TEST(LabelLayer, FallsBackToTextInCapitals) {
    for (const char* image : {"Loudness", "", "base64,Zm9v"}) {
        LabelLayer label(content(image, "Loudness"));
        label.setColor({1, 0, 0, 1});
        const auto* text = dynamic_cast<const TextLayer*>(label.layer().get());
        ASSERT_TRUE(text) << image;
        EXPECT_EQ(text->string().string(), "LOUDNESS");
        EXPECT_EQ(text->string().runs.front().color, (Color{1, 0, 0, 1}));
        EXPECT_EQ(text->frame(), (Rect{10, 20, 100, 15}));
    }
}

TEST(SituatedRect, FitsAnImageInAndKeepsItsProportions) {
    const Size image{200, 100};
    const Rect box{0, 0, 100, 20};
    EXPECT_EQ(SituatedRectInsideRectForImage(box, image, 1, QVMLabelAlignment::left), (Rect{0, 0, 40, 20}));
    EXPECT_EQ(SituatedRectInsideRectForImage(box, image, 1, QVMLabelAlignment::center), (Rect{30, 0, 40, 20}));
    EXPECT_EQ(SituatedRectInsideRectForImage(box, image, 1, QVMLabelAlignment::right), (Rect{60, 0, 40, 20}));
    // Never larger than the image is.
    EXPECT_EQ(SituatedRectInsideRectForImage(box, image, 10, QVMLabelAlignment::left), (Rect{0, 5, 20, 10}));
}

TEST(SituatedRect, AnEmptyBoxOrImageGivesNoArea) {
    EXPECT_TRUE(SituatedRectInsideRectForImage({1, 2, 0, 0}, {200, 100}, 1, QVMLabelAlignment::left).isEmpty());
    EXPECT_TRUE(SituatedRectInsideRectForImage({1, 2, 10, 10}, Size{}, 1, QVMLabelAlignment::left).isEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
