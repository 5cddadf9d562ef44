// A connection of our own to the X server, for what the toolkit's can't be asked.
//
// Errors of what is asked over it (a window that is gone) are answers and nothing more: those of the toolkit's
// connection would be reported as the toolkit's, or end the process.
#pragma once

#include "BuildNamespace.h"

#include <cstdlib>
#include <memory>

struct xcb_connection_t;

namespace QVM_NAMESPACE {

// What the server answers, freed as the library wants it. Null for an error.
struct XReplyEnd {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using XReply = std::unique_ptr<T, XReplyEnd>;

// Main thread.
class XConnection {
public:
    XConnection() = default;
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    // The connection, opened at the first call and kept. Null without a server, and from when the server is gone.
    xcb_connection_t* get();

private:
    xcb_connection_t* connection_ = nullptr;
    bool isTried_ = false;
};

} // namespace QVM_NAMESPACE
