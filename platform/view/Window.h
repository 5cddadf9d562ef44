// The window (or the part of the host's window) that holds one view tree: dispatches events, keeps the first responder
// and the pointer's capture, and passes requests to whoever really owns the pixels.
#pragma once

#include "platform/view/Press.h"
#include "platform/view/View.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

// What the adapter does for a window. Main thread.
class WindowHost {
public:
    virtual ~WindowHost() = default;
    virtual void setCursor(Cursor cursor) = 0;
    // The window has another content view, or none.
    virtual void contentViewDidChange() {}
    // The content view's size changed from inside, that of its bounds or of its frame alone; the host's frame follows.
    virtual void contentSizeDidChange(Size bounds) = 0;
    // Something is to be typed into or stepped: keyboard focus is wanted, for as long as the window wantsKeys().
    virtual void takeKeyboardFocus() = 0;
    // Shows the menu inside the window at a point in window coordinates; returns at once.
    virtual void popUpMenu(std::unique_ptr<Menu> menu, Point at) = 0;
};

class Window {
public:
    // Names of the notifications a window posts, with itself as the object.
    static constexpr const char* didBecomeKeyNotification = "WindowDidBecomeKey";
    static constexpr const char* didResignKeyNotification = "WindowDidResignKey";
    static constexpr const char* didChangeVisibilityNotification = "WindowDidChangeVisibility";
    // Nothing is pressed any more: the view that took the press was told so before, or is just leaving the window; who
    // hears of it leaves the views alone.
    static constexpr const char* didEndPressNotification = "WindowDidEndPress";

    // The host is borrowed, may be null (tests), and must be cleared before it goes.
    explicit Window(WindowHost* host = nullptr);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    // Owns the tree. Views learn of the window before this returns.
    template <class T>
    T& setContentView(std::unique_ptr<T> view) {
        T& content = *view;
        replaceContentView(std::move(view));
        return content;
    }
    std::unique_ptr<View> takeContentView();
    View* contentView() const { return content_.get(); }
    void setHost(WindowHost* host);
    WindowHost* host() const { return host_; }

    // Device pixels a point; a change reaches every layer's contents scale, then viewDidChangeBackingProperties().
    double backingScaleFactor() const { return scale_; }
    void setBackingScaleFactor(double scale);

    // Whether anybody can see it: what moves by itself rests while nobody can. The host says so; until then, and with
    // no host, it is visible. Posts the notification on a change; who is hidden loses the press.
    bool isVisible() const { return visible_; }
    void setVisible(bool visible);

    bool isKeyWindow() const { return key_; }
    void setKeyWindow(bool key); // posts the notification on a change; who resigns loses the press
    // Asks the host for keyboard focus, unless it is key (the host answers with setKeyWindow). With no host it is key
    // at once.
    void makeKey();

    Responder* firstResponder() const { return firstResponder_; }
    // False when the present one refuses to resign (nothing changes then) or the new one to become (nothing is first
    // then). Null means that nothing is first: keys that no key equivalent takes are the host's.
    bool makeFirstResponder(Responder* responder);

    // Whether a key could mean anything here: what the first responder says, and yes while nothing is first.
    bool wantsKeys() const { return !firstResponder_ || firstResponder_->wantsKeys(); }

    // The view that the first responder's keys are for, as it shows it; null for none. It may go at any time.
    const View* keyboardView() const { return keyboardView_; }
    void setKeyboardView(const View* view) { keyboardView_ = view; }

    // Dispatches one event; true when something handled it. A mouse press is captured by the view under it until the
    // release. A right press, or a press with Control held and neither Option nor Command, asks the view under it and
    // its superviews for a context menu; when one answers the menu is all that the press does. Views may be removed and
    // destroyed by what they receive; the window may be destroyed by it too.
    bool sendEvent(const Event& event);
    // The view under a point, or the nearest one around it, that has a tooltip; null when none has.
    const View* toolTippedViewAt(Point pointInWindow) const;
    View* hitTest(Point pointInWindow) const;
    View* mouseCapture() const { return capture_; }
    // The press that is held, or the one before: also while its release is told.
    const Press& press() const { return press_; }
    // Whether a key that something here handled is still down, as far as the host tells: until the event of its release
    // or the loss of the keyboard.
    bool isKeyHeld() const { return isKeyHeld_; }
    // The pointer was taken away in mid-press, and the release is another's: the view that took the press is told so
    // in place of it, and what moves from now on drags nothing.
    void cancelPress();

    void popUpMenu(std::unique_ptr<Menu> menu, Point at);
    // Cursor rectangles can be switched off while a drag shows its own cursor (nested calls count).
    void pushCursor(Cursor cursor);
    void popCursor();

private:
    friend class View;
    friend class Responder;
    class Walk; // over views, any of which may go meanwhile
    void replaceContentView(std::unique_ptr<View> view);
    void contentSizeDidChange();
    void forget(const View& view); // it is leaving with all that is in it: clear what points there
    void forgetResponder(const Responder& responder);
    bool mousePressed(const Event& event);
    bool mouseReleased(const Event& event);
    void pressDidEnd();
    bool keyPressed(const Event& event);
    bool showContextMenu(const Event& event);
    void updateHover(const Event& event, View* under);
    void updateCursor();

    WindowHost* host_ = nullptr;
    std::unique_ptr<View> content_;
    Responder* firstResponder_ = nullptr;
    const View* keyboardView_ = nullptr;
    View* capture_ = nullptr;
    Press press_;                // that it took
    std::vector<View*> hovered_; // outermost first
    std::vector<Cursor> cursorStack_;
    Cursor shownCursor_ = Cursor::arrow;
    double scale_ = 1;
    bool key_ = false;
    bool isKeyHeld_ = false;
    bool visible_ = true;
    Walk* walks_ = nullptr; // those under way, innermost first
    // Expires with the window, for what calls out and goes on.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace QVM_NAMESPACE
