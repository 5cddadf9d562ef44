#include "toolkit/MenuShield.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double lookSeconds = 0.02; // more often than the toolkit's menu looks where the pointer is

} // namespace

void MenuShield::protect(juce::Component& menu) {
    menu_ = &menu;
    menu.setInterceptsMouseClicks(false, false);
    look();
}

void MenuShield::look() {
    if (!menu_) return;
    const juce::MouseInputSource pointer = juce::Desktop::getInstance().getMainMouseSource();
    if (pointer.isDragging() && !pointer.hasMovedSignificantlySincePressed())
        look_.schedule(lookSeconds, [this] { look(); });
    else
        menu_->setInterceptsMouseClicks(true, true);
}

} // namespace QVM_NAMESPACE
