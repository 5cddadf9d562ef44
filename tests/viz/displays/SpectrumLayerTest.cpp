// The pixels of a spectrum, against what its levels say they are. What holds of the right picture must not hold of an
// empty one or of one that is shifted.
#include "viz/displays/SpectrumLayer.h"

#include "viz/analysis/SpectrumBands.h"
#include "viz/analysis/SpectrumLevels.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

constexpr int kWidth = 200, kHeight = 144; // points
constexpr SpectrumColours kColours = {.area = Color{0, 0, 1, 1}, .edge = Color{0, 1, 0, 1}, .line = Color{1, 0, 0, 1}};

std::vector<float> flat(float level) {
    return std::vector<float>(bands::count, level);
}
// A bell of an octave about a band.
std::vector<float> bell(std::size_t middle, float level) {
    std::vector<float> levels = flat(SpectrumLevels::range.min);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const double away = std::abs(static_cast<double>(i) - static_cast<double>(middle)) / 12;
        if (away < 1) levels[i] = static_cast<float>(level - away * 20);
    }
    return levels;
}

class SpectrumLayerTest : public testing::TestWithParam<double> {
protected:
    void SetUp() override {
        layer.setFrame({0, 0, kWidth, kHeight});
        layer.look().setContentsScale(GetParam());
    }
    int pixels(double points) const { return static_cast<int>(std::lround(points * GetParam())); }
    static std::uint32_t at(const Image& image, int x, int y) {
        return image.pixels[static_cast<std::size_t>(y * image.width + x)];
    }
    const Image& picture() const { return *layer.contents(); }
    PresentedLayer presented() const { return layer.presentation(0); }
    // Whether it shows an area up to this level, of which an edge of a point is the upper end.
    bool showsArea(const Image& image, float level, int shift = 0) const {
        const double top = kHeight * -double{level} / 72 + shift;
        for (const int x : {0, image.width / 3, image.width - 1}) {
            if (at(image, x, pixels(top) - pixels(2)) != 0) return false;
            if ((at(image, x, pixels(top)) & 0xFF00u) == 0) return false;
            if (at(image, x, pixels(top) + pixels(2)) != 0xFF0000FFu) return false;
            if (at(image, x, image.height - 1) != 0xFF0000FFu) return false;
        }
        return true;
    }

    SpectrumLayer layer{kColours};
};
INSTANTIATE_TEST_SUITE_P(Scales, SpectrumLayerTest, testing::Values(1.0, 1.5, 2.0));

TEST_P(SpectrumLayerTest, OfNothingIsEmptyAndTakesNoPixels) {
    EXPECT_FALSE(layer.hasLook(presented()));
    EXPECT_EQ(layer.show(flat(SpectrumLevels::range.min), {}), Redraw::yes) << "it is there now";
    EXPECT_FALSE(layer.hasLook(presented()));
    EXPECT_EQ(picture().pixels, std::vector<std::uint32_t>(picture().pixels.size()));
}

TEST_P(SpectrumLayerTest, FillsWhatIsBelowTheOutputAndDrawsItsEdge) {
    layer.show(flat(-36), {});
    EXPECT_EQ(picture().width, pixels(kWidth));
    EXPECT_EQ(picture().height, pixels(kHeight));
    EXPECT_TRUE(showsArea(picture(), -36));
    EXPECT_FALSE(showsArea(picture(), -36, 4)) << "shifted";
    EXPECT_FALSE(showsArea(picture(), -38));
    layer.show(flat(SpectrumLevels::range.min), {});
    EXPECT_FALSE(showsArea(picture(), -36)) << "blank";
}

TEST_P(SpectrumLayerTest, DrawsTheInputAsALineAlone) {
    layer.show(flat(SpectrumLevels::range.min), flat(-36));
    const int top = pixels(kHeight / 2.0);
    EXPECT_EQ(at(picture(), 50, top) >> 16 & 0xFF, at(picture(), 50, top) >> 24) << "in its colour";
    EXPECT_GT(at(picture(), 50, top) >> 24, 100u);
    EXPECT_EQ(at(picture(), 50, top - pixels(2)), 0u);
    EXPECT_EQ(at(picture(), 50, top + pixels(2)), 0u);
    EXPECT_EQ(at(picture(), 50, picture().height - 1), 0u) << "no area";
}

