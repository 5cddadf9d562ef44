// Gives X keyboard focus back to the window that had it before an embedded editor was clicked.
//
// The toolkit has no way to give it back, which leaves the host's space bar dead; and while the editor has it, a key
// that means nothing there is sent on to the window that it was taken from.
#pragma once

#include "toolkit/XConnection.h"

#include <cstdint>

namespace juce {
struct NativeKey;
}

namespace QVM_NAMESPACE {

// Main thread. Without an X server every call does nothing.
class HostFocus {
public:
    // The connection is borrowed.
    explicit HostFocus(XConnection& connection) : connection_(connection) {}

    // Where the keyboard focus is, as seen from the editor's X window `own`: inside it, elsewhere in the window that
    // the window manager knows and that holds it, or with another window, another program or nobody. With no server to
    // ask it is taken to be here.
    enum class Place : unsigned char { here, withHost, elsewhere };
    Place place(std::uint64_t own) const;
    bool isPointerOver(std::uint64_t own) const;
    // Takes the focus for `own`, however lately another took it.
    void take(std::uint64_t own);

    // Call while the pointer enters, before it can press: keeps which part of the host's window has the focus. `own` is
    // the editor's X window.
    void remember(std::uint64_t own);
    // Hands the focus that `own` has to the remembered window or, when there is none, to the host's window itself. A
    // focus that is elsewhere is left there.
    void giveBack(std::uint64_t own);
    // Sends a key event to the window that giveBack() would give the focus to. False when there is none, or it is gone.
    bool sendKey(std::uint64_t own, const juce::NativeKey& key);

private:
    XConnection& connection_;
    std::uint32_t remembered_ = 0; // 0: none
};

} // namespace QVM_NAMESPACE
