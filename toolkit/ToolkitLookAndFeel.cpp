#include "toolkit/ToolkitLookAndFeel.h"

#include "theme/MenuText.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"
#include "toolkit/Conversions.h"
#include "toolkit/FaceTypeface.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// All in points.
constexpr int menuMargin = 5;                      // above the first item and below the last, and beside all
constexpr int rowHeight = 18, leastRowHeight = 16; // the latter in a menu that would be too long
constexpr int separatorHeight = 7;
constexpr int textX = 24, textRight = 20; // from a row's ends; the tick stands before the text, an arrow behind it
constexpr int longestRow = 240;           // of a row's text; what is longer goes on below
constexpr int toolkitsGap = 24; // that a menu and a margin at either side leave free in the window, by the toolkit
constexpr float tickX = 11, tickSize = 8, arrowSize = 8, signWidth = 1.5f;
constexpr float frameWidth = 1;
constexpr float tooltipPoints = 12;
constexpr int tooltipMargin = 7, tooltipBelowPointer = 20;
constexpr int tooltipWidth = 260; // of its text; less in a window that is not as wide
constexpr float inactiveAlpha = 0.45f;
constexpr double opaqueShare = 0.65; // of the part of a menu that has a scrolling arrow

const QVMPalette& palette() {
    return QVMUITheme::theme().palette;
}

// The ground of a menu or a tooltip, with round corners and one line around it.
void drawFrame(juce::Graphics& g, int width, int height, double radius) {
    const auto round = static_cast<float>(radius);
    const auto box = juce::Rectangle<int>(width, height).toFloat();
    g.setColour(toToolkit(palette().menu));
    g.fillRoundedRectangle(box, round);
    g.setColour(toToolkit(palette().menuBorder));
    g.drawRoundedRectangle(box.reduced(frameWidth / 2), round - frameWidth / 2, frameWidth);
}

