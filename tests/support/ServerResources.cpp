#include "support/ServerResources.h"

#include <X11/Xlib.h>
#include <X11/extensions/XRes.h>

#include <memory>

#include <unistd.h>

namespace slantwise_tests {

namespace {

long resourcesOf(Display* display, XID client) {
    int count = 0;
    XResType* types = nullptr;
    XResQueryClientResources(display, client, &count, &types);
    long sum = 0;
    for (int i = 0; i < count; ++i)
        sum += static_cast<long>(types[i].count);
    XFree(types);
    return sum;
}

} // namespace

// By a connection of its own, which goes with the call.
long serverResources() {
    const std::unique_ptr<Display, int (*)(Display*)> display(XOpenDisplay(nullptr), XCloseDisplay);
    if (!display) return 0;
    XResClientIdSpec everyProcess{None, XRES_CLIENT_ID_PID_MASK};
    long count = 0, sum = 0;
    XResClientIdValue* clients = nullptr;
    XResQueryClientIds(display.get(), 1, &everyProcess, &count, &clients);
    for (long i = 0; i < count; ++i) {
        if (XResGetClientPid(&clients[i]) == getpid()) sum += resourcesOf(display.get(), clients[i].spec.client);
    }
    XResClientIdsDestroy(count, clients);
    return sum;
}

} // namespace slantwise_tests
