#include "description/tables/ParameterTable.h"

#include "description/Description.h"

#include <gmock/gmock.h>
#include <set>

namespace QVM_NAMESPACE {
namespace {

bool Inside(const QVMRect& inner, const QVMSize& outer) {
    return inner.x >= 0 && inner.y >= 0 && inner.x + inner.width <= outer.width &&
           inner.y + inner.height <= outer.height;
}

bool Meet(const QVMRect& a, const QVMRect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

// The room that a parameter's frame lies in: its clump, or the view around the clumps.
QVMSize RoomOf(const QVMParameter& parameter) {
    if (!parameter.isDisplaced) return {parameter.clump->frame.width, parameter.clump->frame.height};
    return parameter.clump->clumpType == QVMClumpTypeAdvanced ? QVMSize{200, 320} : QVMSize{418, 290};
}

TEST(ParameterTableLayout, LinksAndTheHiddenParameterHaveNoFrame) {
    const std::set<std::uint32_t> without = {4, 5, 8, 11, 12, 16, 17, 18, 19};
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        EXPECT_EQ(GetParameter(pid)->frame.isEmpty(), without.contains(pid)) << pid;
        EXPECT_EQ(GetParameter(pid)->controlFrame.isEmpty(), without.contains(pid)) << pid;
    }
}

TEST(ParameterTableLayout, EveryFrameLiesInsideItsRoomAndEveryControlInsideItsFrame) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        EXPECT_TRUE(Inside(parameter.frame, RoomOf(parameter))) << pid;
        const QVMSize own = {parameter.frame.width, parameter.frame.height};
        EXPECT_TRUE(Inside(parameter.controlFrame, own)) << pid;
        EXPECT_TRUE(Inside(parameter.labelFrame, own)) << pid;
        EXPECT_FALSE(Meet(parameter.labelFrame, parameter.controlFrame)) << pid;
    }
}

TEST(ParameterTableLayout, ControlsOfAClumpDoNotOverlap) {
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
        const auto& parameters = GetClump(cid)->parameters;
        for (std::size_t a = 0; a < parameters.size(); ++a) {
            for (std::size_t b = a + 1; b < parameters.size(); ++b) {
                if (parameters[a]->isDisplaced != parameters[b]->isDisplaced) continue;
                EXPECT_FALSE(Meet(parameters[a]->frame, parameters[b]->frame))
                    << parameters[a]->name << " and " << parameters[b]->name;
            }
        }
    }
}

TEST(ParameterTableLayout, TheEndsOfARangeShareTheirColumnAndStackTheLowEndOnTop) {
    for (const auto& [low, high] :
         {std::pair{pidTiltRangeLow, pidTiltRangeHigh}, std::pair{pidFilterRangeLow, pidFilterRangeHigh}}) {
        EXPECT_EQ(GetParameter(low)->controlFrame, GetParameter(high)->controlFrame);
        EXPECT_EQ(GetParameter(low)->frame.x, GetParameter(high)->frame.x);
        EXPECT_EQ(GetParameter(low)->frame.y + GetParameter(low)->frame.height, GetParameter(high)->frame.y);
    }
}

TEST(ParameterTableLayout, ANormalDragOfANumberSweepsItsRangeInAHandsBreadth) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const auto& points = GetParameter(pid)->numberOnlyPixelConstants;
        if (GetParameter(pid)->controlType != QVMControlTypeNumber) {
            EXPECT_TRUE(points.empty());
            continue;
        }
        ASSERT_EQ(points.size(), 3u);
        EXPECT_GE(1.5 * points[1], 150);
        EXPECT_LE(1.5 * points[1], 200);
        EXPECT_GT(points[2], 0);
        EXPECT_GT(points[0], points[1]);
    }
}

TEST(ParameterTableLayout, TheNumbersOfTheAdvancedDrawerStandInRowsAndColumns) {
    for (const auto& [low, high] :
         {std::pair{pidFilterSlopeLow, pidFilterSlopeHigh}, std::pair{pidFilterResonanceLow, pidFilterResonanceHigh}}) {
        const QVMRect &left = GetParameter(low)->frame, &right = GetParameter(high)->frame;
        EXPECT_EQ(left.y, right.y) << low;
        EXPECT_EQ(left.width, right.width) << low;
        EXPECT_EQ(left.height, right.height) << low;
        EXPECT_EQ(right.x - left.x,
                  GetParameter(pidFilterSlopeHigh)->frame.x - GetParameter(pidFilterSlopeLow)->frame.x)
            << low;
        EXPECT_EQ(left.x, GetParameter(pidFilterSlopeLow)->frame.x) << low;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
