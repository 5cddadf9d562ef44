#include "platform/surface/PackedColor.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

int part(std::uint32_t pixel, int shift) {
    return static_cast<int>(pixel >> shift & 0xFF);
}

TEST(PackedColor, ShadesArePremultipliedAndRounded) {
    EXPECT_EQ(Shades({1, 0.5f, 0, 1}).at(1), 0xFFFF8000u);
    EXPECT_EQ(Shades({1, 0.5f, 0, 1}).at(0.5f), 0x80804000u);
    EXPECT_EQ(Shades({1, 1, 1, 0.5f}).at(1), 0x80808080u);
    EXPECT_EQ(Shades({9, -1, 0, 2}).at(1), 0xFFFF0000u) << "parts beyond the range are brought in";
}

TEST(PackedColor, MoreCoverageNeverGivesASmallerWord) {
    const Shades shades({0.9f, 0.3f, 0.6f, 0.7f});
    std::uint32_t last = 0;
    for (int i = 0; i <= 1000; ++i) {
        const std::uint32_t pixel = shades.at(static_cast<float>(i) / 1000);
        ASSERT_GE(pixel, last) << i;
        last = pixel;
    }
}

TEST(PackedColor, GreaterAndAddedGoPartByPart) {
    EXPECT_EQ(greaterParts(0x10FF2003u, 0x20103004u), 0x20FF3004u);
    EXPECT_EQ(addedParts(0x01020304u, 0x10203040u), 0x11223344u);
    EXPECT_EQ(addedParts(0xFF80FF01u, 0x01FF80FEu), 0xFFFFFFFFu) << "no more than full, and nothing is carried over";
}

TEST(PackedColor, BlendingIsTheRuleRoundedToTheNearest) {
    EXPECT_EQ(blendedOver(0xFF123456u, 0x80402010u), 0xFF123456u);
    EXPECT_EQ(blendedOver(0u, 0x80402010u), 0x80402010u);
    for (unsigned alpha = 0; alpha < 256; alpha += 5) {
        for (unsigned level = 0; level < 256; level += 3) {
            const std::uint32_t under = 0xFFu << 24 | level << 16 | (255 - level) << 8 | level / 2;
            const std::uint32_t blended = blendedOver(alpha << 24, under);
            for (const int shift : {24, 16, 8, 0}) {
                const double exact = (shift == 24 ? alpha : 0) + part(under, shift) * (255.0 - alpha) / 255;
                ASSERT_NEAR(part(blended, shift), exact, 0.5 + 1e-9) << alpha << ' ' << level << ' ' << shift;
            }
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
