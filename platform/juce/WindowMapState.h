// Tells whether an X window can be seen at all: it and everything around it is mapped.
//
// The toolkit knows of its own windows only. A host that folds an editor away, or a desktop that minimises the host,
// unmaps some window around ours and tells nobody. Requests go over a connection of their own, whose errors (a window
// that is gone) are answers and nothing more.
#pragma once

#include "description/BuildNamespace.h"

#include <cstdint>
#include <memory>

namespace QVM_NAMESPACE {

// Main thread.
class WindowMapState {
public:
    WindowMapState();
    ~WindowMapState();
    WindowMapState(const WindowMapState&) = delete;
    WindowMapState& operator=(const WindowMapState&) = delete;

    // False while the window or one around it is unmapped. True when nobody can say: without an X server, and for what
    // is no window. Asks the server, which takes some ten microseconds.
    bool isViewable(std::uint64_t window);

private:
    struct Connection;
    std::unique_ptr<Connection> connection_; // opened at the first call
};

} // namespace QVM_NAMESPACE
