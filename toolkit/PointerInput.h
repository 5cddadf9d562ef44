// The pointer: from the toolkit's component to the window of views, with its presses and its tool tips.
#pragma once

#include "platform/runloop/DelayedCall.h"
#include "platform/view/Window.h"
#include "toolkit/KeyboardFocus.h"
#include "toolkit/KeyboardToolTip.h"
#include "toolkit/RefreshPace.h"
#include "toolkit/ToolTipWindow.h"
#include "toolkit/ToolkitRuntime.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>
#include <optional>

namespace QVM_NAMESPACE {

// The component may be destroyed by what an event leads to. Main thread.
class PointerInput {
public:
    // All are borrowed and outlive it. `keys` is told of presses.
    PointerInput(juce::Component& component, Window& window, KeyboardFocus& keys, RefreshPace& pace,
                 ToolkitRuntime& runtime)
        : component_(component), window_(window), keys_(keys), pace_(pace), runtime_(runtime) {}

    // What the toolkit tells the component.
    void down(const juce::MouseEvent& event);
    void drag(const juce::MouseEvent& event);
    void up(const juce::MouseEvent& event);
    void move(const juce::MouseEvent& event);
    void enter(const juce::MouseEvent& event);
    void exit(const juce::MouseEvent& event);
    void wheel(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel);

    // A press may end where nobody tells of it: call now and then. Asks the X server while one goes on.
    void endLostPress();

    // Of the view under the pointer; empty when there is none to show, for a window that opened under a pointer which
    // has rested since, as nobody has come to a view with it, and for a view in which a press began or ended until the
    // pointer has left it: who has just used it knows what it is, and looks at what it did.
    juce::String toolTip() const;
    // Before and after a key: who types looks at what is typed, and there are no tool tips from the pointer until it is
    // used again, but one from a rest after a key that led to another view.
    void keyWillArrive();
    void keyDidArrive() { keyboardTip_.keyDidArrive(); }
    // The keyboard has gone elsewhere.
    void keyboardWasLost() { keyboardTip_.hide(); }
    // Before the component goes: its tool tip is closed, and a press in it ends for the toolkit too, whose pointer
    // would carry it into the next window.
    void leave();

private:
    static std::optional<juce::Point<float>> placeOnScreen();
    bool isWhereItOpened(const juce::MouseEvent& event) const;
    void noteUse(EventType type);
    void send(const juce::MouseEvent& event, EventType type);
    bool isPressLost();
    void losePress();
    void endPress();
    bool isHeldByToolkit() const;
    void releaseInToolkit();

    juce::Component& component_;
    Window& window_;
    KeyboardFocus& keys_;
    RefreshPace& pace_;
    ToolkitRuntime& runtime_;
    Point pointer_;                                                      // where it was last seen, in the window
    const std::optional<juce::Point<float>> openedAt_ = placeOnScreen(); // where it was then
    bool areToolTipsQuiet_ = true;
    const View* used_ = nullptr;              // whose tip waits for the pointer to leave it; compared, never followed
    DelayedCall toolkitRelease_;              // of a button that is up already
    std::unique_ptr<ToolTipWindow> toolTips_; // while the pointer is inside
    KeyboardToolTip keyboardTip_{component_, window_, runtime_};
};

} // namespace QVM_NAMESPACE
