#include "platform/view/View.h"

#include "platform/layer/Transaction.h"
#include "platform/view/Menu.h"
#include "platform/view/Window.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

void setContentsScaleOfTree(Layer& layer, double scale) {
    layer.look().setContentsScale(scale);
    for (const auto& sublayer : layer.tree().sublayers())
        setContentsScaleOfTree(*sublayer, scale);
}

} // namespace

View::View(const Rect& frame, YAxis axis)
    : layer_(std::make_shared<Layer>(axis)), frame_(frame), boundsSize_(frame.size()) {
    layer_->setFrame(frame);
}

View::~View() {
    if (window_) window_->forget(*this);
    layer_->tree().removeFromSuperlayer();
    for (const auto& subview : subviews_)
        subview->superview_ = nullptr;
}

void View::setFrame(const Rect& frame, Size bounds) {
    // Even when it is there already: a glide may be under way that this call ends.
    layer_->setFrame({frame.x, frame.y, bounds.width, bounds.height});
    if (frame == frame_ && bounds == boundsSize_) return;
    const bool isResized = frame.size() != frame_.size() || bounds != boundsSize_;
    frame_ = frame;
    boundsSize_ = bounds;
    frameDidChange();
    if (isResized && window_ && window_->contentView() == this) window_->contentSizeDidChange();
}

void View::animateAlpha(double alpha, double seconds) {
    const auto gliding = Transaction::animated(seconds);
    setAlpha(alpha);
}

std::unique_ptr<View> View::removeFromSuperview() {
    if (!superview_) return nullptr;
    if (window_) window_->forget(*this);
    auto& siblings = superview_->subviews_;
    const auto found =
        std::find_if(siblings.begin(), siblings.end(), [this](const auto& v) { return v.get() == this; });
    std::unique_ptr<View> self = std::move(*found);
    siblings.erase(found);
    superview_ = nullptr;
    layer_->tree().removeFromSuperlayer();
    moveToWindow(nullptr);
    return self;
}

bool View::isDescendantOf(const View& ancestor) const {
    const View* view = this;
    while (view && view != &ancestor)
        view = view->superview_;
    return view != nullptr;
}

void View::insertSubview(std::unique_ptr<View> view, std::size_t index) {
    View& added = *view;
    const std::size_t layerIndex = layerIndexFor(index);
    subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(index), std::move(view));
    added.superview_ = this;
    layer_->tree().insert(added.layer_, layerIndex);
    added.moveToWindow(window_);
}

std::size_t View::indexFor(Order order, const View* sibling) const {
    const auto found =
        std::find_if(subviews_.begin(), subviews_.end(), [sibling](const auto& v) { return v.get() == sibling; });
    if (found == subviews_.end()) return order == Order::above ? subviews_.size() : 0;
    return static_cast<std::size_t>(found - subviews_.begin()) + (order == Order::above ? 1 : 0);
}

// Right below the layer of the subview that it goes below.
std::size_t View::layerIndexFor(std::size_t subviewIndex) const {
    const auto& layers = layer_->tree().sublayers();
    if (subviewIndex >= subviews_.size()) return layers.size();
    const auto found = std::find(layers.begin(), layers.end(), subviews_[subviewIndex]->layer_);
    return static_cast<std::size_t>(found - layers.begin());
}

void View::moveToWindow(Window* window) {
    if (window == window_) return;
    if (window) pushContentsScale(window->backingScaleFactor());
    setWindow(window);
}

void View::setWindow(Window* window) {
    if (window == window_) return; // added by a hook while this view was on its way
    viewWillMoveToWindow(window);
    window_ = window;
    for (std::size_t i = 0; i < subviews_.size(); ++i)
        subviews_[i]->setWindow(window);
    viewDidMoveToWindow();
}

void View::pushContentsScale(double scale) {
    setContentsScaleOfTree(*layer_, scale);
}

View* View::hitTest(Point pointInSuperview) {
    if (isHidden() || !coordinates().hasInFrame(pointInSuperview)) return nullptr;
    const Point p = coordinates().fromSuperview(pointInSuperview);
    for (auto subview = subviews_.rbegin(); subview != subviews_.rend(); ++subview) {
        if (View* hit = (*subview)->hitTest(p)) return hit;
    }
    return this;
}

std::unique_ptr<Menu> View::menuForEvent(const Event&) {
    return nullptr;
}

void View::setCursor(Cursor cursor) {
    cursor_ = cursor;
    if (window_) window_->updateCursor();
}

Responder* View::nextResponder() const {
    Responder* given = Responder::nextResponder();
    return given ? given : superview_;
}

} // namespace QVM_NAMESPACE
