#include "toolkit/ToolkitTextMetrics.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class ToolkitTextMetricsTest : public ::testing::TestWithParam<const char*> {
protected:
    FaceLibrary faces;
    ToolkitTextMetrics metrics{faces};
};

TEST_P(ToolkitTextMetricsTest, SizesAreEmsInPointsAndExact) {
    const FontFace& face = faces.face(GetParam());
    for (const double size : {7.0, 10.0, 12.5, 16.0, 48.0}) {
        const Font font{GetParam(), size};
        EXPECT_DOUBLE_EQ(metrics.ascent(font), face.ascent() * size);
        EXPECT_DOUBLE_EQ(metrics.descent(font), face.descent() * size);
        EXPECT_DOUBLE_EQ(metrics.width({"0", font, {}}), face.glyph(U'0').advance * size);
        EXPECT_NEAR(metrics.width({"12.50", font, {}}) * 2, metrics.width({"12.50", {GetParam(), 2 * size}, {}}), 1e-9);
    }
}

TEST_P(ToolkitTextMetricsTest, FaceIsThere) {
    EXPECT_TRUE(metrics.hasFace(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Faces, ToolkitTextMetricsTest,
                         ::testing::Values("HelveticaNeue-Medium", "HelveticaNeue", "HelveticaNeue-Italic",
                                           "HelveticaNeue-CondensedBold", "QVM-Icons-Regular"));

TEST(ToolkitTextMetrics, UnknownFaceIsMeasuredAsTheSystemFaceAndNotCalledThere) {
    FaceLibrary faces;
    const ToolkitTextMetrics metrics{faces};
    EXPECT_FALSE(metrics.hasFace("Nobody-Regular"));
    EXPECT_EQ(metrics.width({"W", {"Nobody-Regular", 10}, {}}), metrics.width({"W", {"HelveticaNeue-Medium", 10}, {}}));
}

} // namespace
} // namespace QVM_NAMESPACE
