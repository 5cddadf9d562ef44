#include "editor/surface/ViewTransforms.h"

#include "platform/runloop/VirtualTime.h"
#include "platform/view/View.h"

#include <gtest/gtest.h>

#include <array>

namespace QVM_NAMESPACE {
namespace {

TEST(ViewTransforms, AScaleThenATranslationMovesByTheScaledFraction) {
    const std::array<QVMTransformStep, 2> steps = {{{"scale", {0.5, 0.5}}, {"translate", {0.5, 0.25}}}};
    const AffineTransform made = QVMTransformFromArray(steps, {400, 200});
    EXPECT_EQ(made.apply(Point{0, 0}), (Point{100, -25})); // upwards
    EXPECT_EQ(made.apply(Point{10, 10}), (Point{105, -20}));
}

TEST(ViewTransforms, IdentityForgetsWhatWasBefore) {
    const std::array<QVMTransformStep, 3> steps = {{{"scale", {0.5, 0.5}}, {"identity", {}}, {"nonsense", {7, 7}}}};
    EXPECT_TRUE(QVMTransformFromArray(steps, {400, 200}).isIdentity());
    EXPECT_TRUE(QVMTransformFromArray({}, {400, 200}).isIdentity());
}

TEST(ViewTransforms, AViewGlidesFromWhereItIsPresented) {
    VirtualTime time;
    View view({0, 0, 100, 100});
    const AffineTransform half = AffineTransform::scale(0.5, 0.5);
    QVMAnimateViewToFromDuration(view, half, std::nullopt, 0.2);
    time.advance(0.1);
    const double onTheWay = view.layer()->presentation().transform.a;
    EXPECT_GT(onTheWay, 0.5);
    EXPECT_LT(onTheWay, 1);
    QVMAnimateViewToFromDuration(view, {}, std::nullopt, 0.25); // back again, from where it has come to
    EXPECT_NEAR(view.layer()->presentation().transform.a, onTheWay, 1e-9);
    time.advance(0.3);
    EXPECT_TRUE(view.layer()->presentation().transform.isIdentity());
}

TEST(ViewTransforms, AGivenStartIsWhereTheGlideBegins) {
    VirtualTime time;
    View view({0, 0, 100, 100});
    QVMAnimateViewToFromDuration(view, {}, AffineTransform::scale(2, 2), 0.2);
    EXPECT_EQ(view.layer()->presentation().transform.a, 2);
    time.advance(0.2);
    EXPECT_EQ(view.layer()->presentation().transform.a, 1);
}

} // namespace
} // namespace QVM_NAMESPACE
