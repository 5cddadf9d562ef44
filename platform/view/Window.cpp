#include "platform/view/Window.h"

#include "platform/runloop/NotificationCenter.h"
#include "platform/runloop/RunLoop.h"
#include "platform/view/Menu.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

// Outermost first, `view` itself last.
std::vector<View*> withSuperviews(View* view) {
    std::vector<View*> path;
    for (; view; view = view->superview())
        path.push_back(view);
    std::reverse(path.begin(), path.end());
    return path;
}

enum class Include : unsigned char { all, visible };

// The view, then all that is in it.
void collect(View& view, Include include, std::vector<View*>& found) {
    if (include == Include::visible && view.isHidden()) return;
    found.push_back(&view);
    for (const auto& subview : view.subviews())
        collect(*subview, include, found);
}

std::vector<View*> treeOf(View* root, Include include) {
    std::vector<View*> found;
    if (root) collect(*root, include, found);
    return found;
}

bool isContextMenuPress(const Event& event) {
    const bool isControlPress =
        event.has(EventModifier::control) && !event.has(EventModifier::option) && !event.has(EventModifier::command);
    return event.type == EventType::rightMouseDown || isControlPress;
}

} // namespace

// Calls each view in turn but those that left the window after the walk began.
class Window::Walk {
public:
    Walk(Window& window, std::vector<View*> views)
        : window_(window), alive_(window.alive_), views_(std::move(views)), outer_(std::exchange(window.walks_, this)) {
    }
    ~Walk() {
        if (!alive_.expired()) window_.walks_ = outer_;
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    // Until one answers true; whether one did.
    template <class Function>
    bool until(Function&& function) {
        for (std::size_t i = 0; i < views_.size() && !alive_.expired(); ++i) {
            if (views_[i] && function(*views_[i])) return true;
        }
        return false;
    }
    void forget(const View& gone) {
        for (View*& view : views_) {
            if (view && view->isDescendantOf(gone)) view = nullptr;
        }
        if (outer_) outer_->forget(gone);
    }

private:
    Window& window_;
    const std::weak_ptr<const bool> alive_;
    std::vector<View*> views_;
    Walk* const outer_;
};

Window::Window(WindowHost* host) : host_(host) {}

Window::~Window() {
    alive_.reset();
    host_ = nullptr;
    takeContentView();
    makeFirstResponder(nullptr);
    if (firstResponder_) forgetResponder(*firstResponder_); // it refused to resign
}

void Window::replaceContentView(std::unique_ptr<View> view) {
    takeContentView();
    content_ = std::move(view);
    if (!content_) return;
    if (host_) host_->contentViewDidChange();
    content_->moveToWindow(this);
}

std::unique_ptr<View> Window::takeContentView() {
    if (!content_) return nullptr;
    forget(*content_);
    std::unique_ptr<View> view = std::move(content_);
    view->moveToWindow(nullptr);
    if (host_) host_->contentViewDidChange();
    return view;
}

void Window::contentFrameDidChange(Size before) {
    if (host_ && content_->bounds().size() != before) host_->contentSizeDidChange(content_->bounds().size());
}

void Window::setHost(WindowHost* host) {
    host_ = host;
    shownCursor_ = Cursor::arrow;
    updateCursor();
}

void Window::setBackingScaleFactor(double scale) {
    if (scale == scale_) return;
    scale_ = scale;
    if (!content_) return;
    content_->pushContentsScale(scale);
    Walk(*this, treeOf(content_.get(), Include::all)).until([](View& view) {
        view.viewDidChangeBackingProperties();
        return false;
    });
}

void Window::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    const std::weak_ptr<const bool> alive = alive_;
    if (!visible) cancelPress();
    if (!alive.expired()) NotificationCenter::defaultCenter().post(didChangeVisibilityNotification, this);
}

void Window::setKeyWindow(bool key) {
    if (key == key_) return;
    isKeyHeld_ = false; // who loses the keyboard hears of no release
    key_ = key;
    const std::weak_ptr<const bool> alive = alive_;
    if (!key) cancelPress();
    if (!alive.expired())
        NotificationCenter::defaultCenter().post(key ? didBecomeKeyNotification : didResignKeyNotification, this);
}

void Window::makeKey() {
    host_ ? host_->takeKeyboardFocus() : setKeyWindow(true);
}

bool Window::makeFirstResponder(Responder* responder) {
    if (responder == firstResponder_) return true;
    if (firstResponder_ && !firstResponder_->resignFirstResponder()) return false;
    if (firstResponder_) firstResponder_->firstResponderOf_ = nullptr;
    firstResponder_ = nullptr;
    if (!responder) return true;
    if (!responder->becomeFirstResponder()) return false;
    firstResponder_ = responder;
    responder->firstResponderOf_ = this;
    return true;
}

void Window::forgetResponder(const Responder& responder) {
    if (firstResponder_ != &responder) return;
    firstResponder_->firstResponderOf_ = nullptr;
    firstResponder_ = nullptr;
}

void Window::forget(const View& view) {
    const auto leaves = [&view](const View* candidate) { return candidate && candidate->isDescendantOf(view); };
    const bool isPressLost = leaves(capture_);
    if (isPressLost) capture_ = nullptr;
    if (const auto* first = dynamic_cast<View*>(firstResponder_); leaves(first)) forgetResponder(*first);
    std::erase_if(hovered_, leaves);
    if (walks_) walks_->forget(view);
    updateCursor();
    if (isPressLost) pressDidEnd();
}

View* Window::hitTest(Point pointInWindow) const {
    return content_ ? content_->hitTest(pointInWindow) : nullptr;
}

const View* Window::toolTippedViewAt(Point pointInWindow) const {
    const View* view = hitTest(pointInWindow);
    while (view && view->toolTip().empty())
        view = view->superview();
    return view;
}

bool Window::sendEvent(const Event& event) {
    switch (event.type) {
    case EventType::mouseDown:
    case EventType::rightMouseDown:
        return mousePressed(event);
    case EventType::mouseUp:
        return mouseReleased(event);
    case EventType::mouseDragged:
        if (!capture_) return false;
        capturedPointer_ = event.locationInWindow;
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
    capturedPointer_ = event.locationInWindow;
    if (under->acceptsFirstResponder()) makeFirstResponder(under);
    if (!alive.expired() && capture_ == under) under->mouseDown(event);
    return true;
}

bool Window::mouseReleased(const Event& event) {
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
    event.locationInWindow = capturedPointer_;
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