TEST_P(SpectrumLayerTest, ABellIsHighestWhereItIs) {
    layer.show(bell(191, -10), {});
    const auto middle = static_cast<int>(std::lround(191.5 / 301.2 * picture().width));
    const int top = pixels(kHeight * 10.0 / 72);
    EXPECT_NE(at(picture(), middle, top + pixels(3)), 0u);
    EXPECT_EQ(at(picture(), middle, top - pixels(2)), 0u);
    EXPECT_EQ(at(picture(), middle + pixels(12), picture().height - 1), 0u) << "beside it";
    EXPECT_EQ(at(picture(), middle - pixels(12), picture().height - 1), 0u);
}

TEST_P(SpectrumLayerTest, ASlopeHasNoSteps) {
    std::vector<float> ramp = flat(0);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = std::clamp(-72 + (static_cast<float>(i) - 100) * 2.4f, -72.0f, 0.0f); // over thirty bands
    layer.setColours({.area = Color{1, 1, 1, 1}, .edge = Color{}, .line = Color{}});
    layer.show(ramp, {});
    const int x = picture().width * 115 / 301; // in the middle of it
    int partly = 0;
    for (int y = 0; y < picture().height; ++y) {
        const std::uint32_t alpha = at(picture(), x, y) >> 24;
        partly += alpha > 0 && alpha < 255;
    }
    const double rowsAColumn = 2.4 / 72 * kHeight / kWidth * 301;
    EXPECT_NEAR(partly, rowsAColumn, 2.5) << "as many as the slope crosses in a column";
    EXPECT_GE(partly, 5);
}

TEST_P(SpectrumLayerTest, TakesNoMoreRoomThanItNeeds) {
    layer.show(flat(-54), {});
    const Rect box = layer.lookBounds(presented());
    EXPECT_EQ(box.maxY(), kHeight);
    EXPECT_LE(box.y, kHeight * 0.75 - 0.5);
    EXPECT_GE(box.y, kHeight * 0.75 - 3);
    for (int y = 0; y < static_cast<int>(box.y * GetParam()); ++y)
        for (int x = 0; x < picture().width; ++x)
            ASSERT_EQ(at(picture(), x, y), 0u) << x << " " << y;
}

TEST_P(SpectrumLayerTest, IsDrawnAgainOnlyWhenItLooksDifferent) {
    EXPECT_EQ(layer.show(flat(-30), {}), Redraw::yes);
    const std::uint64_t version = layer.look().version();
    EXPECT_EQ(layer.show(flat(-30), {}), Redraw::no);
    EXPECT_EQ(layer.show(flat(-30.01f), {}), Redraw::no);
    EXPECT_EQ(layer.look().version(), version);
    EXPECT_EQ(layer.show(flat(-31), {}), Redraw::yes);
    EXPECT_EQ(layer.show(flat(-31), flat(-31)), Redraw::yes) << "an input beside it";
    EXPECT_NE(layer.look().version(), version);
}

TEST_P(SpectrumLayerTest, SlowChangesAddUp) {
    layer.show(flat(-30), {});
    int redrawn = 0;
    for (int i = 1; i <= 100; ++i) // three decibels in all
        redrawn += layer.show(flat(-30 - static_cast<float>(i) * 0.03f), {}) == Redraw::yes;
    EXPECT_GT(redrawn, 10);
    EXPECT_LT(redrawn, 100);
}

TEST_P(SpectrumLayerTest, TakesItsNewSizeAndColours) {
    layer.show(flat(-36), {});
    layer.setFrame({0, 0, 54, 62});
    EXPECT_EQ(picture().width, pixels(54));
    EXPECT_EQ(picture().height, pixels(62));
    EXPECT_EQ(at(picture(), 3, picture().height - 1), 0xFF0000FFu);
    layer.setColours({.area = Color{1, 0, 0, 1}, .edge = Color{0, 1, 0, 1}, .line = Color{}});
    EXPECT_EQ(at(picture(), 3, picture().height - 1), 0xFFFF0000u);
}

} // namespace
} // namespace QVM_NAMESPACE
