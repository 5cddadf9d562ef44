#include "editor/surface/BorderRect.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr Rect box = {10, 20, 100, 50};

TEST(BorderRect, LiesInsideAlongItsEdge) {
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::left, .width = 2}), (Rect{10, 20, 2, 50}));
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::top, .width = 2}), (Rect{10, 20, 100, 2}));
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::right, .width = 2}), (Rect{108, 20, 2, 50}));
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::bottom, .width = 2}), (Rect{10, 68, 100, 2}));
}

TEST(BorderRect, LeavesItsInsetFreeAtBothEnds) {
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::left, .inset = 6}), (Rect{10, 26, 1, 38}));
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::right, .inset = 6}), (Rect{109, 26, 1, 38}));
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::top, .inset = 6}), (Rect{16, 20, 88, 1}));
    EXPECT_EQ(QVMBorderRectWithBorderSpec(box, {.edge = QVMEdge::bottom, .inset = 6}), (Rect{16, 69, 88, 1}));
}

} // namespace
} // namespace QVM_NAMESPACE