void drawSign(juce::Graphics& g, const juce::Path& sign) {
    g.strokePath(sign, juce::PathStrokeType(signWidth, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
}

juce::Path tick(juce::Point<float> middle) {
    juce::Path path;
    path.startNewSubPath(middle.translated(-tickSize / 2, 0));
    path.lineTo(middle.translated(-tickSize / 8, tickSize * 3 / 8));
    path.lineTo(middle.translated(tickSize / 2, -tickSize * 3 / 8));
    return path;
}

// An open arrow head that points along `direction`, a unit vector.
juce::Path arrowHead(juce::Point<float> middle, juce::Point<float> direction) {
    const juce::Point<float> along = direction * (arrowSize / 4),
                             across = {direction.y * arrowSize / 2, direction.x * arrowSize / 2};
    juce::Path path;
    path.startNewSubPath(middle - along - across);
    path.lineTo(middle + along);
    path.lineTo(middle - along + across);
    return path;
}

} // namespace

ToolkitLookAndFeel::ToolkitLookAndFeel(FaceLibrary& faces) : faces_(faces) {
    // Anything but opaque: what is behind a menu is seen at its corners.
    setColour(juce::PopupMenu::backgroundColourId, juce::Colours::transparentBlack);
}

juce::Typeface::Ptr ToolkitLookAndFeel::getTypefaceForFont(const juce::Font& font) {
    return new FaceTypeface(faces_.face(FaceLibrary::systemFaceName), font.getTypefaceName());
}

juce::Font ToolkitLookAndFeel::getPopupMenuFont() {
    return juce::Font().withPointHeight(static_cast<float>(menuTextPoints));
}

int ToolkitLookAndFeel::getPopupMenuBorderSize() {
    return menuMargin;
}

void ToolkitLookAndFeel::drawPopupMenuBackground(juce::Graphics& g, int width, int height) {
    drawFrame(g, width, height, radii::box);
}

// The toolkit sets the title in from the ends of a row by the margin.
void ToolkitLookAndFeel::drawPopupMenuSectionHeader(juce::Graphics& g, const juce::Rectangle<int>& area,
                                                    const juce::String& title) {
    g.setFont(getPopupMenuFont());
    g.setColour(toToolkit(palette().menuHeading));
    g.drawText(title, area.withTrimmedLeft(textX - menuMargin), juce::Justification::centredLeft, true);
}

void ToolkitLookAndFeel::drawPopupMenuItem(juce::Graphics& g, const juce::Rectangle<int>& area, bool isSeparator,
                                           bool isActive, bool isHighlighted, bool isTicked, bool hasSubMenu,
                                           const juce::String& text, const juce::String&, const juce::Drawable*,
                                           const juce::Colour*) {
    const juce::Rectangle<int> row = area.reduced(menuMargin, 0);
    if (isSeparator) {
        g.setColour(toToolkit(palette().menuBorder));
        g.fillRect(row.withSizeKeepingCentre(row.getWidth(), 1));
        return;
    }
    const bool isMarked = isHighlighted && isActive;
    if (isMarked) {
        g.setColour(toToolkit(palette().menuMark));
        g.fillRoundedRectangle(row.toFloat(), static_cast<float>(radii::mark));
    }
    const Color ink = isMarked ? palette().onAccent : palette().menuText;
    g.setColour(toToolkit(ink.withAlpha(isActive ? 1 : inactiveAlpha)));
    const float middle = row.toFloat().getCentreY();
    if (isTicked) drawSign(g, tick({static_cast<float>(area.getX()) + tickX + tickSize / 4, middle}));
    if (hasSubMenu) drawSign(g, arrowHead({static_cast<float>(row.getRight()) - arrowSize, middle}, {1, 0}));
    const juce::Rectangle<int> room = area.withTrimmedLeft(textX).withTrimmedRight(textRight);
    g.setFont(getPopupMenuFont());
    if (area.getHeight() <= rowHeight || getPopupMenuFont().getStringWidth(text) <= room.getWidth())
        return g.drawText(text, room, juce::Justification::centredLeft, true);
    const juce::TextLayout lines =
        layOutRow(text, room.getWidth(), toToolkit(ink.withAlpha(isActive ? 1 : inactiveAlpha)));
    lines.draw(g, room.toFloat().withSizeKeepingCentre(static_cast<float>(room.getWidth()), lines.getHeight()));
}

// The arrow stands over a row that is cut by the menu's end: the row fades away below it.
void ToolkitLookAndFeel::drawPopupMenuUpDownArrow(juce::Graphics& g, int width, int height, bool isScrollUpArrow) {
    const juce::Rectangle<int> zone = juce::Rectangle<int>(width, height).reduced(menuMargin, 0);
    const float edge = static_cast<float>(isScrollUpArrow ? 0 : height), inner = static_cast<float>(height) - edge;
    const juce::Colour ground = toToolkit(palette().menu);
    juce::ColourGradient fade(ground, 0, edge, ground.withAlpha(0.0f), 0, inner, false);
    fade.addColour(opaqueShare, ground);
    g.setGradientFill(fade);
    g.fillRect(zone);
    g.setColour(toToolkit(palette().menuBorder));
    g.fillRect(zone.withHeight(1).withY(isScrollUpArrow ? 0 : height - 1)); // the frame's line, which a row can hide
    g.setColour(toToolkit(palette().menuText));
    drawSign(g,
             arrowHead(juce::Rectangle<int>(width, height).toFloat().getCentre(), {0, isScrollUpArrow ? -1.0f : 1.0f}));
}

void ToolkitLookAndFeel::getIdealPopupMenuItemSize(const juce::String& text, bool isSeparator, int, int& width,
                                                   int& height) {
    height = isSeparator ? separatorHeight : rowHeight;
    width = isSeparator ? 0 : textX + textRight + getPopupMenuFont().getStringWidth(text) + 1;
}

void ToolkitLookAndFeel::getIdealPopupMenuItemSizeWithOptions(const juce::String& text, bool isSeparator,
                                                              int standardHeight, int& width, int& height,
                                                              const juce::PopupMenu::Options& options) {
    getIdealPopupMenuItemSize(text, isSeparator, standardHeight, width, height);
    if (!isSeparator && options.getStandardItemHeight() > 0) height = options.getStandardItemHeight();
    int room = longestRow;
    if (const juce::Component* const window = options.getParentComponent())
        room = std::min(room, window->getWidth() - toolkitsGap - 4 * menuMargin - textX - textRight);
    if (isSeparator || room <= 0 || width <= textX + textRight + room + 1) return;
    const juce::TextLayout lines = layOutRow(text, room, {});
    width = textX + textRight + room;
    height += static_cast<int>(std::ceil(lines.getHeight() * static_cast<float>(lines.getNumLines() - 1) /
                                         static_cast<float>(lines.getNumLines())));
}

int ToolkitLookAndFeel::heightOf(const juce::PopupMenu& menu, const juce::PopupMenu::Options& options) {
    int total = 2 * menuMargin, longest = 0;
    for (juce::PopupMenu::MenuItemIterator items(menu); items.next();) {
        const juce::PopupMenu::Item& item = items.getItem();
        int width = 0, height = 0;
        getIdealPopupMenuItemSizeWithOptions(item.text, item.isSeparator, 0, width, height, options);
        total += item.isSectionHeader ? height + height / 2 : height; // a title has more, by the toolkit
        if (item.subMenu) longest = std::max(longest, heightOf(*item.subMenu, options));
    }
    return std::max(total, longest);
}

int ToolkitLookAndFeel::rowHeightFor(const juce::PopupMenu& menu, const juce::PopupMenu::Options& options) {
    const int room = options.getParentComponent()->getHeight() - 2 * menuMargin - toolkitsGap;
    for (int height = rowHeight; height > leastRowHeight; --height)
        if (heightOf(menu, options.withStandardItemHeight(height)) <= room) return height;
    return leastRowHeight;
}

juce::TextLayout ToolkitLookAndFeel::layOutRow(const juce::String& text, int width, juce::Colour ink) {
    juce::AttributedString styled;
    styled.append(text, getPopupMenuFont(), ink);
    juce::TextLayout layout;
    layout.createLayout(styled, static_cast<float>(width));
    return layout;
}

juce::TextLayout ToolkitLookAndFeel::layOutTooltip(const juce::String& text, int width) const {
    juce::AttributedString styled;
    styled.append(text, juce::Font().withPointHeight(tooltipPoints), toToolkit(palette().menuText));
    juce::TextLayout layout;
    layout.createLayout(styled, static_cast<float>(width)); // balanced, short lines would make long ones wrap
    return layout;
}

juce::Rectangle<int> ToolkitLookAndFeel::getTooltipBounds(const juce::String& text, juce::Point<int> pointer,
                                                          juce::Rectangle<int> parent) {
    const juce::TextLayout layout =
        layOutTooltip(text, std::min(tooltipWidth, parent.getWidth() - 2 * tooltipMargin - 1));
    const int width = static_cast<int>(layout.getWidth()) + 2 * tooltipMargin + 1;
    const int height = static_cast<int>(layout.getHeight()) + 2 * tooltipMargin;
    return juce::Rectangle<int>(pointer.x, pointer.y + tooltipBelowPointer, width, height).constrainedWithin(parent);
}

void ToolkitLookAndFeel::drawTooltip(juce::Graphics& g, const juce::String& text, int width, int height) {
    drawFrame(g, width, height, radii::mark);
    const juce::Rectangle<int> inside = juce::Rectangle<int>(width, height).reduced(tooltipMargin);
    layOutTooltip(text, inside.getWidth()).draw(g, inside.toFloat());
}

} // namespace QVM_NAMESPACE
