#include "toolkit/XConnection.h"

#include <xcb/xcb.h>

#include <utility>

namespace QVM_NAMESPACE {

XConnection::~XConnection() {
    xcb_disconnect(connection_); // nothing where there is none
}

xcb_connection_t* XConnection::get() {
    // Without the variable the library would take the first screen of the machine, whosever it is.
    if (!std::exchange(isTried_, true) && std::getenv("DISPLAY")) connection_ = xcb_connect(nullptr, nullptr);
    return connection_ && xcb_connection_has_error(connection_) == 0 ? connection_ : nullptr;
}

} // namespace QVM_NAMESPACE
