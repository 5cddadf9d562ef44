#include "toolkit/ToolkitLookAndFeel.h"

#include "theme/QVMUITheme.h"
#include "theme/Radii.h"
#include "theme/ScopedTheme.h"
#include "toolkit/Conversions.h"
#include "toolkit/ToolkitRuntime.h"

#include <gtest/gtest.h>

#include <functional>

namespace QVM_NAMESPACE {
namespace {

using Draw = std::function<void(juce::LookAndFeel&, juce::Graphics&)>;

constexpr int width = 160, height = 60;

class ToolkitLook : public testing::TestWithParam<const QVMUITheme*> {
protected:
    juce::Image picture(const Draw& draw) {
        juce::Image image(juce::Image::ARGB, width, height, true);
        juce::Graphics g(image);
        draw(look_, g);
        return image;
    }
    static int firstInkedColumn(const juce::Image& image, int beyondAlpha = 128) {
        for (int x = 0; x < image.getWidth(); ++x)
            for (int y = 0; y < image.getHeight(); ++y)
                if (image.getPixelAt(x, y).getAlpha() > beyondAlpha) return x;
        return -1;
    }
    static void item(juce::LookAndFeel& look, juce::Graphics& g, bool isHighlighted, bool isTicked,
                     const juce::String& text) {
        look.drawPopupMenuItem(g, {0, 0, width, height}, false, true, isHighlighted, isTicked, false, text, {}, nullptr,
                               nullptr);
    }
    const QVMPalette& palette() const { return GetParam()->palette; }

