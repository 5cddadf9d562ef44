#include "viz/sketches/QVMLineAttributes.h"

#include "SketchFixture.h"
#include "platform/surface/CpuDrawingSurface.h"

#include <array>
#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::SizeIs;

class QVMLineAttributesTest : public testing::Test {
protected:
    void SetUp() override {
        line.xs = xs;
        line.ys = ys;
        line.colour = {1, 1, 1, 1};
    }
    void draw() {
        surface.begin({54, 62}, 1);
        line.draw(surface);
        ASSERT_TRUE(surface.finish(picture));
    }
    std::uint32_t pixel(int x, int y) const { return picture.pixels[static_cast<std::size_t>(y * 54 + x)]; }

    std::vector<float> xs = {-1, 1}, ys = {0, 0};
    QVMLineAttributes line{curveCanvas(54, 62, 1)};
    CpuDrawingSurface surface;
    Image picture;
};

TEST_F(QVMLineAttributesTest, WithoutAPatternThereAreNoDashes) {
    EXPECT_THAT(line.dashesOfSegment(), SizeIs(0));
}

TEST_F(QVMLineAttributesTest, ASegmentIsCutIntoDashesByItsLengthInPoints) {
    line.dashes = {4, 2};
    const auto dashes = line.dashesOfSegment();
    ASSERT_THAT(dashes, SizeIs(9)); // 54 points over 6
    for (std::size_t i = 0; i < dashes.size(); ++i) {
        const auto start = static_cast<float>(i) * 6;
        EXPECT_NEAR(dashes[i].x0, -1 + start / 27, 1e-5);
        EXPECT_NEAR(dashes[i].x1, -1 + (start + 4) / 27, 1e-5);
        EXPECT_EQ(dashes[i].y0, 0);
    }
}

TEST_F(QVMLineAttributesTest, ARestTooShortForAPeriodStillGetsADashWithinTheSegment) {
    xs = {-1, 0.9f};
    line.dashes = {4, 2};
    const auto dashes = line.dashesOfSegment();
    ASSERT_THAT(dashes, SizeIs(9)); // 51.3 points over 6, rounded up
    EXPECT_FLOAT_EQ(dashes.back().x1, 0.9f);
}

TEST_F(QVMLineAttributesTest, ASlantedSegmentIsMeasuredAlongItself) {
    ys = {-1, 1};
    line.dashes = {10, 10};
    EXPECT_THAT(line.dashesOfSegment(), SizeIs(5)); // 82.2 points over 20
}

TEST_F(QVMLineAttributesTest, ASegmentWithoutLengthOrANumberHasNoDashes) {
    line.dashes = {4, 2};
    xs = {0.5f, 0.5f};
    EXPECT_THAT(line.dashesOfSegment(), SizeIs(0));
    xs = {0.5f, NAN};
    EXPECT_THAT(line.dashesOfSegment(), SizeIs(0));
}

TEST_F(QVMLineAttributesTest, DrawsItsWidthInPointsAroundTheLine) {
    line.widthPoints = 2;
    draw();
    EXPECT_EQ(pixel(20, 30), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(20, 31), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(20, 28), 0u);
    EXPECT_EQ(pixel(20, 33), 0u);
}

TEST_F(QVMLineAttributesTest, DrawsGapsBetweenDashes) {
    line.dashes = {4, 2};
    line.widthPoints = 2;
    draw();
    for (int x = 0; x < 54; ++x)
        EXPECT_EQ(pixel(x, 30) != 0, x % 6 < 4) << x;
}

TEST_F(QVMLineAttributesTest, VerticesCanHaveColoursOfTheirOwn) {
    line.widthPoints = 4;
    line.setColor(1, {1, 0, 0, 1});
    draw();
    EXPECT_GT(pixel(2, 31) & 0xFF, 230u); // white at the start
    EXPECT_LT(pixel(51, 31) & 0xFF, 25u); // red at the end
    EXPECT_NEAR(pixel(27, 31) & 0xFF, 128, 8);
}

} // namespace
} // namespace QVM_NAMESPACE
