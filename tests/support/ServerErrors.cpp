#include "support/ServerErrors.h"

#include <X11/Xlib.h>

#include <mutex>

namespace slantwise_tests {

namespace {

std::mutex lock; // any thread's connection
std::string lines;
XErrorHandler before = nullptr;

int writeDown(Display*, XErrorEvent* error) {
    const std::lock_guard held(lock);
    lines += "error " + std::to_string(error->error_code) + " of request " + std::to_string(error->request_code) + "\n";
    return 0;
}

} // namespace

ServerErrors::ServerErrors() {
    lines.clear();
    before = XSetErrorHandler(&writeDown);
}

ServerErrors::~ServerErrors() {
    XSetErrorHandler(before);
}

std::string ServerErrors::told() const {
    const std::lock_guard held(lock);
    return lines;
}

} // namespace slantwise_tests
