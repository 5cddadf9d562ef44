#include "editor/surface/CornerPlaces.h"

#include "editor/surface/CurveNumbersFixture.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/ScaleGrip.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using CornerPlacesTest = CurveNumbersFixture;

TEST_F(CornerPlacesTest, NothingOfThemStandsWhereTheEditorsCornerIsTaken) {
    const Rect grip = ui_->parts().scaleGrip()->frame();
    for (const float gain : {0.0f, 18.0f, -18.0f}) {
        hostSets(pidTiltGain, gain);
        frames(1);
        EXPECT_FALSE(corner(pidFilterRangeHigh).frame().intersects(grip)) << corner(pidFilterRangeHigh).frame().maxY();
        for (double x = 0; x < 200; x += 5) {
            pointTo({x, 140});
            EXPECT_FALSE(readout().frames()[0].intersects(grip)) << x << " at " << gain;
        }
    }
}

TEST_F(CornerPlacesTest, CornersStandAtTheirFrequenciesOnTheCurve) {
    hostSets(pidTiltGain, 6);
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(200));
    hostSets(pidTiltRangeHigh, GetParameter(pidTiltRangeHigh)->reverseCastValue(2000));
    frames(1);
    for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh}) {
        const Point center = middleOf(corner(pid));
        EXPECT_NEAR(center.x, scale().xOf(double{memoized(pid)}), 0.51);
        EXPECT_LT(std::abs(center.y - 100), 70);
    }
    EXPECT_GT(middleOf(corner(pidTiltRangeLow)).y, middleOf(corner(pidTiltRangeHigh)).y);
}

TEST_F(CornerPlacesTest, NoTwoCornersStandInTheSamePlace) {
    const std::uint32_t pids[] = {pidTiltRangeLow, pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh};
    for (const float high : {24000.0f, 20000.0f, 16000.0f, 2000.0f}) {
        hostSets(pidFilterRangeHigh, GetParameter(pidFilterRangeHigh)->reverseCastValue(high));
        hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(20));
        frames(0.5);
        for (const std::uint32_t one : pids) {
            EXPECT_EQ(window_.hitTest(middleOf(corner(one))), &handle(one)) << one << " at " << high;
            for (const std::uint32_t other : pids) {
                const Point a = middleOf(corner(one)), b = middleOf(corner(other));
                if (one == other) continue;
                EXPECT_GE(std::hypot(a.x - b.x, a.y - b.y), 2 * CurveCorner::discRadius) << high;
            }
        }
    }
}

TEST_F(CornerPlacesTest, ZeroIsToldBesideTheCornersThatStandOnItsLine) {
    const auto zero = [this] {
        for (const auto& layer : numbers().marks().layer()->tree().sublayers())
            if (layer->name() == "curveMark:0 dB" && !layer->isHidden()) return layer->frame();
        return Rect{};
    };
    const Rect beside = zero();
    EXPECT_GE(beside.x, middleOf(corner(pidTiltRangeLow)).x + CurveCorner::shownRadius(CurveCorner::Shape::disc) + 2);
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + 100, at.y});
    EXPECT_LT(zero().x, beside.x) << "in its place, once that is free";
    EXPECT_FALSE(zero().isEmpty());
    release({at.x + 100, at.y});
}

TEST_F(CornerPlacesTest, NoCornerStandsBelowTheFrameButtonOrCutsAMark) {
    const Rect button = FrameButton::placeIn({0, 0, 200, 200}, FrameButton::inset);
    for (const float gain : {0.0f, 6.0f, 18.0f, -18.0f}) {
        for (const float low : {10.0f, 12.0f, 16.0f, 40.0f}) {
            hostSets(pidTiltGain, gain);
            hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(low));
            frames(0.3);
            for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh}) {
                const Point center = middleOf(corner(pid));
                const bool isTilt = pid == pidTiltRangeLow || pid == pidTiltRangeHigh;
                const double radius =
                    CurveCorner::shownRadius(isTilt ? CurveCorner::Shape::disc : CurveCorner::Shape::ring);
                const Rect disc = {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
                ASSERT_FALSE(disc.intersects(button)) << pid << " at " << gain;
                for (const auto& layer : numbers().marks().layer()->tree().sublayers()) {
                    const bool isMark = !layer->isHidden() && layer->name().starts_with("curveMark:");
                    ASSERT_FALSE(isMark && layer->frame().intersects(disc)) << layer->name() << ", " << gain;
                }
            }
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
