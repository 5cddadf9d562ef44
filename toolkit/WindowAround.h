// How an X window stands in the one around it, which in a plug-in is the host's.
#pragma once

#include "geometry/Geometry.h"
#include "toolkit/XConnection.h"

#include <cstdint>
#include <optional>

namespace QVM_NAMESPACE {

struct WindowAround {
    Rect own;  // of the window, in the one around it; pixels
    Size size; // of the one around it

    // Whether the one around it was made to hold this window and nothing else.
    bool isFilled() const { return own == Rect{0, 0, size.width, size.height}; }
};

// Absent without an X server, for what is no window, and for one that is gone. Asks the server twice. Main thread.
std::optional<WindowAround> windowAround(XConnection& connection, std::uint64_t window);

} // namespace QVM_NAMESPACE
