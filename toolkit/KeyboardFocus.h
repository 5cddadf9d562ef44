// When the keyboard is a window's and when it is its host's, and what becomes of a key that nobody in the window wants.
#pragma once

#include "platform/runloop/DelayedCall.h"
#include "platform/view/Window.h"
#include "toolkit/HostFocus.h"
#include "toolkit/NativePeer.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdint>
#include <optional>
#include <set>

namespace QVM_NAMESPACE {

// Main thread.
class KeyboardFocus {
public:
    // Whose window it is: a part of a host's, which wants its keyboard back, or one of the program's own.
    enum class Embedding : unsigned char { inHost, ownWindow };

    // All are borrowed and outlive it: the component that takes the toolkit's focus, the window that it shows, and the
    // connection to the display.
    KeyboardFocus(juce::Component& component, Window& window, XConnection& connection, Embedding embedding);

    // The window's wish. In the middle of a press inside a host it is met when the press has ended.
    void take();
    // After an event that may have changed who wants keys: takes the keyboard, or gives it back.
    void settle();

    // What else there is to know of: the pointer has come in, a press goes on, a menu is open, the component may be in
    // another native window.
    void pointerDidEnter();
    void setPressed(bool isPressed);
    bool isPressed() const { return isPressed_; }
    // In mid-press, asked now and then: whether the focus has gone to another program's window or to nobody. Asks the X
    // server.
    bool hasLeftInMidPress();
    void setMenuOpen(bool isOpen);
    bool hasMenu() const { return hasMenu_; }
    void nativeWindowMayHaveChanged() { updateKeys(); }

    // The toolkit gave the component the focus, or took it away. A loss counts only when it has lasted a moment: a
    // click in an embedded window takes the focus and gives it again. And what the window manager or the host takes in
    // answer to a press in here, for the host's window as a whole, is taken back: at the end of the press, or at once
    // when that is over or a menu is open, which would close.
    void wasGained();
    void wasLost();

    // The toolkit tells that some key went down or up, and then, of most keys that went down, which one. For those that
    // it has no name for (the menu key, media keys) it leaves the second part out: these go to the window here. The
    // host hears of a key that goes up where it heard of the press.
    void keyStateDidChange(bool isDown);
    void keyWasNamed() { nameless_.reset(); }
    // The window handled the key that the toolkit is telling of: it will hear of the release. Of a key that another
    // program made it does so at once, as that program may never release it.
    void keyWasHandled();
    // For the key that the toolkit is telling of and nobody wants: sends it to the host, as it would have got it had
    // the focus been there.
    void passKeyOn();

private:
    void grab();
    void takeFocus();
    bool takeBack();
    void resign();
    void giveBack();
    void updateKeys();
    void passKeyOn(const juce::NativeKey& key);
    void reportNameless();
    void release();

    juce::Component& component_;
    Window& window_;
    const Embedding embedding_;
    HostFocus hostFocus_;
    DelayedCall resignation_;                 // the loss of focus, unless it comes back at once
    DelayedCall confirmation_;                // that what was taken is still here
    double lastPress_ = -1e9;                 // seconds on the run loop's clock: its beginning, later its end
    int timesTakenBack_ = 0;                  // since then, or since a menu opened
    bool wasFocusNear_ = false;               // since the press began, here or with the host
    std::optional<juce::NativeKey> nameless_; // a press that the toolkit has not told the name of
    DelayedCall report_;                      // of it
    std::set<unsigned char> passedOn_;        // codes of held keys whose presses went to the host
    std::optional<unsigned char> held_;       // code of the key that the window handled last
    bool areWanted_ = false, isPressed_ = false, hasMenu_ = false;
};

// The X window that a component is in; 0 when it is in none.
std::uint64_t nativeWindowOf(const juce::Component& component);

} // namespace QVM_NAMESPACE
