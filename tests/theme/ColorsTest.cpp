#include "theme/Colors.h"

#include <gtest/gtest.h>

#include <random>

namespace QVM_NAMESPACE {
namespace {

TEST(Colors, ConvertsAColourOfTheDescription) {
    EXPECT_EQ(QVMCGColor(ColorFromHexText("#A5666C")), colorFromHex(0xA5666C));
    EXPECT_EQ(QVMCGColor(QVMColor{}), Color::clear());
}

TEST(Colors, InvertingLeavesTheAlpha) {
    EXPECT_EQ(Color::white(0, 0.3f).inverted(), Color::white(1, 0.3f));
    EXPECT_EQ((Color{1, 0.25f, 0, 1}).inverted(), (Color{0, 0.75f, 1, 1}));
}

TEST(Colors, AShadowTakesItsStrengthFromItsInk) {
    EXPECT_EQ(QVMCGClearColor(), (Color{0, 0, 0, 0}));
    EXPECT_EQ(QVMBlur(Color::white(0, 0.2f), 3, {1, 2}), (Shadow{Color::white(0, 0.2f), 3, {1, 2}, 1}));
}

TEST(Colors, CompositesOverAnOpaqueColour) {
    const Color half = composite(Color::white(1, 0.5f), Color::white(0));
    EXPECT_FLOAT_EQ(half.r, 0.5f);
    EXPECT_FLOAT_EQ(half.a, 1.0f);
    EXPECT_EQ(composite(Color::clear(), colorFromHex(0x102030)), colorFromHex(0x102030));
}

TEST(Colors, ContrastIsOneForEqualsAndTwentyOneForBlackOnWhite) {
    EXPECT_NEAR(contrastRatio(Color::white(0), Color::white(1)), 21, 1e-6);
    EXPECT_NEAR(contrastRatio(Color::white(1), Color::white(0)), 21, 1e-6);
    EXPECT_NEAR(contrastRatio(Color::white(0.3f), Color::white(0.3f)), 1, 1e-6);
    EXPECT_NEAR(contrastRatio(Color::white(1), colorFromHex(0x767676)), 4.54, 0.01);
}

TEST(Colors, ContrastedLeavesALegibleColourAlone) {
    EXPECT_EQ(contrasted(colorFromHex(0x71343A), Color::white(1)), colorFromHex(0x71343A));
}

TEST(Colors, ContrastedDarkensAgainstLightAndLightensAgainstDark) {
    const Color grey = colorFromHex(0x938586);
    const Color darker = contrasted(grey, Color::white(1));
    EXPECT_LT(darker.r, grey.r);
    EXPECT_GE(contrastRatio(darker, Color::white(1)), minimumTextContrast);
    EXPECT_LT(contrastRatio(darker, Color::white(1)), minimumTextContrast + 0.3) << "no farther than needed";

    const Color lighter = contrasted(colorFromHex(0x5E5454), colorFromHex(0x151314));
    EXPECT_GT(lighter.r, colorFromHex(0x5E5454).r);
    EXPECT_GE(contrastRatio(lighter, colorFromHex(0x151314)), minimumTextContrast);
}

TEST(Colors, AGroundIsMovedOnlyAsFarAsItsTranslucentTextNeeds) {
    const Color text = Color::white(1, 0.85f), light = colorFromHex(0x938586), dark = colorFromHex(0x71343A);
    EXPECT_EQ(groundForText(dark, text), dark);
    const Color moved = groundForText(light, text);
    EXPECT_GE(contrastRatio(composite(text, moved), moved), minimumTextContrast);
    EXPECT_LT(contrastRatio(composite(text, moved), moved), minimumTextContrast + 0.3);
}

// The share of the way at which it stops is that of the slow search, which sets out anew for every ratio.
TEST(Colors, AGroundForTextIsTheFirstLegibleOneOfThoseThatStandOutMoreAndMore) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> share(0, 1);
    int moved = 0;
    for (int i = 0; i < 300; ++i) {
        const Color ground{share(random), share(random), share(random), 1};
        const Color text = Color::white(static_cast<float>(i % 2), 0.3f + 0.7f * share(random));
        const double ratio = i % 3 ? minimumTextContrast : 3.0;
        Color expected = ground;
        const auto isLegible = [&] { return contrastRatio(composite(text, expected), expected) >= ratio; };
        for (double step = ratio; !isLegible() && step <= 21; step += ratio / 64)
            expected = contrasted(ground, text.withAlpha(1), step);
        EXPECT_EQ(groundForText(ground, text, ratio), expected) << i;
        moved += expected != ground;
    }
    EXPECT_GT(moved, 50);
}

TEST(Colors, ContrastedKeepsAlpha) {
    EXPECT_FLOAT_EQ(contrasted(colorFromHex(0x938586, 0.5f), Color::white(1)).a, 0.5f);
}

} // namespace
} // namespace QVM_NAMESPACE
