#include "toolkit/KeyboardFocus.h"

#include "toolkit/EventMapping.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {
constexpr double focusReturnSeconds = 0.05; // how long a click in an embedded window may be without the focus
constexpr double answerSeconds = 0.25;      // within which a host's answer to a press has come
constexpr int mostTimesTakenBack = 8;       // no endless quarrel with a host that always wants it
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
    takeFocus();
    if (component_.hasKeyboardFocus(true)) window_.setKeyWindow(true); // it may have had the focus already
}

void KeyboardFocus::takeFocus() {
    if (!component_.getPeer()) return;
    component_.grabKeyboardFocus();
    // The toolkit may believe that it never lost the focus.
    if (juce::ComponentPeer* peer = component_.getPeer(); peer && !peer->isFocused()) peer->grabFocus();
    if (embedding_ != Embedding::inHost) return;
    // It asks with the time of its last event, and the host may have taken the focus at a later one.
    if (juce::ComponentPeer* peer = component_.getPeer(); peer && !peer->isFocused()) {
        hostFocus_.take(nativeWindowOf(component_));
        component_.grabKeyboardFocus();
    }
    // What is taken away before the toolkit has seen that it has it, it does not tell of.
    confirmation_.schedule(focusReturnSeconds, [this] { takeBack(); });
}

// Whether the focus was the host's, by its answer to a press here, and is here again.
bool KeyboardFocus::takeBack() {
    const bool isAnswer = hasMenu_ || RunLoop::main().now() - lastPress_ < answerSeconds;
    if (embedding_ != Embedding::inHost || isPressed_ || !isAnswer || !(areWanted_ || hasMenu_)) return false;
    if (timesTakenBack_ >= mostTimesTakenBack) return false;
    const std::uint64_t own = nativeWindowOf(component_);
    // Who clicks elsewhere in the host wants it there.
    if (hostFocus_.place(own) != HostFocus::Place::withHost || !hostFocus_.isPointerOver(own)) return false;
    ++timesTakenBack_;
    takeFocus();
    return component_.hasKeyboardFocus(true);
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
    timesTakenBack_ = 0;
    updateKeys();
    if (isOpen && embedding_ == Embedding::inHost) takeFocus(); // with whose loss it closes
    if (!isOpen && !areWanted_) giveBack();
}

void KeyboardFocus::setPressed(bool isPressed) {
    isPressed_ = isPressed;
    lastPress_ = RunLoop::main().now();
    timesTakenBack_ = 0;
    wasFocusNear_ = false;
}

bool KeyboardFocus::hasLeftInMidPress() {
    const bool isNear = hostFocus_.place(nativeWindowOf(component_)) != HostFocus::Place::elsewhere;
    // A window that is pressed without ever having the focus has none to lose.
    wasFocusNear_ = wasFocusNear_ || isNear;
    return isPressed_ && wasFocusNear_ && !isNear;
}

void KeyboardFocus::wasGained() {
    resignation_.cancel();
    if (areWanted_ || embedding_ == Embedding::ownWindow) window_.setKeyWindow(true);
}

void KeyboardFocus::wasLost() {
    if (!takeBack()) resignation_.schedule(focusReturnSeconds, [this] { resign(); });
}

void KeyboardFocus::resign() {
    if (component_.hasKeyboardFocus(true) || takeBack()) return;
    const bool isTheHosts =
        embedding_ == Embedding::inHost && hostFocus_.place(nativeWindowOf(component_)) != HostFocus::Place::elsewhere;
    if (isPressed_ && isTheHosts) return; // for the time of the press
    areWanted_ = false;
    updateKeys();
    window_.setKeyWindow(false);
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
