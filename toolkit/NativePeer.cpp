// Part of the toolkit's library: the one translation unit that sees the peer's class is the module's own source, so
// that is compiled here, with these functions behind it and its questions to the desktop before it.
#define JUCE_CORE_INCLUDE_NATIVE_HEADERS 1 // as that source does, before anything of the toolkit is included
#include "toolkit/DesktopQuestion.h"

#define ChildProcess DesktopQuestion           // NOLINT(readability-identifier-naming): the name in the module
#include <juce_gui_basics/juce_gui_basics.cpp> // NOLINT(bugprone-suspicious-include): see above
#undef ChildProcess

#include "toolkit/GoneWindows.h"
#include "toolkit/NativePeer.h"
#include "toolkit/SingleMessage.h"

#include <juce_events/native/juce_linux_EventLoopInternal.h>

namespace juce {

namespace {

// Zero for a peer that is no window on an X screen.
::Window windowOf(ComponentPeer& peer) {
    const auto* const linuxPeer = dynamic_cast<LinuxComponentPeer*>(&peer);
    return linuxPeer != nullptr ? linuxPeer->getWindowHandle() : 0;
}

// The toolkit drops the native event on its way to the components, so it is kept while it is being dealt with.
XEvent lastEvent{};
X11Symbols::XNextEvent takeNextEvent = nullptr;

std::vector<const EventWatch::Handler*> eventHandlers;

int keepNextEvent(::Display* display, XEvent* event) {
    const int result = takeNextEvent(display, event);
    lastEvent = *event;
    const ComponentPeer* const peer = event->type < LASTEvent ? getPeerFor(event->xany.window) : nullptr;
    if (peer != nullptr) {
        for (const auto* handler : eventHandlers)
            (*handler)(*peer);
    }
    return result;
}

::Display* openDisplay() {
    const XWindowSystem* const system = XWindowSystem::getInstanceWithoutCreating();
    return system != nullptr ? system->getDisplay() : nullptr;
}

// As a message of its own: what the events lead to may take away whoever calls. One for all that wait: while the main
// thread is busy every request would find them again.
SingleMessage dispatch(&MessageManager::callAsync, [] {
    if (::Display* const stillOpen = openDisplay())
        LinuxEventLoopInternal::invokeEventLoopCallbackForFd(X11Symbols::getInstance()->xConnectionNumber(stillOpen));
});

void dispatchWaitingEvents(::Display* display, int mode) {
    if (X11Symbols::getInstance()->xEventsQueued(display, mode) > 0) dispatch.send();
}

// Called by Xlib after each request, on the thread that made it. What an answer brought along, or what came while there
// was no room to send, waits below Xlib's own queue, where only reading finds it.
int requestWasMade(::Display* display) {
    if (display == openDisplay()) dispatchWaitingEvents(display, QueuedAfterReading);
    return 0;
}

void watchRequests(::Display* display) {
    using AfterFunction = int (*)(::Display*);
    static DynamicLibrary xlib("libX11.so.6");
    const auto setAfterFunction =
        reinterpret_cast<AfterFunction (*)(::Display*, AfterFunction)>(xlib.getFunction("XSetAfterFunction"));
    if (setAfterFunction != nullptr) setAfterFunction(display, &requestWasMade);
}

// These two read without making a request.
X11Symbols::XFlush flushNow = nullptr;
X11Symbols::XCheckTypedWindowEvent checkNow = nullptr;

int flush(::Display* display) {
    const int result = flushNow(display);
    dispatchWaitingEvents(display, QueuedAfterReading);
    return result;
}

int checkTypedWindowEvent(::Display* display, ::Window window, int type, XEvent* event) {
    const int isFound = checkNow(display, window, type, event);
    if (!isFound) dispatchWaitingEvents(display, QueuedAlready);
    return isFound;
}

// The toolkit makes a colour map for each window and frees none of them. Those that it makes are all alike, so one for
// each visual serves every window, and goes with the connection.
X11Symbols::XCreateColormap makeColourMap = nullptr;
std::map<Visual*, Colormap> colourMaps;

Colormap sharedColourMap(::Display* display, ::Window window, Visual* visual, int allocation) {
    Colormap& map = colourMaps[visual];
    if (map == 0) map = makeColourMap(display, window, visual, allocation);
    return map;
}

// Also sees to it that the toolkit's connection costs the host nothing, and does not end it.
void keepEvents() {
    X11Symbols& x11 = *X11Symbols::getInstance();
    if (x11.xNextEvent == &keepNextEvent) return;
    dispatch.forget(); // the toolkit was started anew
    takeNextEvent = std::exchange(x11.xNextEvent, &keepNextEvent);
    flushNow = std::exchange(x11.xFlush, &flush);
    colourMaps.clear();
    makeColourMap = std::exchange(x11.xCreateColormap, &sharedColourMap);
    checkNow = std::exchange(x11.xCheckTypedWindowEvent, &checkTypedWindowEvent);
    ::Display* const display = XWindowSystem::getInstance()->getDisplay();
    watchRequests(display);
    disregardGoneWindows(display);
}

} // namespace

EventWatch::EventWatch(Handler wasToldOf) : wasToldOf_(std::move(wasToldOf)) {
    eventHandlers.push_back(&wasToldOf_);
}

EventWatch::~EventWatch() {
    std::erase(eventHandlers, &wasToldOf_);
}

std::optional<NativeKey> dispatchedKey() {
    const bool isDown = lastEvent.type == KeyPressEventType;
    if (!isDown && lastEvent.type != KeyRelease) return std::nullopt;
    const XKeyEvent& key = lastEvent.xkey;
    const auto code = static_cast<unsigned char>(key.keycode);
    const XWindowSystemUtilities::ScopedXLock lock;
    const KeySym plain = X11Symbols::getInstance()->xkbKeycodeToKeysym(key.display, code, 0, 0);
    return NativeKey{code, plain == XK_Menu, isDown, key.send_event != 0, key.state, key.time};
}

void setPeerRefreshRate(ComponentPeer& peer, int timesPerSecond) {
    if (windowOf(peer) == 0) return;
    keepEvents();
    // The rate is taken from the display that the window is on, when its bounds are looked up again.
    auto& displays = const_cast<Displays&>(Desktop::getInstance().getDisplays()).displays;
    const Array<Displays::Display> asTheyAre = displays;
    if (timesPerSecond > 0) {
        for (Displays::Display& display : displays)
            display.verticalFrequencyHz = timesPerSecond;
    }
    static_cast<LinuxComponentPeer&>(peer).updateWindowBounds();
    displays = asTheyAre;
}

void setPeerKeys(ComponentPeer& peer, PeerKeys keys) {
    const ::Window window = windowOf(peer);
    if (window == 0) return;
    const XWindowSystemUtilities::ScopedXLock lock;
    keepEvents();
    ::Display* const display = XWindowSystem::getInstance()->getDisplay();
    XWindowAttributes attributes;
    if (!X11Symbols::getInstance()->xGetWindowAttributes(display, window, &attributes)) return;
    constexpr long keyEvents = KeyPressMask | KeyReleaseMask;
    const long others = attributes.your_event_mask & ~keyEvents;
    X11Symbols::getInstance()->xSelectInput(display, window, keys == PeerKeys::taken ? others | keyEvents : others);
}

void exchangeEvents() {
    ::Display* const display = openDisplay();
    if (display == nullptr) return;
    const XWindowSystemUtilities::ScopedXLock lock;
    dispatchWaitingEvents(display, QueuedAfterFlush);
}

namespace {

constexpr unsigned int anyButton = Button1Mask | Button2Mask | Button3Mask;

// Keys and buttons held; nothing where there is nobody to ask.
std::optional<unsigned int> heldAt(ComponentPeer& peer) {
    const ::Window window = windowOf(peer);
    if (window == 0) return std::nullopt;
    const XWindowSystemUtilities::ScopedXLock lock;
    ::Window root = 0, child = 0;
    int x = 0, y = 0, rootX = 0, rootY = 0;
    unsigned int state = 0;
    const bool isAnswered = X11Symbols::getInstance()->xQueryPointer(XWindowSystem::getInstance()->getDisplay(), window,
                                                                     &root, &child, &rootX, &rootY, &x, &y, &state);
    return isAnswered ? std::optional(state) : std::nullopt;
}

} // namespace

bool isSuperKeyDown(ComponentPeer& peer) {
    return (heldAt(peer).value_or(0) & Mod4Mask) != 0;
}

bool areButtonsUp(ComponentPeer& peer) {
    return (heldAt(peer).value_or(anyButton) & anyButton) == 0;
}

bool isMovedWithButtonsUp() {
    return lastEvent.type == MotionNotify && (lastEvent.xmotion.state & anyButton) == 0;
}

} // namespace juce
