// Pixels that can be computed. Each kind of picture has its negative control: a blank one and one that is shifted by a
// single pixel do not pass.
#include "toolkit/LookPainter.h"

#include "platform/layer/TextMetrics.h"
#include "toolkit/Pictures.h"

#include <gtest/gtest.h>

#include <numbers>

namespace QVM_NAMESPACE {
namespace {

const Color red{1, 0, 0, 1}, blue{0, 0, 1, 1}, white = Color::white(1);
constexpr int pathTolerance = 2; // levels: the last pixels of a path are not quite full

void expectOnly(const Image& image, const Expected& expected, int tolerance = 1) {
    EXPECT_TRUE(agrees(image, expected, tolerance));
    EXPECT_FALSE(agrees(blank(image), expected, tolerance));
    EXPECT_FALSE(agrees(shifted(image, 1, 0), expected, tolerance));
    EXPECT_FALSE(agrees(shifted(image, 0, 1), expected, tolerance));
}

bool inside(const Rect& r, int x, int y) {
    return r.contains(Point{x + 0.5, y + 0.5});
}

class LookPainterTest : public ::testing::TestWithParam<double> {};

TEST_P(LookPainterTest, BorderLiesInsideTheBoundsOnWholePixels) {
    const double s = GetParam();
    const auto layer = plainLayer({4, 6, 20, 10}, red);
    layer->look().setBorder(1, blue);
    const double width = std::max(1.0, std::round(s));
    const auto whole = [s](double v) { return std::round(v * s); };
    const Rect outer{whole(4), whole(6), std::round(20 * s), std::round(10 * s)};
    expectOnly(pictureOf(layer, {30, 20}, s), [&](int x, int y) {
        if (inside(outer.insetBy(width, width), x, y)) return red;
        return inside(outer, x, y) ? blue : Color::clear();
    });
}

TEST_P(LookPainterTest, RoundedCornersCoverTheirArea) {
    const double s = GetParam();
    const auto layer = plainLayer({4, 4, 40, 40}, white);
    layer->look().setCornerRadius(20);
    const Image disc = pictureOf(layer, {48, 48}, s);
    EXPECT_NEAR(coverage(disc), std::numbers::pi * 400 * s * s, 8 * s * s * 0.25 + 2);
    EXPECT_EQ(pixelAt(disc, static_cast<int>(24 * s), static_cast<int>(24 * s)), 0xFFFFFFFFu);
    EXPECT_EQ(pixelAt(disc, static_cast<int>(4 * s) + 1, static_cast<int>(4 * s) + 1), 0u);
}

TEST_P(LookPainterTest, ShapeIsFilledWhereItsPathIs) {
    const double s = GetParam();
    const auto shape = std::make_shared<ShapeLayer>();
    shape->setFrame({4, 4, 40, 40});
    shape->setPath(Path::rect({8, 4, 12, 20}));
    shape->setFillColor(red);
    const Rect box{12 * s, 8 * s, 12 * s, 20 * s};
    expectOnly(
        pictureOf(shape, {48, 48}, s), [&](int x, int y) { return inside(box, x, y) ? red : Color::clear(); },
        pathTolerance);
}

TEST_P(LookPainterTest, PathsPointUpInALayerThatDoes) {
    const double s = GetParam();
    const auto shape = std::make_shared<ShapeLayer>(YAxis::up);
    shape->setFrame({4, 4, 40, 40}); // in a view whose y points up too: 4 above the bottom
    shape->setPath(Path::rect({0, 0, 40, 10}));
    shape->setFillColor(red);
    const Rect box{4 * s, (48 - 14) * s, 40 * s, 10 * s};
    expectOnly(
        pictureOf(shape, {48, 48}, s, YAxis::up),
        [&](int x, int y) { return inside(box, x, y) ? red : Color::clear(); }, pathTolerance);
}

TEST_P(LookPainterTest, DashesOfALineAreWhereThePatternPutsThem) {
    const double s = GetParam();
    const auto shape = std::make_shared<ShapeLayer>();
    shape->setFrame({0, 0, 40, 8});
    shape->setPath(Path().moveTo({0, 4}).lineTo({40, 4}));
    shape->setStrokeColor(red);
    shape->setLineWidth(4);
    shape->setLineDashPattern({8, 4});
    shape->setLineDashPhase(4);
    expectOnly(pictureOf(shape, {40, 8}, s), [&](int x, int y) {
        const bool isOn = std::fmod((x + 0.5) / s + 4, 12) < 8;
        return isOn && inside({0, 2 * s, 40 * s, 4 * s}, x, y) ? red : Color::clear();
    });
}

TEST_P(LookPainterTest, ContentsFillTheBounds) {
    const double s = GetParam();
    // Two by one blocks, six times as large as the layer at scale 1.
    auto image = std::make_shared<Image>(Image{120, 60, std::vector<std::uint32_t>(7200)});
    for (std::size_t i = 0; i < 7200; ++i)
        image->pixels[i] = i % 120 < 60 ? 0xFFFF0000u : 0xFF0000FFu;
    const auto layer = std::make_shared<Layer>();
    layer->setFrame({4, 4, 20, 10});
    layer->look().setContents(image);
    expectOnly(pictureOf(layer, {28, 18}, s), [&](int x, int y) {
        if (!inside({4 * s, 4 * s, 20 * s, 10 * s}, x, y)) return Color::clear();
        return x + 0.5 < 14 * s ? red : blue;
    });
}

TEST_P(LookPainterTest, TintFillsTheContentsAlpha) {
    const double s = GetParam();
    auto image = std::make_shared<Image>(Image{2, 1, {0xFFFFFFFFu, 0}});
    const auto layer = std::make_shared<Layer>();
    layer->setFrame({0, 0, 2 / s, 1 / s}); // a pixel a pixel
    layer->look().setContents(image);
    layer->look().setContentsTint(blue);
    const Image picture = pictureOf(layer, {10, 10}, s);
    EXPECT_TRUE(isNear(pixelAt(picture, 0, 0), blue, 1));
    EXPECT_EQ(pixelAt(picture, 1, 0), 0u);
}

TEST_P(LookPainterTest, ShadowLiesBeneathAndBesides) {
    const double s = GetParam();
    const auto layer = plainLayer({10, 10, 20, 20}, red);
    layer->look().setShadow({Color::white(0), 0, {4, 8}, 1}); // hard, so that each pixel is known
    expectOnly(pictureOf(layer, {44, 48}, s), [&](int x, int y) {
        if (inside({10 * s, 10 * s, 20 * s, 20 * s}, x, y)) return red;
        return inside({14 * s, 18 * s, 20 * s, 20 * s}, x, y) ? Color::white(0) : Color::clear();
    });
}

INSTANTIATE_TEST_SUITE_P(Scales, LookPainterTest, ::testing::Values(1.0, 2.0, 3.0));

class LookPainterBoxTest : public ::testing::TestWithParam<double> {};

TEST_P(LookPainterBoxTest, EdgesAreSharpAtAnyScale) {
    const double s = GetParam();
    const auto layer = plainLayer({4, 5, 21, 11}, red);
    layer->look().setBorder(1, red);
    for (const std::uint32_t pixel : pictureOf(layer, {32, 24}, s).pixels)
        EXPECT_TRUE(pixel == 0 || pixel == 0xFFFF0000u) << std::hex << pixel;
}

INSTANTIATE_TEST_SUITE_P(Scales, LookPainterBoxTest, ::testing::Values(1.0, 1.1, 1.25, 1.5, 1.75, 2.25, 3.0));

TEST(LookPainterPattern, TilesFromTheTopLeftWithAPixelAPoint) {
    auto tile = std::make_shared<Image>(Image{2, 2, {0xFFFF0000u, 0xFF0000FFu, 0xFF0000FFu, 0xFFFF0000u}});
    const auto layer = std::make_shared<Layer>();
    layer->setFrame({3, 3, 10, 10});
    layer->look().setBackgroundPattern(tile);
    expectOnly(pictureOf(layer, {16, 16}, 1), [](int x, int y) {
        if (!inside({3, 3, 10, 10}, x, y)) return Color::clear();
        return (x + y) % 2 == 0 ? red : blue;
    });
}

// Text

std::shared_ptr<TextLayer> textLayer(const Rect& frame, const std::string& text, double size) {
    auto layer = std::make_shared<TextLayer>();
    layer->setFrame(frame);
    layer->setString({text, {"HelveticaNeue-Medium", size}, white});
    return layer;
}

constexpr double capHeight = 1456.0 / 2048, ascent = 1900.0 / 2048; // of the embedded face, ems

class LookPainterTextTest : public ::testing::TestWithParam<double> {};

TEST_P(LookPainterTextTest, CapitalsHaveTheirHeightAndStandInTheMiddle) {
    const double s = GetParam();
    const Rect ink = inkBox(pictureOf(textLayer({10, 10, 80, 60}, "H", 40), {100, 80}, s));
    EXPECT_NEAR(ink.height, capHeight * 40 * s, 1);
    EXPECT_NEAR(ink.midY(), 40 * s, 1);
    EXPECT_NEAR(ink.midX(), 50 * s, 1);
}

TEST_P(LookPainterTextTest, BaselineFallsOnAWholePixel) {
    // The feet of the letters fill their row and leave the next one clear.
    const double s = GetParam();
    const Image picture = pictureOf(textLayer({10, 10, 80, 33}, "HHH", 13), {100, 60}, s);
    const Rect ink = inkBox(picture);
    int strongest = 0, below = 0;
    for (int x = 0; x < picture.width; ++x) {
        strongest = std::max(strongest, channel(pixelAt(picture, x, static_cast<int>(ink.maxY()) - 1), 24));
        below = std::max(below, channel(pixelAt(picture, x, static_cast<int>(ink.maxY())), 24));
    }
    EXPECT_EQ(below, 0);
    EXPECT_GT(strongest, s < 2 ? 190 : 250); // a stem is 1.6 points wide
}

TEST_P(LookPainterTextTest, PlacementAndAlignmentPutItWhereTheySay) {
    const double s = GetParam();
    const Size size{120, 100};
    const auto inkOf = [&](TextAlignment alignment, TextPlacement placement) {
        const auto layer = textLayer({10, 10, 100, 80}, "H", 40);
        layer->setAlignment(alignment, placement);
        return inkBox(pictureOf(layer, size, s));
    };
    const Rect top = inkOf(TextAlignment::left, TextPlacement::top);
    EXPECT_NEAR(top.maxY(), (10 + ascent * 40) * s, 1);
    EXPECT_NEAR(top.minX(), (10 + 0.08 * 40) * s, 2 * s); // after its side bearing
    const Rect bottom = inkOf(TextAlignment::right, TextPlacement::bottom);
    EXPECT_NEAR(bottom.maxY(), (90 - 500.0 / 2048 * 40) * s, 1);
    EXPECT_NEAR(bottom.maxX(), (110 - 0.08 * 40) * s, 2 * s);
}

TEST_P(LookPainterTextTest, RunsShareABaselineUnlessTheyAreRaised) {
    const double s = GetParam();
    const auto layer = textLayer({0, 0, 60, 60}, "H", 40);
    AttributedString text = layer->string();
    text.append({"H", {"HelveticaNeue-Medium", 20}, white});
    layer->setString(text);
    const Image picture = pictureOf(layer, {60, 60}, s);
    const auto footOf = [&](int fromX, int toX) {
        Image part = picture;
        for (int y = 0; y < part.height; ++y) {
            for (int x = 0; x < part.width; ++x) {
                if (x < fromX || x >= toX) part.pixels[static_cast<std::size_t>(y * part.width + x)] = 0;
            }
        }
        return inkBox(part).maxY();
    };
    const juce::SharedResourcePointer<ToolkitRuntime> runtime;
    const double start = (60 - sizeOf(text).width) / 2;
    const double seam = start + sizeOf({"H", {"HelveticaNeue-Medium", 40}, white}).width;
    EXPECT_EQ(footOf(0, static_cast<int>(seam * s)), footOf(static_cast<int>(seam * s), picture.width));

    text.runs[1].baselineOffset = 10;
    layer->setString(text);
    const Image raised = pictureOf(layer, {60, 60}, s);
    EXPECT_NE(raised.pixels, picture.pixels);
}

TEST_P(LookPainterTextTest, KeepsItsColour) {
    const double s = GetParam();
    const auto layer = textLayer({0, 0, 40, 40}, "I", 40);
    layer->setString({"I", {"HelveticaNeue-Medium", 40}, red});
    const Image picture = pictureOf(layer, {40, 40}, s);
    EXPECT_EQ(pixelAt(picture, static_cast<int>(20 * s), static_cast<int>(20 * s)), 0xFFFF0000u);
    for (const std::uint32_t pixel : picture.pixels)
        EXPECT_EQ(pixel & 0xFFFF, 0u);
}

INSTANTIATE_TEST_SUITE_P(Scales, LookPainterTextTest, ::testing::Values(1.0, 1.25, 2.0));

TEST(LookPainterIcons, GlyphIsCentredOnItsDrawing) {
    const auto layer = std::make_shared<TextLayer>();
    layer->setFrame({0, 0, 100, 100});
    layer->setString({"\uE103", {"QVM-Icons-Regular", 80}, white}); // drawn around the middle of its em
    const Rect ink = inkBox(pictureOf(layer, {100, 100}, 2));
    EXPECT_NEAR(ink.midX(), 100, 2);
    EXPECT_NEAR(ink.midY(), 100, 2);
}

TEST(LookPainterText, TextWithNoFontsDrawsNothingAndFailsNothing) {
    const auto layer = textLayer({0, 0, 30, 30}, "", 20);
    EXPECT_EQ(coverage(pictureOf(layer, {30, 30}, 1)), 0);
}

} // namespace
} // namespace QVM_NAMESPACE
