#include "editor/surface/LabelImage.h"

#include "description/Description.h"
#include "editor/surface/QVMBase64Decoder.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

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

TEST(DrawLabelImage, ShowsThePictureWhereItIsSituated) {
    const std::string label = GetClump(1)->label;
    const Rect box = {10, 20, 100, 15};
    const auto layer = DrawLabelImage(label, box, QVMLabelAlignment::right);
    ASSERT_TRUE(layer);
    EXPECT_EQ(layer->contents(), QVMImageFromBase64String(label));
    const Size pixels = *QVMImageSizeFromBase64String(label);
    EXPECT_EQ(layer->frame(), SituatedRectInsideRectForImage(box, pixels, 6, QVMLabelAlignment::right));
    EXPECT_EQ(layer->frame().maxX(), 110);
    EXPECT_EQ(layer->frame().height, 15) << "as high as the box";
}

TEST(DrawLabelImage, HasSixPixelsAPointWhereThereIsRoom) {
    const std::string label = GetClump(1)->label;
    const Size pixels = *QVMImageSizeFromBase64String(label);
    const auto layer = DrawLabelImage(label, {0, 0, pixels.width, pixels.height}, QVMLabelAlignment::left);
    EXPECT_DOUBLE_EQ(layer->frame().width, pixels.width / 6);
    EXPECT_DOUBLE_EQ(layer->frame().height, pixels.height / 6);
}

TEST(DrawLabelImage, GivesNothingForTextThatIsNoPicture) {
    for (const char* text : {"Loudness", "", "base64,Zm9v"})
        EXPECT_FALSE(DrawLabelImage(text, {0, 0, 100, 15}, QVMLabelAlignment::left)) << text;
    const std::string bare = GetClump(1)->label.substr(base64LabelPrefix.size());
    EXPECT_FALSE(DrawLabelImage(bare, {0, 0, 100, 15}, QVMLabelAlignment::left)) << "a label says that it is a picture";
}

} // namespace
} // namespace QVM_NAMESPACE
