// An object that can receive events and pass them on. What an object does not handle goes to its next responder.
#pragma once

#include "platform/view/Event.h"

namespace QVM_NAMESPACE {

class Window;

class Responder {
public:
    Responder() = default;
    // A window that has it as the first responder is left with none.
    virtual ~Responder();
    Responder(const Responder&) = delete;
    Responder& operator=(const Responder&) = delete;

    // The next object to ask; null at the end of the chain. A view's is its superview, or what setNextResponder gave
    // it.
    virtual Responder* nextResponder() const { return next_; }
    void setNextResponder(Responder* next) { next_ = next; }

    // Each passes the event on to the next responder unless overridden, but where it says otherwise.
    virtual void mouseDown(const Event& event);
    virtual void mouseDragged(const Event& event);
    virtual void mouseUp(const Event& event);
    // In place of the release, to the view that took the press: the pointer was taken away from the window. Ends what
    // the press began and chooses nothing. Nobody else's matter, so it is not passed on.
    virtual void mouseCancelled(const Event&) {}
    virtual void rightMouseDown(const Event& event);
    // Hover: sent to each view that the pointer enters or leaves, its superviews included. Not passed on.
    virtual void mouseEntered(const Event&) {}
    virtual void mouseExited(const Event&) {}
    virtual void mouseMoved(const Event&) {}
    virtual void scrollWheel(const Event& event);
    // True when handled. A key that nobody handles is the host's.
    virtual bool keyDown(const Event& event);
    // Keys with Command, arrows and keypad keys are offered to each visible view of a window, from the content view
    // down, before anything gets them as keyDown. True when handled. Not passed on.
    virtual bool performKeyEquivalent(const Event& event);

    // Whether a click makes it the first responder.
    virtual bool acceptsFirstResponder() const { return false; }
    // As the first responder: whether a key that comes now could mean anything to it. While none could, the host's
    // window keeps the keyboard, or is given it back.
    virtual bool wantsKeys() const { return true; }
    // Told before the change; false refuses it.
    virtual bool becomeFirstResponder() { return true; }
    virtual bool resignFirstResponder() { return true; }

private:
    friend class Window;
    Responder* next_ = nullptr;
    Window* firstResponderOf_ = nullptr; // set by that window
};

} // namespace QVM_NAMESPACE
