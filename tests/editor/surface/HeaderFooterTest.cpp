#include "editor/surface/HeaderFooter.h"

#include "theme/ScopedTheme.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr Rect area = {10, 20, 200, 320};

TEST(HeaderFooter, AHeaderEndsInADividerBelowIt) {
    Layer strip;
    QVMFillGenericHeaderFooterOnEdge(strip, area, QVMEdge::top, 30);
    EXPECT_EQ(strip.frame(), (Rect{10, 20, 200, 30}));
    ASSERT_EQ(strip.tree().sublayers().size(), 1u);
    EXPECT_EQ(strip.tree().sublayers().front()->frame(), (Rect{0, 29, 200, 1}));
}

TEST(HeaderFooter, AFooterEndsInADividerAboveIt) {
    Layer strip;
    QVMFillGenericHeaderFooterOnEdge(strip, area, QVMEdge::bottom, 30);
    EXPECT_EQ(strip.frame(), (Rect{10, 310, 200, 30}));
    EXPECT_EQ(strip.tree().sublayers().front()->frame(), (Rect{0, 0, 200, 1}));
}

TEST(HeaderFooter, OneAtASideEndsInADividerOnItsInnerSide) {
    Layer left, right;
    QVMFillGenericHeaderFooterOnEdge(left, area, QVMEdge::left, 30);
    QVMFillGenericHeaderFooterOnEdge(right, area, QVMEdge::right, 30);
    EXPECT_EQ(left.frame(), (Rect{10, 20, 30, 320}));
    EXPECT_EQ(left.tree().sublayers().front()->frame(), (Rect{29, 0, 1, 320}));
    EXPECT_EQ(right.frame(), (Rect{180, 20, 30, 320}));
    EXPECT_EQ(right.tree().sublayers().front()->frame(), (Rect{0, 0, 1, 320}));
}

TEST(HeaderFooter, FilledAgainItTakesTheThemesColoursAndNoSecondDivider) {
    Layer strip;
    QVMFillGenericHeaderFooterOnEdge(strip, area, QVMEdge::top, 30);
    EXPECT_EQ(strip.look().backgroundColor(), QVMUITheme::light().palette.sidePanel);
    const ScopedTheme dark(QVMUITheme::dark());
    QVMFillGenericHeaderFooterOnEdge(strip, area, QVMEdge::top, 30);
    EXPECT_EQ(strip.look().backgroundColor(), QVMUITheme::dark().palette.sidePanel);
    ASSERT_EQ(strip.tree().sublayers().size(), 1u);
    EXPECT_EQ(strip.tree().sublayers().front()->look().backgroundColor(), QVMUITheme::dark().interiorBorderColor);
}

} // namespace
} // namespace QVM_NAMESPACE
