#include "platform/juce/HostFocus.h"

#include "platform/juce/NativePeer.h"

#include <xcb/xcb.h>

#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

template <class T>
struct Freed {
    void operator()(T* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Freed<T>>;

} // namespace

struct HostFocus::Connection {
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);

    Connection() = default;
    ~Connection() { xcb_disconnect(x); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    xcb_window_t focus() const {
        const Reply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
        return reply ? reply->focus : XCB_NONE;
    }
    // XCB_NONE at the root and for a window that is gone.
    xcb_window_t parentOf(xcb_window_t window) const {
        const Reply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(x, xcb_query_tree(x, window), nullptr));
        return reply ? reply->parent : XCB_NONE;
    }
    bool isInside(xcb_window_t window, xcb_window_t outer) const {
        // PointerRoot (1) and None are no windows.
        while (window > 1 && window != outer)
            window = parentOf(window);
        return window == outer;
    }
    // The window that the window manager knows, which `window` is in; XCB_NONE when there is no manager.
    xcb_window_t managedWindowAround(xcb_window_t window) const {
        const std::string_view name = "WM_STATE";
        const Reply<xcb_intern_atom_reply_t> state(xcb_intern_atom_reply(
            x, xcb_intern_atom(x, 1, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
        if (!state || state->atom == XCB_NONE) return XCB_NONE;
        for (; window > 1; window = parentOf(window)) {
            const Reply<xcb_get_property_reply_t> property(xcb_get_property_reply(
                x, xcb_get_property(x, 0, window, state->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 0), nullptr));
            if (property && property->type != XCB_NONE) return window;
        }
        return XCB_NONE;
    }
    bool setFocus(xcb_window_t window) const {
        return succeeds(xcb_set_input_focus_checked(x, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME));
    }
    // As a hand would type it: some toolkits go by the modifier keys that they were told of, others by the state in the
    // event. The modifiers are let go at once, so that none is ever left held down.
    bool sendKey(xcb_window_t window, const juce::NativeKey& key) const {
        if (!key.isDown) return send(window, key);
        const std::vector<std::uint8_t> modifiers = modifierKeys(key.state);
        juce::NativeKey modifier = key;
        for (const std::uint8_t code : modifiers) {
            modifier.code = code;
            send(window, modifier);
        }
        const bool isSent = send(window, key);
        modifier.isDown = false;
        for (const std::uint8_t code : modifiers) {
            modifier.code = code;
            send(window, modifier);
        }
        return isSent;
    }
    // To the program that made the window, whatever events it asked for.
    bool send(xcb_window_t window, const juce::NativeKey& key) const {
        xcb_key_press_event_t event{};
        event.response_type = key.isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
        event.detail = key.code;
        event.time = static_cast<xcb_timestamp_t>(key.time);
        event.root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
        event.event = window;
        event.state = static_cast<std::uint16_t>(key.state);
        event.same_screen = 1;
        return succeeds(
            xcb_send_event_checked(x, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event)));
    }
    // One key for each modifier of the state, as the keyboard is laid out.
    std::vector<std::uint8_t> modifierKeys(unsigned int state) const {
        const Reply<xcb_get_modifier_mapping_reply_t> mapping(
            xcb_get_modifier_mapping_reply(x, xcb_get_modifier_mapping(x), nullptr));
        std::vector<std::uint8_t> keys;
        if (!mapping) return keys;
        const std::uint8_t* const codes = xcb_get_modifier_mapping_keycodes(mapping.get());
        // The bits of the state are the rows of the mapping, from the lowest. Locks are no matter here.
        for (const int row : {XCB_MAP_INDEX_SHIFT, XCB_MAP_INDEX_CONTROL, XCB_MAP_INDEX_1, XCB_MAP_INDEX_4}) {
            const std::uint8_t code = codes[std::ptrdiff_t{row} * mapping->keycodes_per_modifier];
            if ((state >> row & 1) != 0 && code != 0) keys.push_back(code);
        }
        return keys;
    }
    bool succeeds(xcb_void_cookie_t request) const {
        return Reply<xcb_generic_error_t>(xcb_request_check(x, request)) == nullptr;
    }
    // Where keys go that are not for `own` while nothing better is known: the host's window.
    xcb_window_t hostOf(xcb_window_t own) const {
        const xcb_window_t host = managedWindowAround(own);
        return host != XCB_NONE ? host : parentOf(own);
    }
};

HostFocus::HostFocus() = default;
HostFocus::~HostFocus() = default;

HostFocus::Connection* HostFocus::connection() {
    if (!isTried_) {
        isTried_ = true;
        if (std::getenv("DISPLAY")) connection_ = std::make_unique<Connection>();
    }
    const bool isUsable = connection_ && xcb_connection_has_error(connection_->x) == 0;
    return isUsable ? connection_.get() : nullptr;
}

void HostFocus::remember(std::uint64_t own) {
    const Connection* x = own != 0 ? connection() : nullptr;
    if (!x) return;
    const auto window = static_cast<xcb_window_t>(own);
    const xcb_window_t focus = x->focus(), host = x->managedWindowAround(window);
    // Another program's window is none of ours to give the focus to.
    if (host != XCB_NONE && x->isInside(focus, host) && !x->isInside(focus, window)) remembered_ = focus;
}

void HostFocus::giveBack(std::uint64_t own) {
    const Connection* x = own != 0 ? connection() : nullptr;
    const auto window = static_cast<xcb_window_t>(own);
    if (!x || !x->isInside(x->focus(), window)) return;
    if (remembered_ != 0 && x->setFocus(remembered_)) return;
    remembered_ = 0;
    if (const xcb_window_t host = x->hostOf(window); host != XCB_NONE) x->setFocus(host);
}

bool HostFocus::sendKey(std::uint64_t own, const juce::NativeKey& key) {
    const Connection* x = own != 0 ? connection() : nullptr;
    if (!x) return false;
    if (remembered_ != 0 && x->sendKey(remembered_, key)) return true;
    const xcb_window_t host = x->hostOf(static_cast<xcb_window_t>(own));
    return host != XCB_NONE && x->sendKey(host, key);
}

} // namespace QVM_NAMESPACE
