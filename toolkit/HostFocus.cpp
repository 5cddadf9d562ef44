#include "toolkit/HostFocus.h"

#include "toolkit/NativePeer.h"

#include <xcb/xcb.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

// What is asked of the server, and told it, about the window `own`. Nothing may be while the server is not there.
class Server {
public:
    Server(XConnection& connection, std::uint64_t own) : x_(own != 0 ? connection.get() : nullptr) {}
    bool isThere() const { return x_ != nullptr; }

    xcb_window_t focus() const {
        const XReply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(x_, xcb_get_input_focus(x_), nullptr));
        return reply ? reply->focus : XCB_NONE;
    }
    // XCB_NONE at the root and for a window that is gone.
    xcb_window_t parentOf(xcb_window_t window) const {
        const XReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(x_, xcb_query_tree(x_, window), nullptr));
        return reply ? reply->parent : XCB_NONE;
    }
    bool isInside(xcb_window_t window, xcb_window_t outer) const {
        // PointerRoot (1) and None are no windows.
        while (window > 1 && window != outer)
            window = parentOf(window);
        return window == outer;
    }
    bool isPointerOver(xcb_window_t window) const {
        const auto asksPointer = xcb_query_pointer(x_, window);
        const auto asksSize = xcb_get_geometry(x_, window);
        const XReply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(x_, asksPointer, nullptr));
        const XReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(x_, asksSize, nullptr));
        return pointer && size && pointer->same_screen != 0 && pointer->win_x >= 0 && pointer->win_y >= 0 &&
               pointer->win_x < size->width && pointer->win_y < size->height;
    }
    // The window that the window manager knows, which `window` is in; XCB_NONE when there is no manager.
    xcb_window_t managedWindowAround(xcb_window_t window) const {
        const std::string_view name = "WM_STATE";
        const XReply<xcb_intern_atom_reply_t> state(xcb_intern_atom_reply(
            x_, xcb_intern_atom(x_, 1, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
        if (!state || state->atom == XCB_NONE) return XCB_NONE;
        for (; window > 1; window = parentOf(window)) {
            const XReply<xcb_get_property_reply_t> property(xcb_get_property_reply(
                x_, xcb_get_property(x_, 0, window, state->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 0), nullptr));
            if (property && property->type != XCB_NONE) return window;
        }
        return XCB_NONE;
    }
    bool setFocus(xcb_window_t window) const {
        return succeeds(xcb_set_input_focus_checked(x_, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME));
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
        event.root = xcb_setup_roots_iterator(xcb_get_setup(x_)).data->root;
        event.event = window;
        event.state = static_cast<std::uint16_t>(key.state);
        event.same_screen = 1;
        return succeeds(
            xcb_send_event_checked(x_, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event)));
    }
    // One key for each modifier of the state, as the keyboard is laid out.
    std::vector<std::uint8_t> modifierKeys(unsigned int state) const {
        const XReply<xcb_get_modifier_mapping_reply_t> mapping(
            xcb_get_modifier_mapping_reply(x_, xcb_get_modifier_mapping(x_), nullptr));
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
        return XReply<xcb_generic_error_t>(xcb_request_check(x_, request)) == nullptr;
    }
    // Where keys go that are not for `own` while nothing better is known: the host's window.
    xcb_window_t hostOf(xcb_window_t own) const {
        const xcb_window_t host = managedWindowAround(own);
        return host != XCB_NONE ? host : parentOf(own);
    }

private:
    xcb_connection_t* const x_;
};

} // namespace

HostFocus::Place HostFocus::place(std::uint64_t own) const {
    const Server server(connection_, own);
    if (!server.isThere()) return Place::here;
    const auto window = static_cast<xcb_window_t>(own);
    const xcb_window_t focus = server.focus();
    if (server.isInside(focus, window)) return Place::here;
    return server.isInside(focus, server.hostOf(window)) ? Place::withHost : Place::elsewhere;
}

bool HostFocus::isPointerOver(std::uint64_t own) const {
    const Server server(connection_, own);
    return server.isThere() && server.isPointerOver(static_cast<xcb_window_t>(own));
}

void HostFocus::take(std::uint64_t own) {
    const Server server(connection_, own);
    if (server.isThere()) server.setFocus(static_cast<xcb_window_t>(own));
}

void HostFocus::remember(std::uint64_t own) {
    const Server server(connection_, own);
    if (!server.isThere()) return;
    const auto window = static_cast<xcb_window_t>(own);
    const xcb_window_t focus = server.focus(), host = server.managedWindowAround(window);
    // Another program's window is none of ours to give the focus to.
    if (host != XCB_NONE && server.isInside(focus, host) && !server.isInside(focus, window)) remembered_ = focus;
}

void HostFocus::giveBack(std::uint64_t own) {
    const Server server(connection_, own);
    const auto window = static_cast<xcb_window_t>(own);
    if (!server.isThere() || !server.isInside(server.focus(), window)) return;
    if (remembered_ != 0 && server.setFocus(remembered_)) return;
    remembered_ = 0;
    if (const xcb_window_t host = server.hostOf(window); host != XCB_NONE) server.setFocus(host);
}

bool HostFocus::sendKey(std::uint64_t own, const juce::NativeKey& key) {
    const Server server(connection_, own);
    if (!server.isThere()) return false;
    if (remembered_ != 0 && server.sendKey(remembered_, key)) return true;
    const xcb_window_t host = server.hostOf(static_cast<xcb_window_t>(own));
    return host != XCB_NONE && server.sendKey(host, key);
}

} // namespace QVM_NAMESPACE
