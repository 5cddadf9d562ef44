// That both back ends draw the same picture.
#include "platform/surface/DrawingSurfaceFixture.h"
#include "platform/surface/Pictures.h"

namespace QVM_NAMESPACE {
namespace {

#ifndef __SANITIZE_THREAD__
// Parts of 255: each side rounds what it collects and what it blends.
constexpr int kSamePictureBound = 2;

TEST(DrawingSurfacesTest, BothDrawTheSamePictureWithinTheBound) {
    const auto cpu = make(Backend::cpu), gl = make(Backend::gl);
    ASSERT_NE(gl, nullptr);
    for (const Drawing& drawing : drawings()) {
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            const Image a = picture(*cpu, {48, 36}, scale, drawing.draw),
                        b = picture(*gl, {48, 36}, scale, drawing.draw);
            EXPECT_LE(greatestDifference(a, b), kSamePictureBound) << drawing.name << " at " << scale;
        }
    }
}

TEST(DrawingSurfacesTest, ComparisonFailsForABlankAndForAShiftedPicture) {
    const auto gl = make(Backend::gl);
    ASSERT_NE(gl, nullptr);
    for (const Drawing& drawing : drawings()) {
        const Image image = picture(*gl, {48, 36}, 1, drawing.draw), blank = picture(*gl, {48, 36}, 1, [](auto&) {});
        EXPECT_GT(greatestDifference(image, blank), 10 * kSamePictureBound) << drawing.name;
        EXPECT_GT(greatestDifference(image, shiftedRight(image)), 10 * kSamePictureBound) << drawing.name;
    }
}
#endif

} // namespace
} // namespace QVM_NAMESPACE
