#include "platform/juce/MenuLook.h"

namespace QVM_NAMESPACE {

namespace {

const Font menuFont{"HelveticaNeue-Medium", 13};
const juce::Colour ground{0xFF2B2829}, ink{0xFFF4F1F1}, faintInk{0xFFB4ABAC}, chosen{0xFFA5666C};

} // namespace

MenuLook::MenuLook(FaceLibrary& faces) : faces_(faces) {
    setColour(juce::PopupMenu::backgroundColourId, ground);
    setColour(juce::PopupMenu::textColourId, ink);
    setColour(juce::PopupMenu::headerTextColourId, faintInk);
    setColour(juce::PopupMenu::highlightedBackgroundColourId, chosen);
    setColour(juce::PopupMenu::highlightedTextColourId, ink);
    setColour(juce::TooltipWindow::backgroundColourId, ground);
    setColour(juce::TooltipWindow::textColourId, ink);
    setColour(juce::TooltipWindow::outlineColourId, ground);
}

juce::Font MenuLook::getPopupMenuFont() {
    return faces_.font(menuFont);
}

juce::PopupMenu MenuLook::toolkitMenu(const std::string& title, const std::vector<MenuItem>& items) {
    juce::PopupMenu menu;
    if (!title.empty()) menu.addSectionHeader(juce::String::fromUTF8(title.c_str()));
    for (const MenuItem& item : items) {
        if (item.isSeparator()) {
            menu.addSeparator();
            continue;
        }
        juce::PopupMenu::Item entry(juce::String::fromUTF8(item.title.c_str()));
        entry.setEnabled(item.enabled).setTicked(item.checked).setAction(item.action);
        if (!item.submenu.empty()) entry.subMenu = std::make_unique<juce::PopupMenu>(toolkitMenu({}, item.submenu));
        if (item.submenu.empty() && !item.action) entry.setEnabled(false);
        entry.itemID = -1;
        menu.addItem(std::move(entry));
    }
    return menu;
}

} // namespace QVM_NAMESPACE
