// A view that writes down what it receives.
#pragma once

#include "platform/view/Menu.h"
#include "platform/view/View.h"
#include "platform/view/Window.h"

#include <functional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

using Record = std::vector<std::string>;

class RecordingView : public View {
public:
    RecordingView(std::string name, Record& record, const Rect& frame, YAxis axis = YAxis::down)
        : View(frame, axis), name_(std::move(name)), record_(record) {}

    bool passesOn = false;           // mouse events and keys go to the next responder too
    bool handlesKeys = true;         // what keyDown answers
    bool handlesEquivalents = false; // what performKeyEquivalent answers
    bool keysAreWanted = true;       // what wantsKeys answers
    bool acceptsFirst = false, mayBecomeFirst = true, mayResignFirst = true;
    std::function<void(const std::string&)> also; // runs on each event, told its word
    Point cancelledAt;                            // in the window
    std::unique_ptr<Menu> menu;                   // given to the first that asks

    void mouseDown(const Event& e) override {
        if (passesAfter("down")) View::mouseDown(e);
    }
    void mouseDragged(const Event& e) override {
        if (passesAfter("dragged")) View::mouseDragged(e);
    }
    void mouseUp(const Event& e) override {
        if (passesAfter("up")) View::mouseUp(e);
    }
    void mouseCancelled(const Event& e) override {
        cancelledAt = e.locationInWindow;
        note("cancelled");
    }
    void rightMouseDown(const Event& e) override {
        if (passesAfter("rightDown")) View::rightMouseDown(e);
    }
    void scrollWheel(const Event& e) override {
        if (passesAfter("scroll")) View::scrollWheel(e);
    }
    void mouseEntered(const Event&) override { note("entered"); }
    void mouseExited(const Event&) override { note("exited"); }
    void mouseMoved(const Event&) override { note("moved"); }
    bool keyDown(const Event& e) override {
        const bool handles = handlesKeys;
        note("key");
        return handles || View::keyDown(e);
    }
    bool performKeyEquivalent(const Event&) override {
        const bool handles = handlesEquivalents;
        note("equivalent");
        return handles;
    }
    std::unique_ptr<Menu> menuForEvent(const Event&) override {
        std::unique_ptr<Menu> given = std::move(menu);
        note("menu");
        return given;
    }
    bool acceptsFirstResponder() const override { return acceptsFirst; }
    bool wantsKeys() const override { return keysAreWanted; }
    bool becomeFirstResponder() override {
        note("become");
        return mayBecomeFirst;
    }
    bool resignFirstResponder() override {
        note("resign");
        return mayResignFirst;
    }
    void viewWillMoveToWindow(Window* w) override { note(w ? "willEnterWindow" : "willLeaveWindow"); }
    void viewDidMoveToWindow() override { note(window() ? "inWindow" : "outOfWindow"); }
    void viewDidChangeBackingProperties() override { note("backing"); }
    void frameDidChange() override { note("frame"); }

private:
    void note(const std::string& word) {
        const auto call = also; // this view may be gone afterwards
        record_.push_back(name_ + ' ' + word);
        if (call) call(word);
    }
    bool passesAfter(const std::string& word) {
        const bool pass = passesOn;
        note(word);
        return pass;
    }

    const std::string name_;
    Record& record_;
};

inline Event mouse(EventType type, Point at, std::uint32_t modifiers = 0) {
    Event event;
    event.type = type;
    event.locationInWindow = at;
    event.modifierFlags = modifiers;
    return event;
}

inline Event key(char32_t character, std::uint32_t modifiers = 0) {
    Event event;
    event.type = EventType::keyDown;
    event.charactersIgnoringModifiers = std::u32string(1, character);
    event.modifierFlags = modifiers;
    return event;
}

class RecordingHost : public WindowHost {
public:
    void setCursor(Cursor c) override { cursors.push_back(c); }
    void contentSizeDidChange(Size points) override { sizes.push_back(points); }
    void takeKeyboardFocus() override { ++taken; }
    void popUpMenu(std::unique_ptr<Menu> menu, Point at) override {
        menus.push_back(menu->title);
        menuPoint = at;
    }
    std::vector<Cursor> cursors;
    std::vector<Size> sizes;
    std::vector<std::string> menus;
    Point menuPoint;
    int taken = 0; // times that the keyboard was asked for
};

} // namespace QVM_NAMESPACE
