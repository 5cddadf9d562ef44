#include "editor/surface/QVMBase64Decoder.h"

#include "description/Description.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(QVMBase64Decoder, DecodesWithAndWithoutTheLabelPrefix) {
    const std::vector<std::byte> bytes = {std::byte{'f'}, std::byte{'o'}, std::byte{'o'}};
    EXPECT_EQ(QVMBase64Decoder::decode("Zm9v"), bytes);
    EXPECT_EQ(QVMBase64Decoder::decode("base64,Zm9v"), bytes);
    EXPECT_TRUE(QVMBase64Decoder::decode("Output Gain").empty());
}

TEST(QVMImageFromBase64String, GivesTheDescriptionsPictures) {
    const auto logo = QVMImageFromBase64String(GetMetadata()->logo);
    ASSERT_TRUE(logo);
    EXPECT_EQ(logo->width, 120);
    EXPECT_EQ(logo->height, 120);
    EXPECT_EQ(QVMImageFromBase64String(GetMetadata()->logo), logo);                // decoded once
    EXPECT_TRUE(QVMImageFromBase64String(GetParameter(pidFilterSlopeLow)->label)); // with the prefix
}

TEST(QVMImageFromBase64String, TheSizeIsKnownWithoutThePicture) {
    EXPECT_EQ(QVMImageSizeFromBase64String(GetMetadata()->logo), (Size{120, 120}));
    EXPECT_TRUE(QVMImageSizeFromBase64String(GetParameter(pidFilterSlopeLow)->label)); // with the prefix
    EXPECT_FALSE(QVMImageSizeFromBase64String("base64,Zm9v"));
    EXPECT_FALSE(QVMImageSizeFromBase64String(""));
}

TEST(QVMImageFromBase64String, GivesNothingForTextThatIsNoPicture) {
    EXPECT_FALSE(QVMImageFromBase64String("base64,Zm9v"));
    EXPECT_FALSE(QVMImageFromBase64String("Output Gain"));
    EXPECT_FALSE(QVMImageFromBase64String(""));
}

} // namespace
} // namespace QVM_NAMESPACE
