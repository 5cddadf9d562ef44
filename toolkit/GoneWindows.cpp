// Part of the toolkit's library, as NativePeer.cpp is.
#include "toolkit/GoneWindows.h"

#include <juce_core/juce_core.h>

#include <X11/X.h>
#include <X11/Xlib.h>
#include <X11/Xproto.h>

namespace juce {

namespace {

// What Xlib asks as it takes an error from the connection, on whatever thread reads: whether the handler is to be told.
using ErrorFilter = Bool (*)(::Display*, XErrorEvent*, xError*);

Bool isNeverTold(::Display*, XErrorEvent*, xError*) {
    return False;
}

// A window cannot be given the keyboard once it is hidden, or the window around it.
Bool isToldUnlessOfFocus(::Display*, XErrorEvent* error, xError*) {
    return error->request_code == X_SetInputFocus ? False : True;
}

} // namespace

void disregardGoneWindows(_XDisplay* display) {
    static DynamicLibrary xlib("libX11.so.6"); // the toolkit loads it as well, and nobody links it
    const auto setFilter = reinterpret_cast<ErrorFilter (*)(Display*, int, ErrorFilter)>(
        xlib.getFunction("XESetWireToError")); // by connection and by the error's number
    if (setFilter == nullptr) return;
    setFilter(display, BadWindow, &isNeverTold);
    setFilter(display, BadDrawable, &isNeverTold);
    setFilter(display, BadMatch, &isToldUnlessOfFocus);
}

} // namespace juce
