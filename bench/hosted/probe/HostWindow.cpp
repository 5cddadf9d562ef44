#include "bench/hosted/probe/HostWindow.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <X11/extensions/Xfixes.h>

#include <poll.h>

#include <algorithm>
#include <span>
#include <stdexcept>

namespace slantwise_bench {

namespace {

// A window may go while it is asked for.
int ignoreError(Display*, XErrorEvent*) {
    return 0;
}

std::optional<Area> areaOf(Display* display, Window window) {
    XWindowAttributes a;
    if (!XGetWindowAttributes(display, window, &a) || a.map_state != IsViewable) return std::nullopt;
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(display, window, a.root, 0, 0, &x, &y, &child);
    return Area{x, y, a.width, a.height};
}

int sizeOf(const Area& area) {
    return area.width * area.height;
}

// The child that fills more than half of the window, or none.
Window mainChild(Display* display, Window window, const Area& area) {
    Window root = 0, parent = 0, *children = nullptr, main = 0;
    unsigned count = 0;
    if (!XQueryTree(display, window, &root, &parent, &children, &count)) return 0;
    for (const Window child : std::span(children, count)) {
        const auto inner = areaOf(display, child);
        if (inner && 2 * sizeOf(*inner) > sizeOf(area)) main = child;
    }
    if (children) XFree(children);
    return main;
}

} // namespace

HostWindow::HostWindow() : display_(XOpenDisplay(nullptr)) {
    if (!display_) throw std::runtime_error("no display");
    XSetErrorHandler(&ignoreError);
    // The server draws the pointer into the screen's own pixels, where it would look like an answer to its movement.
    XFixesHideCursor(display_, DefaultRootWindow(display_));
}

HostWindow::~HostWindow() {
    XCloseDisplay(display_);
}

unsigned long HostWindow::lastClient() {
    const Atom list = XInternAtom(display_, "_NET_CLIENT_LIST", False);
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    constexpr long most = 64;
    if (XGetWindowProperty(display_, DefaultRootWindow(display_), list, 0, most, False, XA_WINDOW, &type, &format,
                           &count, &left, &data) != Success ||
        !data)
        return 0;
    const Window last = count > 0 ? reinterpret_cast<const Window*>(data)[count - 1] : 0;
    XFree(data);
    return last;
}

std::optional<Area> HostWindow::findPluginArea() {
    Window window = lastClient();
    if (!window) return std::nullopt;
    std::optional<Area> area = areaOf(display_, window);
    while (area) {
        window_ = window;
        const Window child = mainChild(display_, window, *area);
        if (!child) break;
        window = child;
        area = areaOf(display_, window);
    }
    return area;
}

void HostWindow::movePointer(int x, int y) {
    XTestFakeMotionEvent(display_, -1, x, y, CurrentTime);
    XFlush(display_);
}

void HostWindow::button(int number, bool down) {
    XTestFakeButtonEvent(display_, static_cast<unsigned>(number), down, CurrentTime);
    XFlush(display_);
}

void HostWindow::watchDrawing() {
    int firstEvent = 0, firstError = 0;
    if (!XDamageQueryExtension(display_, &firstEvent, &firstError)) throw std::runtime_error("no damage extension");
    XDamageCreate(display_, window_, XDamageReportRawRectangles);
    XFlush(display_);
}

bool HostWindow::waitForDrawing(double seconds) {
    pollfd answer{ConnectionNumber(display_), POLLIN, 0};
    if (XPending(display_) == 0) poll(&answer, 1, static_cast<int>(std::max(seconds, 0.0) * 1000));
    bool isDrawn = false;
    while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        isDrawn = true;
    }
    return isDrawn;
}

} // namespace slantwise_bench
