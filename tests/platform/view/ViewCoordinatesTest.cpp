#include "platform/view/ViewCoordinates.h"

#include "platform/view/View.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

std::unique_ptr<View> view(const Rect& frame, YAxis axis = YAxis::down) {
    return std::make_unique<View>(frame, axis);
}

TEST(ViewCoordinates, CoordinatesTurnOverInAViewWhoseYPointsUp) {
    View root({0, 0, 100, 100});
    View& up = root.addSubview(view({10, 20, 50, 40}, YAxis::up));
    EXPECT_EQ(up.coordinates().fromWindow({10, 60}), (Point{0, 0}));
    EXPECT_EQ(up.coordinates().fromWindow({15, 25}), (Point{5, 35}));
    EXPECT_EQ(up.coordinates().toWindow(Point{5, 35}), (Point{15, 25}));
    EXPECT_EQ(up.coordinates().toWindow(Rect{0, 0, 10, 5}), (Rect{10, 55, 10, 5}));
}

TEST(ViewCoordinates, FramesInsideAViewWhoseYPointsUpCountFromItsBottom) {
    View root({0, 0, 100, 100});
    View& up = root.addSubview(view({0, 0, 100, 100}, YAxis::up));
    View& downIn = up.addSubview(view({0, 70, 20, 30}));          // its top touches the window's top
    View& upIn = up.addSubview(view({50, 0, 20, 30}, YAxis::up)); // at the window's bottom
    EXPECT_EQ(downIn.coordinates().fromWindow({5, 5}), (Point{5, 5}));
    EXPECT_EQ(downIn.coordinates().toWindow(Point{5, 5}), (Point{5, 5}));
    EXPECT_EQ(upIn.coordinates().fromWindow({55, 95}), (Point{5, 5}));
    EXPECT_EQ(root.hitTest({5, 0}), &downIn);
    EXPECT_EQ(root.hitTest({5, 29}), &downIn);
    EXPECT_EQ(root.hitTest({5, 30}), &up);
    EXPECT_EQ(root.hitTest({55, 70}), &upIn);
    EXPECT_EQ(root.hitTest({55, 69}), &up);
    EXPECT_EQ(downIn.coordinates().fromView({5, 5}, upIn), (Point{55, 95}));
}

TEST(ViewCoordinates, AFrameHasItsTopAndLeftEdgesWhicheverWayYPoints) {
    for (const YAxis axis : {YAxis::down, YAxis::up}) {
        View root({0, 0, 100, 100}, axis);
        const View& box = root.addSubview(view({10, 20, 30, 40}));
        const double top = axis == YAxis::down ? 20 : 60, bottom = axis == YAxis::down ? 60 : 20;
        EXPECT_TRUE(box.coordinates().hasInFrame({10, top}));
        EXPECT_FALSE(box.coordinates().hasInFrame({10, bottom}));
        EXPECT_FALSE(box.coordinates().hasInFrame({40, top}));
        EXPECT_TRUE(box.coordinates().hasInFrame({39, 40}));
    }
}

TEST(ViewCoordinates, OfTheSuperviewAreTheFramesCorner) {
    View root({0, 0, 100, 100});
    const View& box = root.addSubview(view({10, 20, 30, 40}));
    EXPECT_EQ(box.coordinates().toSuperview({1, 2}), (Point{11, 22}));
    EXPECT_EQ(box.coordinates().fromSuperview({11, 22}), (Point{1, 2}));
}

} // namespace
} // namespace QVM_NAMESPACE
