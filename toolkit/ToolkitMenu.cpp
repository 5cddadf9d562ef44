#include "toolkit/ToolkitMenu.h"

namespace QVM_NAMESPACE {

namespace {

using Owner = juce::Component::SafePointer<juce::Component>;

void addItems(juce::PopupMenu& out, const std::vector<MenuItem>& items, const Owner& owner,
              const std::function<void()>& afterwards) {
    for (const MenuItem& item : items) {
        if (item.isSeparator()) {
            out.addSeparator();
            continue;
        }
        juce::PopupMenu::Item entry(juce::String::fromUTF8(item.title.c_str()));
        entry.isEnabled = item.enabled;
        entry.isTicked = item.checked;
        if (!item.submenu.empty()) {
            entry.subMenu = std::make_unique<juce::PopupMenu>();
            addItems(*entry.subMenu, item.submenu, owner, afterwards);
        } else {
            entry.itemID = -1; // any but zero: what is chosen is told by the action
            entry.action = [owner, action = item.action, afterwards] {
                if (owner && action) action();
                if (owner) afterwards();
            };
        }
        out.addItem(std::move(entry));
    }
}

} // namespace

juce::PopupMenu toToolkit(const Menu& menu, const Owner& owner, const std::function<void()>& afterwards) {
    juce::PopupMenu out;
    if (!menu.title.empty()) out.addSectionHeader(juce::String::fromUTF8(menu.title.c_str()));
    addItems(out, menu.items, owner, afterwards);
    return out;
}

} // namespace QVM_NAMESPACE
