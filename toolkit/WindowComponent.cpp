#include "toolkit/WindowComponent.h"

#include "platform/runloop/RunLoop.h"
#include "toolkit/Conversions.h"
#include "toolkit/EventMapping.h"
#include "toolkit/NativePeer.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double lookAroundSeconds = 0.25; // between looks whether the window is still to be seen, and where

} // namespace

WindowComponent::WindowComponent(Embedding embedding)
    : keys_(*this, window_, runtime_->connection(), embedding), refresh_(this, [this] { refresh(); }) {
    setOpaque(true);
    setWantsKeyboardFocus(true);
    setMouseClickGrabsKeyboardFocus(false); // the views say when they want keys
}

WindowComponent::~WindowComponent() {
    window_.setHost(nullptr);
    menu_.dismiss();
    pointer_.leave();
    frames_.setRootLayer(nullptr);
}

void WindowComponent::contentViewDidChange() {
    const View* content = window_.contentView();
    frames_.setRootLayer(content ? content->layer() : nullptr);
    if (content) contentSizeDidChange(content->bounds().size());
}

void WindowComponent::contentSizeDidChange(Size points) {
    setSize(static_cast<int>(std::ceil(points.width)), static_cast<int>(std::ceil(points.height)));
    if (contentSizeHandler_) contentSizeHandler_();
}

void WindowComponent::setCursor(Cursor shown) {
    setMouseCursor(toToolkit(shown));
}

void WindowComponent::refresh() {
    if (RunLoop::main().now() - presence_.lastLook() >= lookAroundSeconds) lookAround();
    frames_.didRefresh();
    // A press may be lost: that is found out by looking.
    if (keys_.hasMenu() || keys_.isPressed() || frames_.isAnimating()) pace_.keepAwake();
    pace_.didRefresh();
    juce::exchangeEvents();
}

void WindowComponent::lookAround() {
    if (presence_.look()) pointer_.endLostPress();
}

void WindowComponent::parentHierarchyChanged() {
    keys_.nativeWindowMayHaveChanged();
    lookAround();
}

bool WindowComponent::keyPressed(const juce::KeyPress& key) {
    keys_.keyWasNamed();
    if (isCurrentlyBlockedByAnotherModalComponent()) return true; // what means nothing to the menu means nothing here
    pointer_.keyWillArrive();
    const SafePointer<WindowComponent> self(this);
    const bool isHandled = window_.sendEvent(keyEventFrom(key, SuperKey::up));
    if (!self) return isHandled;
    pointer_.keyDidArrive();
    if (isHandled) {
        keys_.keyWasHandled();
        keys_.settle();
    } else {
        keys_.passKeyOn();
    }
    return isHandled;
}

bool WindowComponent::keyStateChanged(bool isKeyDown) {
    keys_.keyStateDidChange(isKeyDown);
    return false;
}

} // namespace QVM_NAMESPACE
