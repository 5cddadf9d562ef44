#include "packaging/icons/SmallerPicture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

// A picture whose pixels have these reds, and all else 0.
SquarePicture withReds(int side, const std::vector<std::uint16_t>& reds) {
    SquarePicture picture{side, {}};
    for (const std::uint16_t red : reds)
        picture.components.insert(picture.components.end(), {red, 0, 0, 0});
    return picture;
}

std::vector<int> redsOf(const SquarePicture& picture) {
    std::vector<int> reds;
    for (std::size_t i = 0; i < picture.components.size(); i += 4)
        reds.push_back(picture.components[i]);
    return reds;
}

TEST(SmallerPicture, AveragesTheFourPixelsThatBecomeOne) {
    EXPECT_THAT(redsOf(smallerPicture(withReds(2, {100, 200, 300, 1000}), 1)), ElementsAre(400));
}

TEST(SmallerPicture, KeepsRowsAndColumnsWhereTheyWere) {
    const std::vector<std::uint16_t> reds{10, 10, 20, 20, 10, 10, 20, 20, 30, 30, 40, 40, 30, 30, 40, 40};
    EXPECT_THAT(redsOf(smallerPicture(withReds(4, reds), 2)), ElementsAre(10, 20, 30, 40));
}

TEST(SmallerPicture, TakesPartsOfPixelsAtEdgesOfAnArea) {
    // Three columns become two: each takes one and half of the one between.
    const std::vector<std::uint16_t> reds{300, 600, 0, 300, 600, 0, 300, 600, 0};
    EXPECT_THAT(redsOf(smallerPicture(withReds(3, reds), 2)), ElementsAre(400, 200, 400, 200));
}

TEST(SmallerPicture, AveragesEachComponentByItself) {
    SquarePicture picture{2, {4, 0, 0, 8, 4, 0, 40, 8, 4, 0, 0, 8, 4, 400, 0, 8}};
    EXPECT_THAT(smallerPicture(picture, 1).components, ElementsAre(4, 100, 10, 8));
}

TEST(SmallerPicture, LeavesOneColourAsItIsAtEverySide) {
    const SquarePicture full{256, std::vector<std::uint16_t>(256u * 256u * 4u, 65535)};
    for (const int side : {16, 22, 24, 48, 100, 255, 256}) {
        const SquarePicture smaller = smallerPicture(full, side);
        EXPECT_EQ(smaller.side, side);
        EXPECT_THAT(smaller.components, SizeIs(4u * static_cast<unsigned>(side * side)));
        EXPECT_THAT(smaller.components, Each(65535));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
