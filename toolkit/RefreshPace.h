// How often the toolkit's window refreshes: looks whether it has something to paint, and calls back.
//
// At the display's rate while something goes on, and once a second when nothing has for one: these refreshes are most
// of what an open editor costs while nobody looks at it. Little waits for a slow one. What a component draws by
// itself it shows by itself; and whatever the server tells of the window, be it a key or that a part was uncovered,
// ends the rest, as does the toolkit when it marks a part of the component.
#pragma once

#include "BuildNamespace.h"
#include "toolkit/NativePeer.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// Of the window that a component is in. Main thread.
class RefreshPace final : private juce::AsyncUpdater {
public:
    // The component outlives it and leaves setCachedComponentImage() to it.
    explicit RefreshPace(juce::Component& component);
    ~RefreshPace() override;

    // Something goes on: the pace is the display's for a second from now.
    void keepAwake();
    // From every refresh.
    void didRefresh();
    bool isResting() const { return rate_ == Rate::rest; }

    // While it lives what is marked is shown without a refresh.
    class ScopedFrame {
    public:
        explicit ScopedFrame(RefreshPace& pace) : drawing_(pace.isDrawing_, true) {}

    private:
        juce::ScopedValueSetter<bool> drawing_;
    };

private:
    enum class Rate : unsigned char { display, rest };
    void setRate(Rate rate);
    void wakeSoon();
    void handleAsyncUpdate() override { keepAwake(); }

    juce::Component& component_;
    juce::EventWatch events_;
    Rate rate_ = Rate::display;
    bool isDrawing_ = false;
    double lastActivity_ = 0, lastRefresh_ = 0; // seconds on the run loop's clock
};

} // namespace QVM_NAMESPACE
