#include "plugin/host/XScreen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <cstdlib>

namespace slantwise_tests {

namespace {

// Windows of other programs may go between two questions about them.
int ignoreError(Display*, XErrorEvent*) {
    return 0;
}

// The first place with a count of so many, and how many places from there to the last one.
std::pair<int, int> spanOf(const std::vector<int>& counts, int fewest) {
    const auto isMany = [fewest](int count) { return count >= fewest; };
    const auto first = std::ranges::find_if(counts, isMany);
    const auto end = std::find_if(counts.rbegin(), counts.rend(), isMany).base();
    return {static_cast<int>(first - counts.begin()), static_cast<int>(end - first)};
}

} // namespace

std::size_t Picture::differingPixels(const Picture& other) const {
    if (other.pixels.size() != pixels.size()) return pixels.size();
    std::size_t count = 0;
    for (std::size_t i = 0; i < pixels.size(); ++i)
        count += pixels[i] != other.pixels[i];
    return count;
}

std::size_t Picture::countOf(std::uint32_t colour, int tolerance) const {
    std::size_t count = 0;
    for (const std::uint32_t pixel : pixels) {
        bool near = true;
        for (const int shift : {0, 8, 16}) {
            const int channel = static_cast<int>(pixel >> shift & 0xFF),
                      wanted = static_cast<int>(colour >> shift & 0xFF);
            near = near && std::abs(channel - wanted) <= tolerance;
        }
        count += near;
    }
    return count;
}

std::optional<Picture::Box> Picture::boxOfNew(std::uint32_t colour, const Picture& before) const {
    constexpr int fewest = 12;
    if (before.pixels.size() != pixels.size()) return std::nullopt;
    std::vector<int> inColumn(static_cast<std::size_t>(width)), inRow(static_cast<std::size_t>(height));
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const bool isNew = pixels[i] == colour && before.pixels[i] != colour;
        inColumn[i % inColumn.size()] += isNew;
        inRow[i / inColumn.size()] += isNew;
    }
    const auto [x, across] = spanOf(inColumn, fewest);
    const auto [y, down] = spanOf(inRow, fewest);
    if (across <= 0 || down <= 0) return std::nullopt;
    return Box{x, y, across, down};
}

XScreen::XScreen() : display_(XOpenDisplay(nullptr)) {
    XSetErrorHandler(&ignoreError);
}

XScreen::~XScreen() {
    if (display_) XCloseDisplay(display_);
}

void XScreen::movePointer(int x, int y) {
    XTestFakeMotionEvent(display_, -1, x, y, CurrentTime);
    XSync(display_, False);
}

void XScreen::button(int number, bool down) {
    XTestFakeButtonEvent(display_, static_cast<unsigned>(number), down ? True : False, CurrentTime);
    XSync(display_, False);
}

void XScreen::key(const std::string& name, bool down) {
    const KeyCode code = XKeysymToKeycode(display_, XStringToKeysym(name.c_str()));
    XTestFakeKeyEvent(display_, code, down ? True : False, CurrentTime);
    XSync(display_, False);
}

void XScreen::typeKey(const std::string& name) {
    key(name, true);
    key(name, false);
}

unsigned long XScreen::focus() {
    Window window = 0;
    int revertTo = 0;
    XGetInputFocus(display_, &window, &revertTo);
    return window;
}

bool XScreen::isFocusIn(unsigned long window) {
    Window at = focus();
    while (at > PointerRoot && at != window) {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned count = 0;
        if (!XQueryTree(display_, at, &root, &parent, &children, &count)) return false;
        if (children) XFree(children);
        at = parent;
    }
    return at == window;
}

unsigned long XScreen::showAnotherWindow(int x, int y, int width, int height) {
    const Window window = XCreateSimpleWindow(display_, DefaultRootWindow(display_), x, y, static_cast<unsigned>(width),
                                              static_cast<unsigned>(height), 0, 0, 0);
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    XChangeWindowAttributes(display_, window, CWOverrideRedirect, &attributes);
    XMapWindow(display_, window);
    setFocus(window);
    return window;
}

void XScreen::setFocus(unsigned long window) {
    XSetInputFocus(display_, window, RevertToParent, CurrentTime);
    XSync(display_, False);
}

void XScreen::minimise(unsigned long topLevel) {
    XIconifyWindow(display_, topLevel, DefaultScreen(display_));
    XSync(display_, False);
}

void XScreen::restore(unsigned long topLevel) {
    XMapRaised(display_, topLevel);
    XSync(display_, False);
}

void XScreen::blinkFocus() {
    const Window focused = focus();
    XSetInputFocus(display_, DefaultRootWindow(display_), RevertToParent, CurrentTime);
    XSetInputFocus(display_, focused, RevertToParent, CurrentTime);
    XSync(display_, False);
}

void XScreen::setResources(const std::string& lines) {
    XChangeProperty(display_, DefaultRootWindow(display_), XA_RESOURCE_MANAGER, XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(lines.data()), static_cast<int>(lines.size()));
    XSync(display_, False);
}

Picture XScreen::capture(int x, int y, int width, int height) {
    Picture picture{width, height, {}};
    XImage* const image = XGetImage(display_, DefaultRootWindow(display_), x, y, static_cast<unsigned>(width),
                                    static_cast<unsigned>(height), AllPlanes, ZPixmap);
    if (!image) return {};
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column)
            picture.pixels.push_back(static_cast<std::uint32_t>(XGetPixel(image, column, row)) & 0xFFFFFF);
    }
    XDestroyImage(image);
    return picture;
}

int XScreen::widthOf(unsigned long window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(display_, window, &attributes) ? attributes.width : 0;
}

std::optional<XScreen::Found> XScreen::findWindow(int width, int height) {
    return findBelow(DefaultRootWindow(display_), 0, width, height);
}

bool XScreen::managesWindows() {
    Atom type = 0;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    const Atom list = XInternAtom(display_, "_NET_CLIENT_LIST", False);
    XGetWindowProperty(display_, DefaultRootWindow(display_), list, 0, 1, False, AnyPropertyType, &type, &format,
                       &items, &left, &data);
    if (data) XFree(data);
    return items > 0;
}

std::optional<XScreen::Found> XScreen::findBelow(unsigned long window, unsigned long topLevel, int width, int height) {
    Atom type = 0;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    const Atom state = XInternAtom(display_, "WM_STATE", False);
    XGetWindowProperty(display_, window, state, 0, 2, False, AnyPropertyType, &type, &format, &items, &left, &data);
    if (data) XFree(data);
    if (type != 0) topLevel = window; // the window manager manages it

    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    std::optional<Found> found;
    if (XQueryTree(display_, window, &root, &parent, &children, &count)) {
        for (unsigned i = 0; i < count && !found; ++i)
            found = findBelow(children[i], topLevel, width, height);
        if (children) XFree(children);
    }
    XWindowAttributes attributes{};
    if (found || !topLevel || !XGetWindowAttributes(display_, window, &attributes)) return found;
    if (attributes.map_state != IsViewable || attributes.width != width || attributes.height != height) return {};
    Window child = 0;
    Found here{0, 0, topLevel};
    XTranslateCoordinates(display_, window, root, 0, 0, &here.x, &here.y, &child);
    return here;
}

void XScreen::closeWindow(unsigned long topLevel) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = topLevel;
    event.xclient.message_type = XInternAtom(display_, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display_, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display_, topLevel, False, NoEventMask, &event);
    XSync(display_, False);
}

} // namespace slantwise_tests
