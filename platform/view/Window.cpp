#include "platform/view/Window.h"

#include "platform/runloop/NotificationCenter.h"
#include "platform/view/WindowWalk.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

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

void Window::contentSizeDidChange() {
    if (host_) host_->contentSizeDidChange(content_->bounds().size());
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
    if (isKeyWindow()) return;
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
    if (leaves(keyboardView_)) keyboardView_ = nullptr;
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

} // namespace QVM_NAMESPACE
