// Keys and the keyboard focus.
#include "platform/juce/NativePeer.h"
#include "platform/juce/WindowComponent.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double focusReturnSeconds = 0.05; // a click in an embedded window takes the focus and gives it again

} // namespace

bool WindowComponent::keyPressed(const juce::KeyPress& key) {
    unreported_.reset();
    if (isCurrentlyBlockedByAnotherModalComponent())
        return true;          // what means nothing to the menu means nothing behind it
    areToolTipsQuiet_ = true; // who types looks at what is typed, until the pointer is used again
    const SafePointer<WindowComponent> self(this);
    const bool isHandled = window_.sendEvent(keyEventFrom(key, SuperKey::up));
    if (!self) return isHandled;
    if (isHandled)
        settleKeys();
    else if (const auto native = juce::dispatchedKey())
        passKeyOn(*native);
    return isHandled;
}

// What the host's window would have got had the focus been there.
void WindowComponent::passKeyOn(const juce::NativeKey& key) {
    if (embedding_ != Embedding::inHost) return;
    // A host may send us keys of its own accord; to send those back would go on for ever.
    if (!key.isDown || key.isSynthetic) return;
    if (hostFocus_.sendKey(nativeWindow(), key)) passedOn_.insert(key.code);
}

bool WindowComponent::keyStateChanged(bool isKeyDown) {
    reportNamelessKey();
    const auto key = juce::dispatchedKey();
    if (isKeyDown && key && key->isDown && !isCurrentlyBlockedByAnotherModalComponent()) { // else it is the menu's
        unreported_ = *key;
        juce::MessageManager::callAsync([self = SafePointer<WindowComponent>(this)] {
            if (self) self->reportNamelessKey();
        });
    }
    if (!isKeyDown && key && !key->isDown && passedOn_.erase(key->code) > 0) hostFocus_.sendKey(nativeWindow(), *key);
    return false;
}

// The toolkit tells that some key was pressed, and then which one; but it has no names for the menu key, the media keys
// and others, and leaves the second part out.
void WindowComponent::reportNamelessKey() {
    const auto key = std::exchange(unreported_, std::nullopt);
    if (!key || isCurrentlyBlockedByAnotherModalComponent()) return;
    const SafePointer<WindowComponent> self(this);
    const bool isHandled = key->isMenuKey && window_.sendEvent(menuKeyEvent());
    if (!self) return;
    if (isHandled)
        settleKeys();
    else
        passKeyOn(*key);
}

void WindowComponent::takeKeyboardFocus() {
    wantsKeys_ = true;
    updateKeys();
    // In mid-press it is not known yet whether anything will want keys when it is over, and a host that lost the focus
    // for a moment shows it.
    if (embedding_ == Embedding::inHost && isPressed_) return;
    grabKeys();
}

void WindowComponent::grabKeys() {
    if (!getPeer()) return;
    grabKeyboardFocus();
    // The toolkit may believe that it never lost the focus.
    if (juce::ComponentPeer* peer = getPeer(); peer && !peer->isFocused()) peer->grabFocus();
    if (hasKeyboardFocus(true)) window_.setKeyWindow(true); // it may have had the focus already
}

void WindowComponent::settleKeys() {
    if (isPressed_) return;
    const bool areWanted = (wantsKeys_ || window_.isKeyWindow()) && window_.wantsKeys();
    if (areWanted != wantsKeys_) {
        wantsKeys_ = areWanted;
        updateKeys();
    }
    if (areWanted)
        grabKeys();
    else
        giveFocusBack();
}

void WindowComponent::releaseKeyboardFocus() {
    wantsKeys_ = false;
    updateKeys();
    giveFocusBack();
}

// While nothing here wants keys they go to the host, wherever the pointer is.
void WindowComponent::updateKeys() {
    const bool areTaken = wantsKeys_ || hasMenu_ || embedding_ == Embedding::ownWindow;
    if (juce::ComponentPeer* peer = getPeer())
        juce::setPeerKeys(*peer, areTaken ? juce::PeerKeys::taken : juce::PeerKeys::leftToParent);
}

void WindowComponent::parentHierarchyChanged() {
    updateKeys();
    lookAround();
}

void WindowComponent::giveFocusBack() {
    // A menu closes when its program loses the focus.
    if (embedding_ == Embedding::inHost && !hasMenu_) hostFocus_.giveBack(nativeWindow());
}

void WindowComponent::focusGained(FocusChangeType) {
    resignation_.cancel();
    if (wantsKeys_ || embedding_ == Embedding::ownWindow) window_.setKeyWindow(true);
}

void WindowComponent::focusLost(FocusChangeType) {
    resignation_.schedule(focusReturnSeconds, [this] {
        if (hasKeyboardFocus(true)) return;
        wantsKeys_ = false;
        updateKeys();
        window_.setKeyWindow(false);
    });
}

} // namespace QVM_NAMESPACE
