// How the toolkit draws its own menus and tooltips: flat, in our type and in the colours of the theme in force.
#pragma once

#include "toolkit/FaceLibrary.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

class ToolkitLookAndFeel final : public juce::LookAndFeel_V4 {
public:
    // The library is borrowed.
    explicit ToolkitLookAndFeel(FaceLibrary& faces);

    // All text of the toolkit comes here for its typeface. The toolkit's own way would open every font of the machine.
    juce::Typeface::Ptr getTypefaceForFont(const juce::Font& font) override;
    juce::Font getPopupMenuFont() override;
    int getPopupMenuBorderSize() override;
    void drawPopupMenuBackground(juce::Graphics& g, int width, int height) override;
    void drawPopupMenuSectionHeader(juce::Graphics& g, const juce::Rectangle<int>& area,
                                    const juce::String& title) override;
    void drawPopupMenuItem(juce::Graphics& g, const juce::Rectangle<int>& area, bool isSeparator, bool isActive,
                           bool isHighlighted, bool isTicked, bool hasSubMenu, const juce::String& text,
                           const juce::String& shortcut, const juce::Drawable* icon,
                           const juce::Colour* textColour) override;
    void drawPopupMenuUpDownArrow(juce::Graphics& g, int width, int height, bool isScrollUpArrow) override;
    void getIdealPopupMenuItemSize(const juce::String& text, bool isSeparator, int standardHeight, int& width,
                                   int& height) override;
    // What is too long for a menu, or for the window that the menu stands in, goes on in another line.
    void getIdealPopupMenuItemSizeWithOptions(const juce::String& text, bool isSeparator, int standardHeight,
                                              int& width, int& height,
                                              const juce::PopupMenu::Options& options) override;
    // Points of a row, less than usual where the menu or one that opens from it would have to be scrolled in the parent
    // component that the options name.
    int rowHeightFor(const juce::PopupMenu& menu, const juce::PopupMenu::Options& options);
    // The toolkit would fill it with white where the desktop has no windows that can be seen through.
    void preparePopupMenuWindow(juce::Component& menu) override { menu.setOpaque(false); }
    // The toolkit would draw a second frame inside a menu that stands in a window.
    void drawResizableFrame(juce::Graphics&, int, int, const juce::BorderSize<int>&) override {}
    void drawTooltip(juce::Graphics& g, const juce::String& text, int width, int height) override;
    juce::Rectangle<int> getTooltipBounds(const juce::String& text, juce::Point<int> pointer,
                                          juce::Rectangle<int> parent) override;

private:
    // Of it or of the longest that opens from it.
    int heightOf(const juce::PopupMenu& menu, const juce::PopupMenu::Options& options);
    // In lines of at most `width` points, of the theme's colour.
    juce::TextLayout layOutTooltip(const juce::String& text, int width) const;
    juce::TextLayout layOutRow(const juce::String& text, int width, juce::Colour ink);

    FaceLibrary& faces_;
};

} // namespace QVM_NAMESPACE
