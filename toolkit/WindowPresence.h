// Whether a window of views is to be seen on a screen, and how often that screen is refreshed.
#pragma once

#include "platform/runloop/DisplayLink.h"
#include "platform/view/Window.h"
#include "toolkit/XConnection.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// The window counts as visible until it has come to a screen and is hidden, minimised or taken away there. Tells the
// window, and the display link the rate of the display. Main thread.
class WindowPresence {
public:
    // All are borrowed and outlive it: the component that shows the window, and the connection to the display.
    WindowPresence(juce::Component& component, Window& window, XConnection& connection)
        : component_(component), window_(window), connection_(connection) {}

    // What is around may be hidden, or moved to another display, without a word: call now and then, and when the
    // component's place has changed. Asks the X server once the window has come to the screen; false where it is not
    // there yet, or nowhere.
    bool look();
    // Seconds on the run loop's clock.
    double lastLook() const { return lastLook_; }
    // As far as is known: the toolkit would ask the server each time.
    bool isOnScreen() const { return wasOnScreen_ && window_.isVisible() && component_.getPeer(); }

private:
    void adoptLinkRate();

    juce::Component& component_;
    Window& window_;
    XConnection& connection_;
    DisplayRate linkRequest_;
    double lastLook_ = 0;
    bool wasOnScreen_ = false;
};

} // namespace QVM_NAMESPACE
