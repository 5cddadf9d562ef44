// Pointer and keys, from the toolkit to the window of views.
#include "platform/view/ToolTipPlacement.h"
#include "toolkit/Conversions.h"
#include "toolkit/ToolkitMenu.h"
#include "toolkit/WindowComponent.h"
#include "toolkit/WindowMapState.h"

#include <functional>
#include <utility>

namespace QVM_NAMESPACE {

// The pointer

void WindowComponent::send(const juce::MouseEvent& event, EventType type) {
    // The server is asked where the answer counts: moves and drags come too often.
    const bool isClick = type == EventType::mouseDown || type == EventType::mouseUp;
    juce::ComponentPeer* const peer = isClick ? getPeer() : nullptr;
    const SuperKey super = peer && juce::isSuperKeyDown(*peer) ? SuperKey::down : SuperKey::up;
    const Event mapped = mouseEventFrom(event, type, super);
    // The toolkit sends moves of a pointer that rests, too.
    if (std::exchange(pointer_, mapped.locationInWindow) != mapped.locationInWindow) areToolTipsQuiet_ = false;
    pace_.keepAwake();
    window_.sendEvent(mapped);
}

// In mid-press: hidden, without the focus of its program, or the button let go where this window was not told of it.
bool WindowComponent::isPressLost() {
    if (!keys_.isPressed()) return false;
    juce::ComponentPeer* const peer = getPeer();
    return !window_.mouseCapture() || !peer || juce::areButtonsUp(*peer) || keys_.hasLeftInMidPress();
}

void WindowComponent::losePress() {
    keys_.setPressed(false);
    window_.cancelPress();
    // The toolkit waits for a release that never comes: until then all moves would be drags, and the next press none.
    toolkitRelease_.schedule(0, [this] {
        juce::ComponentPeer* const peer = getPeer();
        if (!peer) return;
        juce::ModifierKeys::currentModifiers = juce::ModifierKeys::currentModifiers.withoutMouseButtons();
        const juce::Point<float> at = juce::Desktop::getInstance().getMainMouseSource().getScreenPosition();
        peer->handleMouseEvent(juce::MouseInputSource::InputSourceType::mouse, peer->globalToLocal(at),
                               juce::ModifierKeys::currentModifiers, juce::MouseInputSource::defaultPressure,
                               juce::MouseInputSource::defaultOrientation, juce::Time::currentTimeMillis());
    });
}

void WindowComponent::mouseDown(const juce::MouseEvent& event) {
    // A press beside a menu closes it and does no more. As far as is known here it is still open.
    if (keys_.hasMenu()) return;
    if (event.mods.isRightButtonDown() && !event.mods.isLeftButtonDown()) {
        send(event, EventType::rightMouseDown);
    } else if (event.mods.isLeftButtonDown()) {
        keys_.setPressed(true);
        send(event, EventType::mouseDown);
    }
}

void WindowComponent::mouseDrag(const juce::MouseEvent& event) {
    if (keys_.isPressed() && juce::isMovedWithButtonsUp()) return losePress();
    send(event, EventType::mouseDragged);
}

void WindowComponent::mouseUp(const juce::MouseEvent& event) {
    const SafePointer<WindowComponent> self(this);
    keys_.setPressed(false);
    send(event, EventType::mouseUp);
    if (self) keys_.settle();
}

void WindowComponent::mouseMove(const juce::MouseEvent& event) {
    send(event, EventType::mouseMoved);
}

void WindowComponent::mouseEnter(const juce::MouseEvent& event) {
    keys_.pointerDidEnter();
    if (!tooltips_) {
        tooltips_ = std::make_unique<ToolTipWindow>(*this, [this](int width, int height) {
            const Rect frame = toolTipFrame(window_, pointer_, {double(width), double(height)});
            return juce::Point<int>(static_cast<int>(frame.x), static_cast<int>(frame.y));
        });
        tooltips_->setLookAndFeel(&runtime_->lookAndFeel());
    }
    send(event, EventType::mouseMoved); // the toolkit tells of a move only when there is one
}

void WindowComponent::mouseExit(const juce::MouseEvent& event) {
    tooltips_ = nullptr;
    send(event, EventType::mouseExited);
}

void WindowComponent::mouseWheelMove(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) {
    window_.sendEvent(scrollEventFrom(event, wheel, SuperKey::up));
}

juce::String WindowComponent::getTooltip() {
    if (window_.mouseCapture() || areToolTipsQuiet_) return {};
    const View* const view = window_.toolTippedViewAt(pointer_);
    return view ? juce::String::fromUTF8(view->toolTip().c_str()) : juce::String();
}

void WindowComponent::setCursor(Cursor shown) {
    setMouseCursor(toToolkit(shown));
}

void WindowComponent::popUpMenu(std::unique_ptr<Menu> menu, Point at) {
    if (!hasDisplay()) return; // the toolkit can't do without one
    const juce::Rectangle<int> target(static_cast<int>(at.x), static_cast<int>(at.y), 1, 1);
    juce::PopupMenu popup = toToolkit(*menu, SafePointer<juce::Component>(this), [this] { keys_.settle(); });
    if (popup.getNumItems() == 0) return; // the toolkit would not say that it is closed
    keys_.setMenuOpen(true);
    pace_.keepAwake();
    popup.setLookAndFeel(&runtime_->lookAndFeel());
    popup.showMenuAsync(
        juce::PopupMenu::Options().withParentComponent(this).withDeletionCheck(*this).withTargetScreenArea(
            localAreaToGlobal(target)),
        [self = SafePointer<WindowComponent>(this)](int) {
            if (self) self->keys_.setMenuOpen(false);
        });
    juce::Component* const shown = getChildComponent(getNumChildComponents() - 1);
    if (shown) menuShield_.protect(*shown);
    if (menu->selectsFirst && shown) shown->keyPressed(juce::KeyPress(juce::KeyPress::downKey));
}

// Keys

bool WindowComponent::keyPressed(const juce::KeyPress& key) {
    keys_.keyWasNamed();
    if (isCurrentlyBlockedByAnotherModalComponent()) return true; // what means nothing to the menu means nothing here
    areToolTipsQuiet_ = true; // who types looks at what is typed, until the pointer is used again
    const SafePointer<WindowComponent> self(this);
    const bool isHandled = window_.sendEvent(keyEventFrom(key, SuperKey::up));
    if (!self) return isHandled;
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
