#include "toolkit/MenuPopup.h"

#include "toolkit/ToolkitMenu.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr int gapToEdge = 5;   // points between a menu and the edge of the window
constexpr int gapToPoint = 18; // points between a menu and the place of which it has to stand clear

// Moves an open menu so that the checked row stands over a point of the component. Where there is no room for that it
// stands clear of the point, or another row would be marked. The toolkit has a component for each row and one for the
// title.
void standOnChecked(juce::Component& shown, const Menu& menu, juce::Point<int> at) {
    const auto checked = std::ranges::find_if(menu.items, &MenuItem::checked);
    if (checked == menu.items.end()) return;
    const int index = static_cast<int>(checked - menu.items.begin()) + (menu.title.empty() ? 0 : 1);
    const juce::Component* const row = shown.getChildComponent(index);
    const juce::Component* const parent = shown.getParentComponent();
    if (!row || !parent || !shown.getLocalBounds().contains(row->getBounds())) return; // it is longer than the window
    const juce::Rectangle<int> room = parent->getLocalBounds().reduced(gapToEdge);
    int top = at.y - row->getBounds().getCentreY();
    if (top + shown.getHeight() > room.getBottom())
        top = at.y - gapToPoint - shown.getHeight();
    else if (top < room.getY())
        top = at.y + gapToPoint;
    shown.setBounds(shown.getBounds().withPosition(at.x, top).constrainedWithin(room));
}

} // namespace

void MenuPopup::popUp(const Menu& menu, Point at) {
    if (!hasDisplay()) return; // the toolkit can't do without one
    using Alive = juce::Component::SafePointer<juce::Component>;
    const juce::Rectangle<int> target(static_cast<int>(at.x), static_cast<int>(at.y), 1, 1);
    juce::PopupMenu popup = toToolkit(menu, Alive(&component_), [this] { keys_.settle(); });
    if (popup.getNumItems() == 0) return; // the toolkit would not say that it is closed
    glass_.lift();                        // of a menu that another one follows at once
    keys_.setMenuOpen(true);
    pace_.keepAwake();
    popup.setLookAndFeel(&runtime_.lookAndFeel());
    const auto options = juce::PopupMenu::Options()
                             .withParentComponent(&component_)
                             .withDeletionCheck(component_)
                             .withTargetScreenArea(component_.localAreaToGlobal(target));
    popup.showMenuAsync(options.withStandardItemHeight(runtime_.lookAndFeel().rowHeightFor(popup, options)),
                        [this, alive = Alive(&component_)](int) {
                            if (!alive) return;
                            glass_.lift();
                            scroll_.stop();
                            keys_.setMenuOpen(false);
                        });
    juce::Component* const shown = component_.getChildComponent(component_.getNumChildComponents() - 1);
    if (menu.standsOnChecked && shown) standOnChecked(*shown, menu, target.getPosition());
    scroll_.follow(component_);
    glass_.cover(component_, menu.standsOnChecked ? MenuGlass::Until::released : MenuGlass::Until::moved);
}

void MenuPopup::dismiss() {
    if (keys_.hasMenu()) juce::PopupMenu::dismissAllActiveMenus();
}

} // namespace QVM_NAMESPACE
