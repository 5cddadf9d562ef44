#include "toolkit/ToolkitLookAndFeel.h"

#include "theme/QVMUITheme.h"
#include "toolkit/Conversions.h"
#include "toolkit/FaceTypeface.h"

namespace QVM_NAMESPACE {

namespace {

constexpr int menuMargin = 5; // above the first item and below the last
constexpr float menuTextPoints = 13, tooltipPoints = 12;
constexpr int tooltipMargin = 6, tooltipBelowPointer = 20;
constexpr float tooltipWidth = 260;

} // namespace

ToolkitLookAndFeel::ToolkitLookAndFeel(FaceLibrary& faces) : faces_(faces) {
    using Id = juce::PopupMenu::ColourIds;
    const QVMPalette& palette = QVMUITheme::theme().palette; // of menus the same in both themes
    setColour(Id::backgroundColourId, toToolkit(palette.menu));
    setColour(Id::textColourId, toToolkit(palette.menuText));
    setColour(Id::headerTextColourId, toToolkit(palette.menuHeading));
    setColour(Id::highlightedBackgroundColourId, toToolkit(palette.menuMark));
    setColour(Id::highlightedTextColourId, toToolkit(palette.onAccent));
}

juce::Typeface::Ptr ToolkitLookAndFeel::getTypefaceForFont(const juce::Font& font) {
    return new FaceTypeface(faces_.face(FaceLibrary::systemFaceName), font.getTypefaceName());
}

juce::Font ToolkitLookAndFeel::getPopupMenuFont() {
    return juce::Font().withPointHeight(menuTextPoints);
}

int ToolkitLookAndFeel::getPopupMenuBorderSize() {
    return menuMargin;
}

void ToolkitLookAndFeel::drawPopupMenuBackground(juce::Graphics& g, int width, int height) {
    g.fillAll(findColour(juce::PopupMenu::backgroundColourId));
    g.setColour(toToolkit(QVMUITheme::theme().palette.menuBorder));
    g.drawRect(0, 0, width, height);
}

juce::TextLayout ToolkitLookAndFeel::layOutTooltip(const juce::String& text) const {
    juce::AttributedString styled;
    styled.append(text, juce::Font().withPointHeight(tooltipPoints), toToolkit(QVMUITheme::theme().palette.menuText));
    juce::TextLayout layout;
    layout.createLayoutWithBalancedLineLengths(styled, tooltipWidth);
    return layout;
}

juce::Rectangle<int> ToolkitLookAndFeel::getTooltipBounds(const juce::String& text, juce::Point<int> pointer,
                                                          juce::Rectangle<int> parent) {
    const juce::TextLayout layout = layOutTooltip(text);
    const int width = static_cast<int>(layout.getWidth()) + 2 * tooltipMargin + 1;
    const int height = static_cast<int>(layout.getHeight()) + 2 * tooltipMargin;
    return juce::Rectangle<int>(pointer.x, pointer.y + tooltipBelowPointer, width, height).constrainedWithin(parent);
}

void ToolkitLookAndFeel::drawTooltip(juce::Graphics& g, const juce::String& text, int width, int height) {
    drawPopupMenuBackground(g, width, height);
    layOutTooltip(text).draw(g, juce::Rectangle<int>(width, height).reduced(tooltipMargin).toFloat());
}

} // namespace QVM_NAMESPACE
