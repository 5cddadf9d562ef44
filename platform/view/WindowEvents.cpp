// What a window does with events: pointer, keys, menus, cursors.
#include "platform/runloop/NotificationCenter.h"
#include "platform/runloop/RunLoop.h"
#include "platform/view/Menu.h"
#include "platform/view/Window.h"
#include "platform/view/WindowWalk.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

bool isContextMenuPress(const Event& event) {
    const bool isControlPress =
        event.has(EventModifier::control) && !event.has(EventModifier::option) && !event.has(EventModifier::command);
    return event.type == EventType::rightMouseDown || isControlPress;
}

} // namespace

bool Window::sendEvent(const Event& event) {
    switch (event.type) {
    case EventType::mouseDown:
    case EventType::rightMouseDown:
        return mousePressed(event);
    case EventType::mouseUp:
        return mouseReleased(event);
    case EventType::mouseDragged:
        if (!capture_) return false;
        press_.moveTo(event.locationInWindow);
        capture_->mouseDragged(event);
        return true;
    case EventType::mouseCancelled:
        cancelPress();
        return true;
    case EventType::mouseMoved:
    case EventType::mouseExited:
        if (capture_) return false; // the pressed view keeps the pointer
        updateHover(event, event.type == EventType::mouseMoved ? hitTest(event.locationInWindow) : nullptr);
        return true;
    case EventType::scrollWheel: {
        View* under = capture_ ? capture_ : hitTest(event.locationInWindow);
        if (under) under->scrollWheel(event);
        return under != nullptr;
    }
    case EventType::keyDown: {
        const std::weak_ptr<const bool> alive = alive_;
        const bool isHandled = keyPressed(event);
        if (!alive.expired()) isKeyHeld_ = isHandled;
        return isHandled;
    }
    case EventType::keyUp:
        isKeyHeld_ = false;
        break;
    case EventType::flagsChanged:
        break;
    }
    return false;
}

bool Window::mousePressed(const Event& event) {
    if (capture_ && event.type == EventType::rightMouseDown) return true; // no menu in mid-drag
    const std::weak_ptr<const bool> alive = alive_;
    cancelPress(); // a release that never came
    if (alive.expired()) return true;
    updateHover(event, hitTest(event.locationInWindow));
    if (alive.expired()) return true;
    if (isContextMenuPress(event) && showContextMenu(event)) return true;
    if (alive.expired()) return true;
    View* under = hitTest(event.locationInWindow);
    if (!under) return false;
    if (event.type == EventType::rightMouseDown) {
        under->rightMouseDown(event);
        return true;
    }
    capture_ = under;
    press_.beginAt(event.locationInWindow);
    if (under->acceptsFirstResponder()) makeFirstResponder(under);
    if (!alive.expired() && capture_ == under) under->mouseDown(event);
    return true;
}

bool Window::mouseReleased(const Event& event) {
    if (capture_) press_.moveTo(event.locationInWindow);
    View* const pressed = std::exchange(capture_, nullptr);
    const std::weak_ptr<const bool> alive = alive_;
    if (pressed) pressed->mouseUp(event);
    if (pressed && !alive.expired()) pressDidEnd();
    if (!alive.expired() && !capture_) updateHover(event, hitTest(event.locationInWindow));
    return pressed != nullptr;
}

void Window::pressDidEnd() {
    if (!capture_) NotificationCenter::defaultCenter().post(didEndPressNotification, this);
}

void Window::cancelPress() {
    View* const pressed = std::exchange(capture_, nullptr);
    if (!pressed) return;
    Event event; // with no modifiers: what is held at the keyboard has no say in a release that there is none of
    event.type = EventType::mouseCancelled;
    event.locationInWindow = press_.pointer();
    event.timestamp = RunLoop::main().now();
    const std::weak_ptr<const bool> alive = alive_;
    pressed->mouseCancelled(event);
    if (!alive.expired()) pressDidEnd();
}

bool Window::keyPressed(const Event& event) {
    if (event.has(EventModifier::command) || event.has(EventModifier::numericPad)) {
        const std::weak_ptr<const bool> alive = alive_;
        Walk walk(*this, treeOf(content_.get(), Include::visible));
        if (walk.until([&event](View& view) { return view.performKeyEquivalent(event); }) || alive.expired())
            return true;
    }
    return firstResponder_ && firstResponder_->keyDown(event);
}

bool Window::showContextMenu(const Event& event) {
    const std::weak_ptr<const bool> alive = alive_;
    std::vector<View*> path = withSuperviews(hitTest(event.locationInWindow));
    std::reverse(path.begin(), path.end());
    std::unique_ptr<Menu> menu;
    Walk(*this, std::move(path)).until([&](View& view) { return (menu = view.menuForEvent(event)) != nullptr; });
    if (!menu || alive.expired()) return false;
    popUpMenu(std::move(menu), event.locationInWindow);
    return true;
}

void Window::updateHover(const Event& event, View* under) {
    const std::vector<View*> path = withSuperviews(under), before = std::exchange(hovered_, path);
    const auto firstNew = std::mismatch(before.begin(), before.end(), path.begin(), path.end());
    updateCursor();

    const std::weak_ptr<const bool> alive = alive_;
    Walk left(*this, {std::make_reverse_iterator(before.end()), std::make_reverse_iterator(firstNew.first)});
    Walk entered(*this, {firstNew.second, path.end()});
    Walk inside(*this, event.type == EventType::mouseMoved ? path : std::vector<View*>{});
    left.until([&event](View& view) { return view.mouseExited(event), false; });
    entered.until([&event](View& view) { return view.mouseEntered(event), false; });
    inside.until([&event](View& view) { return view.mouseMoved(event), false; });
}

void Window::popUpMenu(std::unique_ptr<Menu> menu, Point at) {
    if (host_) host_->popUpMenu(std::move(menu), at);
}

void Window::pushCursor(Cursor cursor) {
    cursorStack_.push_back(cursor);
    updateCursor();
}

void Window::popCursor() {
    if (!cursorStack_.empty()) cursorStack_.pop_back();
    updateCursor();
}

void Window::updateCursor() {
    Cursor cursor = Cursor::arrow;
    for (const View* view : hovered_) {
        if (view->cursor() != Cursor::arrow) cursor = view->cursor(); // a plain view shows what it lies in
    }
    if (!cursorStack_.empty()) cursor = cursorStack_.back();
    if (std::exchange(shownCursor_, cursor) != cursor && host_) host_->setCursor(cursor);
}

} // namespace QVM_NAMESPACE
