#include "toolkit/WindowAround.h"

#include <xcb/xcb.h>

namespace QVM_NAMESPACE {

namespace {

using Geometry = XReply<xcb_get_geometry_reply_t>;

} // namespace

std::optional<WindowAround> windowAround(XConnection& connection, std::uint64_t window) {
    xcb_connection_t* const x = window != 0 ? connection.get() : nullptr;
    if (!x) return std::nullopt;
    const auto id = static_cast<xcb_window_t>(window);
    const auto asksTree = xcb_query_tree(x, id);
    const auto asksOwn = xcb_get_geometry(x, id);
    const XReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x, asksTree, nullptr));
    const Geometry own(xcb_get_geometry_reply(x, asksOwn, nullptr));
    if (!tree || !own || tree->parent == XCB_NONE) return std::nullopt;
    const Geometry around(xcb_get_geometry_reply(x, xcb_get_geometry(x, tree->parent), nullptr));
    if (!around) return std::nullopt;
    return WindowAround{{double(own->x), double(own->y), double(own->width), double(own->height)},
                        {double(around->width), double(around->height)}};
}

} // namespace QVM_NAMESPACE
