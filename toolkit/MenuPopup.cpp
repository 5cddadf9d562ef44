#include "toolkit/MenuPopup.h"

#include "toolkit/ToolkitMenu.h"

namespace QVM_NAMESPACE {

void MenuPopup::popUp(const Menu& menu, Point at) {
    if (!hasDisplay()) return; // the toolkit can't do without one
    using Alive = juce::Component::SafePointer<juce::Component>;
    const juce::Rectangle<int> target(static_cast<int>(at.x), static_cast<int>(at.y), 1, 1);
    juce::PopupMenu popup = toToolkit(menu, Alive(&component_), [this] { keys_.settle(); });
    if (popup.getNumItems() == 0) return; // the toolkit would not say that it is closed
    keys_.setMenuOpen(true);
    pace_.keepAwake();
    popup.setLookAndFeel(&runtime_.lookAndFeel());
    popup.showMenuAsync(juce::PopupMenu::Options()
                            .withParentComponent(&component_)
                            .withDeletionCheck(component_)
                            .withTargetScreenArea(component_.localAreaToGlobal(target)),
                        [this, alive = Alive(&component_)](int) {
                            if (alive) keys_.setMenuOpen(false);
                        });
    juce::Component* const shown = component_.getChildComponent(component_.getNumChildComponents() - 1);
    if (shown) shield_.protect(*shown);
    if (menu.selectsFirst && shown) shown->keyPressed(juce::KeyPress(juce::KeyPress::downKey));
}

void MenuPopup::dismiss() {
    if (keys_.hasMenu()) juce::PopupMenu::dismissAllActiveMenus();
}

} // namespace QVM_NAMESPACE
