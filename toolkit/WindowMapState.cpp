#include "toolkit/WindowMapState.h"

#include <xcb/xcb.h>

namespace QVM_NAMESPACE {

bool isWindowViewable(XConnection& connection, std::uint64_t window) {
    xcb_connection_t* const x = window != 0 ? connection.get() : nullptr;
    if (!x) return true;
    const auto request = xcb_get_window_attributes(x, static_cast<xcb_window_t>(window));
    const XReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(x, request, nullptr));
    return !reply || reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace QVM_NAMESPACE
