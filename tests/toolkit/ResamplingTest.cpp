#include "toolkit/Resampling.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

Image grey(int width, int height, const std::vector<int>& levels) {
    Image image{width, height, {}};
    for (const int v : levels)
        image.pixels.push_back(0xFF000000u | static_cast<std::uint32_t>(v * 0x010101));
    return image;
}
int level(const Image& image, int i) {
    return static_cast<int>(image.pixels[static_cast<std::size_t>(i)] & 0xFF);
}

TEST(Resampling, SameSizeIsTheSamePicture) {
    const Image image = grey(2, 2, {1, 2, 3, 4});
    EXPECT_EQ(resampled(image, 2, 2).pixels, image.pixels);
}

TEST(Resampling, ShrinkingAverages) {
    EXPECT_EQ(level(resampled(grey(2, 2, {0, 100, 100, 200}), 1, 1), 0), 100);
    const Image third = resampled(grey(3, 1, {30, 90, 150}), 2, 1); // 1 + 1/2 and 1/2 + 1 pixels
    EXPECT_EQ(level(third, 0), 50);
    EXPECT_EQ(level(third, 1), 130);
}

TEST(Resampling, SixfoldPictureIsExactAtItsOwnSize) {
    // Blocks of 6 x 6 become single pixels with nothing of their neighbours.
    Image big{12, 12, std::vector<std::uint32_t>(144)};
    for (std::size_t i = 0; i < 144; ++i)
        big.pixels[i] = (i % 12 < 6) == (i / 12 < 6) ? 0xFFFFFFFFu : 0xFF000000u;
    const std::vector<std::uint32_t> expected = {0xFFFFFFFFu, 0xFF000000u, 0xFF000000u, 0xFFFFFFFFu};
    EXPECT_EQ(resampled(big, 2, 2).pixels, expected);
}

TEST(Resampling, GrowingInterpolatesAndKeepsTheEnds) {
    const Image wide = resampled(grey(2, 1, {0, 100}), 4, 1);
    EXPECT_EQ(level(wide, 0), 0);
    EXPECT_EQ(level(wide, 1), 25);
    EXPECT_EQ(level(wide, 2), 75);
    EXPECT_EQ(level(wide, 3), 100);
    EXPECT_EQ(level(resampled(grey(1, 1, {77}), 3, 3), 8), 77);
}

TEST(Resampling, TransparentPixelsBringNoColour) {
    const Image image{2, 1, {0xFFFF0000u, 0}}; // opaque red beside nothing, premultiplied
    EXPECT_EQ(resampled(image, 1, 1).pixels[0], 0x80800000u);
}

TEST(Resampling, NothingGivesNothing) {
    EXPECT_TRUE(resampled({}, 3, 3).isEmpty());
    EXPECT_TRUE(resampled(grey(1, 1, {1}), 0, 3).isEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
