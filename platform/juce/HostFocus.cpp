#include "platform/juce/HostFocus.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <string_view>

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
        const xcb_void_cookie_t request =
            xcb_set_input_focus_checked(x, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        return Reply<xcb_generic_error_t>(xcb_request_check(x, request)) == nullptr;
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
    const xcb_window_t host = x->managedWindowAround(window);
    const xcb_window_t heir = host != XCB_NONE ? host : x->parentOf(window);
    if (heir != XCB_NONE) x->setFocus(heir);
}

} // namespace QVM_NAMESPACE
