#include "platform/juce/WindowMapState.h"

#include <xcb/xcb.h>

#include <cstdlib>

namespace QVM_NAMESPACE {

struct WindowMapState::Connection {
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);

    Connection() = default;
    ~Connection() { xcb_disconnect(x); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
};

WindowMapState::WindowMapState() = default;

WindowMapState::~WindowMapState() = default;

bool WindowMapState::isViewable(std::uint64_t window) {
    if (window == 0) return true;
    if (!connection_) connection_ = std::make_unique<Connection>();
    xcb_connection_t* const x = connection_->x;
    const auto request = xcb_get_window_attributes(x, static_cast<xcb_window_t>(window));
    const std::unique_ptr<xcb_get_window_attributes_reply_t, void (*)(void*)> reply(
        xcb_get_window_attributes_reply(x, request, nullptr), &std::free);
    return !reply || reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace QVM_NAMESPACE
