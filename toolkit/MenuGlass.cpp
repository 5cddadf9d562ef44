#include "toolkit/MenuGlass.h"

namespace QVM_NAMESPACE {

namespace {

constexpr int stillness = 2; // points, that the toolkit takes for none too

} // namespace

void MenuGlass::cover(juce::Component& component) {
    rest_.reset();
    isClear_ = false;
    setAlwaysOnTop(true); // as menus are
    component.addAndMakeVisible(*this);
    setBounds(component.getLocalBounds());
    component.addComponentListener(this);
}

void MenuGlass::lift() {
    juce::Component* const component = getParentComponent();
    if (!component) return;
    component->removeComponentListener(this);
    component->removeChildComponent(this);
}

bool MenuGlass::hitTest(int x, int y) {
    const juce::Point<int> pointer(x, y);
    if (!rest_) rest_ = pointer;
    const bool isPressed = juce::Desktop::getInstance().getMainMouseSource().isDragging();
    isClear_ = isClear_ || isPressed || pointer.getDistanceFrom(*rest_) > stillness;
    return !isClear_;
}

} // namespace QVM_NAMESPACE
