#include "toolkit/MenuGlass.h"

namespace QVM_NAMESPACE {

namespace {

constexpr int stillness = 3; // points: no hand is quite still

bool isButtonDown() {
    return juce::Desktop::getInstance().getMainMouseSource().isDragging();
}

} // namespace

void MenuGlass::cover(juce::Component& component, Until until) {
    until_ = until;
    rest_.reset();
    isFirstPress_ = isButtonDown();
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
    const bool isDown = isButtonDown();
    isFirstPress_ = isFirstPress_ && isDown;
    const bool isUsed = isDown != isFirstPress_ || pointer.getDistanceFrom(*rest_) > stillness;
    isClear_ = isClear_ || isUsed || (until_ == Until::released && !isDown);
    return !isClear_;
}

} // namespace QVM_NAMESPACE
