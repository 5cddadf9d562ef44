#include "description/tables/Artwork.h"

#include "resources/Base64.h"
#include "resources/DecodedPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>

namespace QVM_NAMESPACE {
namespace {

using tests::DecodedPicture;
using tests::decodePng;
using tests::Rgba;

constexpr int kPixelsPerPoint = 6;

DecodedPicture decoded(const char* base64) {
    return decodePng(decodeBase64(base64));
}

bool columnHasInk(const DecodedPicture& picture, int x) {
    for (int y = 0; y < picture.height; ++y)
        if (picture.at(x, y).alpha > 0) return true;
    return false;
}

// First and last row with opaque ink.
std::pair<int, int> inkRows(const DecodedPicture& picture) {
    int first = picture.height, last = -1;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (picture.at(x, y).alpha < 128) continue;
            first = std::min(first, y);
            last = y;
        }
    }
    return {first, last};
}

struct Words {
    const char* name;
    const char* base64;
    int heightPoints, capHeightPoints;
};

const std::array kWords = {
    Words{"SLOPE", artwork::labelSlope, 13, 7},     Words{"RESO", artwork::labelReso, 13, 7},
    Words{"TILT", artwork::headingTilt, 15, 9},     Words{"OUT", artwork::headingOutput, 15, 9},
    Words{"FILTER", artwork::headingFilter, 15, 9}, Words{"ADV FILTER", artwork::headingAdvFilter, 15, 9},
};

TEST(Artwork, TheLogoIsTheMarkInTheProductColourOnARoundedSquare) {
    const DecodedPicture logo = decoded(artwork::logo);
    ASSERT_EQ(logo.width, 120);
    ASSERT_EQ(logo.height, 120);
    const Rgba mark{0xA5, 0x66, 0x6C, 255}, paper{0xF7, 0xF5, 0xF4, 255};
    EXPECT_EQ(logo.at(60, 60), mark);
    EXPECT_EQ(logo.at(30, 30), paper);
    EXPECT_EQ(logo.at(90, 90), paper);
    EXPECT_EQ(logo.at(0, 0).alpha, 0);
    EXPECT_EQ(logo.at(11, 11).alpha, 0) << "the corner is round";
    // It rises to the right: the curve is low at the left and high at the right.
    EXPECT_EQ(logo.at(27, 88), mark);
    EXPECT_EQ(logo.at(93, 32), mark);
}

TEST(Artwork, TheBannerIsAsWideAsTheAdvancedDrawerAndLeavesTheHeadingFree) {
    const DecodedPicture banner = decoded(artwork::advBanner);
    ASSERT_EQ(banner.width, 200 * kPixelsPerPoint);
    ASSERT_EQ(banner.height, 30 * kPixelsPerPoint);
    for (int x = 0; x < 90 * kPixelsPerPoint; ++x)
        ASSERT_FALSE(columnHasInk(banner, x)) << x;
    EXPECT_TRUE(columnHasInk(banner, 150 * kPixelsPerPoint));
}

TEST(Artwork, WordsHaveTheirHeightAndStandInTheMiddleOfIt) {
    for (const Words& words : kWords) {
        const DecodedPicture picture = decoded(words.base64);
        ASSERT_EQ(picture.height, words.heightPoints * kPixelsPerPoint) << words.name;
        const auto [first, last] = inkRows(picture);
        // Round letters reach beyond the capitals' lines by a pixel or so.
        EXPECT_NEAR(last - first + 1, words.capHeightPoints * kPixelsPerPoint, 3) << words.name;
        EXPECT_NEAR(first, picture.height - 1 - last, 1) << words.name;
    }
}

TEST(Artwork, WordsBeginAndEndAtTheEdges) {
    for (const Words& words : kWords) {
        const DecodedPicture picture = decoded(words.base64);
        ASSERT_GT(picture.width, 0) << words.name;
        EXPECT_TRUE(columnHasInk(picture, 0)) << words.name;
        EXPECT_TRUE(columnHasInk(picture, picture.width - 1) || columnHasInk(picture, picture.width - 2)) << words.name;
    }
}

TEST(Artwork, WordsAreBlackOnTransparentWithSoftEdges) {
    for (const Words& words : kWords) {
        const DecodedPicture picture = decoded(words.base64);
        int clear = 0, solid = 0, between = 0;
        for (const Rgba& pixel : picture.pixels) {
            if (pixel.alpha > 0) {
                EXPECT_EQ(pixel.red + pixel.green + pixel.blue, 0) << words.name;
            }
            ++(pixel.alpha == 0 ? clear : pixel.alpha == 255 ? solid : between);
        }
        EXPECT_GT(clear, solid) << words.name;
        EXPECT_GT(solid, between) << words.name;
        EXPECT_GT(between, 0) << words.name;
    }
}

TEST(Artwork, ADamagedPictureDoesNotDecode) {
    auto bytes = decodeBase64(artwork::logo);
    ASSERT_GT(bytes.size(), 200u);
    bytes[200] ^= std::byte{0xFF};
    EXPECT_EQ(decodePng(bytes).width, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
