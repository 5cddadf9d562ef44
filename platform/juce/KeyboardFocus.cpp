#include "platform/juce/KeyboardFocus.h"

#include "platform/juce/EventMapping.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {
constexpr double focusReturnSeconds = 0.05; // how long a click in an embedded window may be without the focus
} // namespace

std::uint64_t nativeWindowOf(const juce::Component& component) {
    const juce::ComponentPeer* const peer = component.getPeer();
    return peer ? reinterpret_cast<std::uintptr_t>(peer->getNativeHandle()) : 0;
}

KeyboardFocus::KeyboardFocus(juce::Component& component, Window& window, XConnection& connection, Embedding embedding)
    : component_(component), window_(window), embedding_(embedding), hostFocus_(connection) {}

void KeyboardFocus::take() {
    areWanted_ = true;
    updateKeys();
    // In mid-press it is not known yet whether anything will want keys when it is over, and a host that lost the focus
    // for a moment shows it.
    if (embedding_ == Embedding::inHost && isPressed_) return;
    grab();
}

void KeyboardFocus::settle() {
    if (isPressed_) return;
    const bool areWanted = (areWanted_ || window_.isKeyWindow()) && window_.wantsKeys();
    if (areWanted != areWanted_) {
        areWanted_ = areWanted;
        updateKeys();
    }
    if (areWanted)
        grab();
    else
        giveBack();
}

void KeyboardFocus::grab() {
    if (!component_.getPeer()) return;
    component_.grabKeyboardFocus();
    // The toolkit may believe that it never lost the focus.
    if (juce::ComponentPeer* peer = component_.getPeer(); peer && !peer->isFocused()) peer->grabFocus();
    if (component_.hasKeyboardFocus(true)) window_.setKeyWindow(true); // it may have had the focus already
}

void KeyboardFocus::giveBack() {
    // A menu closes when its program loses the focus.
    if (embedding_ == Embedding::inHost && !hasMenu_) hostFocus_.giveBack(nativeWindowOf(component_));
}

// While nothing here wants keys they go to the host, wherever the pointer is.
void KeyboardFocus::updateKeys() {
    const bool areTaken = areWanted_ || hasMenu_ || embedding_ == Embedding::ownWindow;
    if (juce::ComponentPeer* const peer = component_.getPeer())
        juce::setPeerKeys(*peer, areTaken ? juce::PeerKeys::taken : juce::PeerKeys::leftToParent);
}

void KeyboardFocus::pointerDidEnter() {
    if (embedding_ == Embedding::inHost) hostFocus_.remember(nativeWindowOf(component_));
}

void KeyboardFocus::setMenuOpen(bool isOpen) {
    hasMenu_ = isOpen;
    updateKeys();
    if (!isOpen && !areWanted_) giveBack();
}

void KeyboardFocus::wasGained() {
    resignation_.cancel();
    if (areWanted_ || embedding_ == Embedding::ownWindow) window_.setKeyWindow(true);
}

void KeyboardFocus::wasLost() {
    resignation_.schedule(focusReturnSeconds, [this] {
        if (component_.hasKeyboardFocus(true)) return;
        areWanted_ = false;
        updateKeys();
        window_.setKeyWindow(false);
    });
}

void KeyboardFocus::passKeyOn() {
    if (const auto key = juce::dispatchedKey()) passKeyOn(*key);
}

void KeyboardFocus::passKeyOn(const juce::NativeKey& key) {
    if (embedding_ != Embedding::inHost) return;
    // A host may send us keys of its own accord; to send those back would go on for ever.
    if (!key.isDown || key.isSynthetic) return;
    if (hostFocus_.sendKey(nativeWindowOf(component_), key)) passedOn_.insert(key.code);
}

void KeyboardFocus::keyStateDidChange(bool isDown) {
    reportNameless();
    const auto key = juce::dispatchedKey();
    if (!key || key->isDown != isDown) return;
    if (!isDown && held_ == key->code) release();
    if (isDown && !component_.isCurrentlyBlockedByAnotherModalComponent()) { // else it is the menu's
        nameless_ = *key;
        report_.schedule(0, [this] { reportNameless(); });
    } else if (!isDown && passedOn_.erase(key->code) > 0) {
        hostFocus_.sendKey(nativeWindowOf(component_), *key);
    }
}

void KeyboardFocus::keyWasHandled() {
    const auto key = juce::dispatchedKey();
    if (!key || key->isSynthetic) return release();
    held_ = key->code;
}

void KeyboardFocus::release() {
    held_.reset();
    Event event;
    event.type = EventType::keyUp;
    window_.sendEvent(event);
}

void KeyboardFocus::reportNameless() {
    const auto key = std::exchange(nameless_, std::nullopt);
    if (!key || component_.isCurrentlyBlockedByAnotherModalComponent()) return;
    const juce::Component::SafePointer<juce::Component> component(&component_);
    const bool isHandled = key->isMenuKey && window_.sendEvent(menuKeyEvent());
    if (!component) return;
    if (isHandled) {
        release(); // the menu has the keys from now on
        settle();
    } else {
        passKeyOn(*key);
    }
}

} // namespace QVM_NAMESPACE
