#include "toolkit/MenuScroll.h"

namespace QVM_NAMESPACE {

namespace {

constexpr int arrowHeight = 24;                 // points at either end, over the rows, while there are more
constexpr float pointsATurn = 10 * arrowHeight; // of the wheel

bool isMenu(const juce::Component& component) {
    return component.getName() == "menu"; // as the toolkit calls them
}

// Which row is marked the toolkit knows for who has the screen read aloud.
const juce::Component* markedRow(const juce::Component& menu) {
    for (juce::Component* const row : menu.getChildren())
        if (const auto* handler = row->getAccessibilityHandler(); handler && handler->hasFocus(false)) return row;
    return nullptr;
}

// By the wheel, which leaves a menu as it is that has no more rows than it shows, and stops at its ends.
void scrollBy(juce::Component& menu, int points) {
    const juce::MouseInputSource source = juce::Desktop::getInstance().getMainMouseSource();
    const juce::Time now = juce::Time::getCurrentTime();
    const juce::MouseEvent event(source, {}, {}, juce::MouseInputSource::defaultPressure,
                                 juce::MouseInputSource::defaultOrientation, juce::MouseInputSource::defaultRotation,
                                 juce::MouseInputSource::defaultTiltX, juce::MouseInputSource::defaultTiltY, &menu,
                                 &menu, now, {}, now, 0, false);
    menu.mouseWheelMove(event, {0, -static_cast<float>(points) / pointsATurn, false, false, false});
}

void scrollToMarkedRow(juce::Component& menu) {
    const juce::Component* const row = markedRow(menu);
    if (!row) return;
    if (const int above = arrowHeight - row->getY(); above > 0) scrollBy(menu, -above);
    if (const int below = row->getBottom() - (menu.getHeight() - arrowHeight); below > 0) scrollBy(menu, below);
}

} // namespace

void MenuScroll::follow(juce::Component& component) {
    stop();
    followed_ = &component;
    component.addComponentListener(this);
    componentChildrenChanged(component);
}

void MenuScroll::stop() {
    if (!followed_) return;
    followed_->removeComponentListener(this);
    for (juce::Component* const child : followed_->getChildren())
        if (isMenu(*child)) child->removeKeyListener(this);
    followed_ = nullptr;
}

void MenuScroll::componentChildrenChanged(juce::Component& component) {
    for (juce::Component* const child : component.getChildren()) {
        if (!isMenu(*child)) continue;
        child->removeKeyListener(this);
        child->addKeyListener(this);
    }
}

// The menu's own answer to the key comes first; it may open another menu, or close. A key that means nothing to it is
// shown to it once more by the toolkit, and means nothing again.
bool MenuScroll::keyPressed(const juce::KeyPress& key, juce::Component* menu) {
    const juce::Component::SafePointer<juce::Component> followed(followed_);
    const bool isHandled = menu->keyPressed(key);
    if (!followed || followed != followed_) return isHandled;
    for (juce::Component* const child : followed->getChildren())
        if (isMenu(*child)) scrollToMarkedRow(*child);
    return isHandled;
}

} // namespace QVM_NAMESPACE
