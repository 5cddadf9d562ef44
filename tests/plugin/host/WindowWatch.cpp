#include "plugin/host/WindowWatch.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <utility>

namespace slantwise_tests {

WindowWatch::WindowWatch(std::string title) : title_(std::move(title)), display_(XOpenDisplay(nullptr)) {
    // Windows may go before they are asked for.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    if (!display_) return;
    XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
    XSync(display_, False);
}

WindowWatch::~WindowWatch() {
    if (display_) XCloseDisplay(display_);
}

void WindowWatch::look() {
    XSync(display_, False);
    while (XPending(display_) > 0) {
        XEvent event{};
        XNextEvent(display_, &event);
        // The root tells of its children too; what counts is what a window tells of itself, framed or not.
        switch (event.type) {
        case CreateNotify:
            if (!event.xcreatewindow.override_redirect) adopt(event.xcreatewindow.window);
            break;
        case ConfigureNotify:
            if (event.xconfigure.event == event.xconfigure.window && sizes_.contains(event.xconfigure.window))
                sizes_[event.xconfigure.window] = {event.xconfigure.width, event.xconfigure.height};
            break;
        case MapNotify:
            if (event.xmap.event == event.xmap.window && isMeant(event.xmap.window))
                mapped_.push_back(sizes_[event.xmap.window]);
            break;
        case ReparentNotify:
            if (event.xreparent.event == event.xreparent.window && isMeant(event.xreparent.window) && wasFramed)
                wasFramed();
            break;
        default:
            break;
        }
    }
}

void WindowWatch::adopt(unsigned long window) {
    XSelectInput(display_, window, StructureNotifyMask);
    sizes_[window] = sizeOf(window);
}

bool WindowWatch::isMeant(unsigned long window) {
    XTextProperty name{};
    if (!sizes_.contains(window) || !XGetWMName(display_, window, &name) || !name.value) return false;
    const bool isMeant = title_ == reinterpret_cast<const char*>(name.value);
    XFree(name.value);
    return isMeant;
}

bool WindowWatch::isThere() {
    return std::any_of(sizes_.begin(), sizes_.end(), [this](const auto& each) { return isMeant(each.first); });
}

std::vector<WindowWatch::Size> WindowWatch::present() {
    std::vector<Size> result;
    for (const auto& [window, size] : sizes_) {
        XWindowAttributes attributes{};
        if (isMeant(window) && XGetWindowAttributes(display_, window, &attributes) &&
            attributes.map_state == IsViewable)
            result.emplace_back(attributes.width, attributes.height);
    }
    return result;
}

WindowWatch::Size WindowWatch::sizeOf(unsigned long window) {
    Window root = 0;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    XGetGeometry(display_, window, &root, &x, &y, &width, &height, &border, &depth);
    return {static_cast<int>(width), static_cast<int>(height)};
}

} // namespace slantwise_tests
