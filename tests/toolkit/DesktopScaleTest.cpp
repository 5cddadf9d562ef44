#include "toolkit/DesktopScale.h"

#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(DesktopScale, NinetySixDotsAnInchAreAPixelAPoint) {
    EXPECT_EQ(scaleOfResources("Xft.dpi:\t96\n"), 1);
    EXPECT_EQ(scaleOfResources("Xft.dpi:\t120\n"), 1.25);
    EXPECT_EQ(scaleOfResources("Xft.dpi:\t144\n"), 1.5);
    EXPECT_EQ(scaleOfResources("Xft.dpi:\t192\n"), 2);
    EXPECT_EQ(scaleOfResources("Xft.dpi:\t48\n"), 0.5);
    EXPECT_EQ(scaleOfResources("Xft.dpi:\t384\n"), 4);
}

TEST(DesktopScale, IsInEighthsSoThatTheEditorHasWholePixels) {
    EXPECT_EQ(scaleOfResources("Xft.dpi: 100\n"), 1);
    EXPECT_EQ(scaleOfResources("Xft.dpi: 108\n"), 1.125);
    EXPECT_EQ(scaleOfResources("Xft.dpi: 109.5\n"), 1.125);
}

TEST(DesktopScale, IsFoundAmongOtherResourcesHoweverTheyAreWritten) {
    EXPECT_EQ(scaleOfResources("Xcursor.size:\t24\nXft.antialias:\t1\nXft.dpi:\t144\nXft.rgba:\trgb\n"), 1.5);
    EXPECT_EQ(scaleOfResources(" Xft.dpi :  144 "), 1.5);
    EXPECT_EQ(scaleOfResources("Xft.dpi:\t96\nXft.dpi:\t192\n"), 2) << "the last word counts";
}

TEST(DesktopScale, NonsenseSaysNothing) {
    for (const char* resources : {"", "\n\n", "Xft.dpi", "Xft.dpi:", "Xft.dpi:\n", "Xft.dpi: many", "Xft.dpi: 0",
                                  "Xft.dpi: -96", "Xft.dpi: nan", "Xft.dpi: inf", "Xft.dpi: 1e9", "Xft.dpi: 144 dots",
                                  "! Xft.dpi: 144", "Xft.dpi.more: 144", "XXft.dpi: 144", ":::"})
        EXPECT_EQ(scaleOfResources(resources), std::nullopt) << resources;
}

TEST(DesktopScale, IsOneWithoutAServer) {
    VirtualTime time;
    XConnection connection;
    DesktopScale scale(connection);
    EXPECT_EQ(scale.value(), 1);
    time.advance(2);
    EXPECT_EQ(scale.value(), 1);
}

} // namespace
} // namespace QVM_NAMESPACE