    const juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    ToolkitLookAndFeel& look_ = runtime_->lookAndFeel();
    const ScopedTheme theme_{*GetParam()};
};

TEST_P(ToolkitLook, MenusAndTooltipsStandOnTheThemesColourWithOneLineAroundAndRoundCorners) {
    const Draw menu = [](auto& look, auto& g) { look.drawPopupMenuBackground(g, width, height); };
    const Draw tip = [](auto& look, auto& g) { look.drawTooltip(g, "", width, height); };
    for (const Draw& each : {menu, tip}) {
        const juce::Image image = picture(each);
        EXPECT_EQ(image.getPixelAt(width / 2, height / 2), toToolkit(palette().menu));
        EXPECT_EQ(image.getPixelAt(0, 0).getAlpha(), 0) << "a corner";
        const Color line = composite(palette().menuBorder, palette().menu);
        EXPECT_LT(std::abs(image.getPixelAt(0, height / 2).getRed() - toToolkit(line).getRed()), 3);
        EXPECT_EQ(image.getPixelAt(2, height / 2), toToolkit(palette().menu)) << "one line and no more";
    }
}

TEST_P(ToolkitLook, ATooltipsTextIsWholeInAWindowThatIsNarrowerThanItsLine) {
    const juce::String text = "Keys: Shift+F10, Editor, Small window";
    const juce::Rectangle<int> wide = look_.getTooltipBounds(text, {0, 0}, {0, 0, 480, 320});
    const juce::Rectangle<int> narrow = look_.getTooltipBounds(text, {0, 0}, {0, 0, 200, 200});
    EXPECT_GT(wide.getWidth(), 200) << "it would not fit";
    EXPECT_LE(narrow.getWidth(), 200);
    EXPECT_GE(narrow.getHeight(), wide.getHeight()) << "in more lines, not less";
    const juce::Image image = picture([&](auto& look, auto& g) { look.drawTooltip(g, text, 150, height); });
    for (int y = 4; y < height - 4; ++y)
        EXPECT_EQ(image.getPixelAt(146, y), toToolkit(palette().menu)) << "nothing reaches the edge at " << y;
}

TEST_P(ToolkitLook, AMenusTextIsWholeInAWindowThatIsNarrowerThanItsLine) {
    juce::Component small, normal;
    small.setSize(200, 200);
    normal.setSize(480, 320);
    const auto sizeIn = [this](juce::Component& window, const juce::String& text) {
        juce::Point<int> size;
        look_.getIdealPopupMenuItemSizeWithOptions(text, false, 0, size.x, size.y,
                                                   juce::PopupMenu::Options().withParentComponent(&window));
        return size;
    };
    const juce::String text = "Copy all settings as URL to Clipboard";
    EXPECT_EQ(sizeIn(normal, text).y, sizeIn(normal, "Undo").y);
    EXPECT_LE(sizeIn(small, text).x, 156) << "what the toolkit gives a row there";
    EXPECT_EQ(sizeIn(small, "Undo"), sizeIn(normal, "Undo"));
    EXPECT_LE(sizeIn(normal, text + " and " + text).x, 300) << "a menu leaves room for another one";
    const int tall = sizeIn(small, text).y;
    EXPECT_GT(tall, 2 * sizeIn(small, "Undo").y - 10);
    const juce::Image image = picture([&](auto& look, auto& g) {
        look.drawPopupMenuItem(g, {0, 0, 156, tall}, false, true, false, false, false, text, {}, nullptr, nullptr);
    });
    const auto inked = [&image](int fromY, int toY) {
        for (int y = fromY; y < toY; ++y)
            for (int x = 0; x < image.getWidth(); ++x)
                if (image.getPixelAt(x, y).getAlpha() > 128) return true;
        return false;
    };
    EXPECT_TRUE(inked(0, tall / 3));
    EXPECT_TRUE(inked(tall * 2 / 3, tall));
    EXPECT_FALSE(inked(0, 2) || inked(tall - 1, tall)) << "and stands within the row";
}

TEST_P(ToolkitLook, RowsAreLessHighInAMenuThatWouldBeTooLongNeverBelowTheirText) {
    juce::PopupMenu menu, longer;
    menu.addSectionHeader("Hall");
    for (int i = 0; i < 10; ++i)
        menu.addItem(1 + i, "Row");
    longer.addSubMenu("More", menu);
    const auto rowHeightIn = [this](const juce::PopupMenu& shown, int windowHeight) {
        juce::Component window;
        window.setSize(480, windowHeight);
        return look_.rowHeightFor(shown, juce::PopupMenu::Options().withParentComponent(&window));
    };
    const int usual = rowHeightIn(menu, 400), whole = 10 * usual + usual * 3 / 2 + 2 * look_.getPopupMenuBorderSize();
    const int gap = 24 + 2 * look_.getPopupMenuBorderSize(); // to the ends of the window, by the toolkit
    EXPECT_EQ(rowHeightIn(menu, whole + gap), usual);
    EXPECT_EQ(rowHeightIn(menu, whole + gap - 1), usual - 1);
    EXPECT_EQ(rowHeightIn(longer, whole + gap - 1), usual - 1) << "one that opens from it counts too";
    EXPECT_GE(rowHeightIn(menu, 60), look_.getPopupMenuFont().getHeight());
}

// The toolkit draws the arrow over whatever row the end of the menu cuts.
TEST_P(ToolkitLook, NoRowIsReadBelowAScrollingArrow) {
    for (const bool isUp : {false, true}) {
        const juce::Image image = picture([&](auto& look, auto& g) {
            g.fillAll(juce::Colours::red);
            look.drawPopupMenuUpDownArrow(g, width, 24, isUp);
        });
        EXPECT_EQ(image.getPixelAt(width / 4, 12), toToolkit(palette().menu)) << "beside the arrow";
        EXPECT_EQ(image.getPixelAt(width / 4, isUp ? 1 : 22), toToolkit(palette().menu)) << "at the end of the menu";
        EXPECT_LT(image.getPixelAt(width / 4, isUp ? 0 : 23).getSaturation(), 0.5f) << "nor upon the frame's line";
        EXPECT_GT(image.getPixelAt(width / 4, isUp ? 23 : 0).getRed(), 200) << "what comes before is seen";
        EXPECT_EQ(image.getPixelAt(1, 12), juce::Colours::red) << "the frame beside it is left alone";
    }
}

TEST_P(ToolkitLook, WhatIsShownInAWindowHasNoSecondFrame) {
    const juce::Image image =
        picture([](auto& look, auto& g) { look.drawResizableFrame(g, width, height, juce::BorderSize<int>(5)); });
    EXPECT_EQ(firstInkedColumn(image, 0), -1);
}

TEST_P(ToolkitLook, TitleAndItemsOfAMenuBeginAtOneLine) {
    const int item =
        firstInkedColumn(picture([](auto& look, auto& g) { ToolkitLook::item(look, g, false, false, "Hall"); }));
    const int inset = look_.getPopupMenuBorderSize(); // which the toolkit leaves at both ends of a title
    const int title = firstInkedColumn(picture([inset](auto& look, auto& g) {
        look.drawPopupMenuSectionHeader(g, {inset, 0, width - 2 * inset, height}, "Hall");
    }));
    EXPECT_GT(item, 0);
    EXPECT_EQ(title, item);
}

TEST_P(ToolkitLook, TheTickStandsBeforeTheText) {
    const juce::Image ticked =
        picture([](auto& look, auto& g) { ToolkitLook::item(look, g, false, true, juce::String()); });
    const int from = firstInkedColumn(ticked);
    EXPECT_GT(from, 0);
    EXPECT_LT(from,
              firstInkedColumn(picture([](auto& look, auto& g) { ToolkitLook::item(look, g, false, false, "Hall"); })) -
                  4);
}

TEST_P(ToolkitLook, TheMarkUnderAnItemIsRoundAndStandsIn) {
    const juce::Image image =
        picture([](auto& look, auto& g) { ToolkitLook::item(look, g, true, false, juce::String()); });
    const int inset = look_.getPopupMenuBorderSize();
    EXPECT_EQ(image.getPixelAt(width / 2, height / 2), toToolkit(palette().menuMark));
    EXPECT_EQ(image.getPixelAt(inset - 1, height / 2).getAlpha(), 0);
    EXPECT_LT(image.getPixelAt(inset, 0).getAlpha(), 128);
}

INSTANTIATE_TEST_SUITE_P(Both, ToolkitLook, testing::Values(&QVMUITheme::light(), &QVMUITheme::dark()),
                         [](const auto& test) { return test.param->invertLabels ? "dark" : "light"; });

} // namespace
} // namespace QVM_NAMESPACE
