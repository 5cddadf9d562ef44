#include "toolkit/ToolTipWindow.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class Tipped : public juce::Component, public juce::TooltipClient {
public:
    juce::String getTooltip() override { return "Tilt"; }
};

TEST(ToolTipWindow, TipIsThatOfAComponentWithoutTheKeyboard) {
    Tipped tipped;
    juce::Component plain;
    ToolTipWindow window(plain, [](int, int) { return juce::Point<int>(); });
    ASSERT_FALSE(tipped.hasKeyboardFocus(true));
    EXPECT_EQ(window.getTipFor(tipped), "Tilt");
    EXPECT_EQ(window.getTipFor(plain), "");
}

TEST(ToolTipWindow, StandsWhereItIsPlacedWhateverItsSizeAndWhereverItIsPut) {
    juce::Component parent;
    ToolTipWindow window(parent, [](int width, int height) { return juce::Point<int>(100 - width, 50 - height); });
    window.setBounds(3, 4, 30, 20);
    EXPECT_EQ(window.getBounds(), juce::Rectangle<int>(70, 30, 30, 20));
    window.setTopLeftPosition(0, 0);
    EXPECT_EQ(window.getPosition(), juce::Point<int>(70, 30));
}

TEST(ToolTipWindow, LetsBeSeenWhatIsBehindItsCorners) {
    juce::Component parent;
    const ToolTipWindow window(parent, [](int, int) { return juce::Point<int>(); });
    EXPECT_FALSE(window.isOpaque());
}

} // namespace
} // namespace QVM_NAMESPACE
