// A tree of boxes that receive events and own layers. A view's frame is in its superview's coordinates, its bounds in
// its own (origin 0, 0). y grows downwards unless the view is made with YAxis::up (the value controls are). A window's
// content may be shown larger or smaller than it is laid out: its frame is what the host sees then, its bounds what
// layers and events are in.
//
// The parent owns its subviews. Every view has a backing layer that follows its frame; subviews' layers are its
// sublayers, above those that the view added itself. Main thread only.
#pragma once

#include "platform/layer/Layer.h"
#include "platform/view/Responder.h"
#include "platform/view/ViewCoordinates.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class Menu;
class Window;

enum class Cursor : unsigned char {
    arrow,
    pointingHand,
    resizeUpDown,
    resizeLeftRight,
    resizeDiagonal, // from the top left to the bottom right
    openHand,
    closedHand,
    none
};
enum class Order : unsigned char { above, below };

class View : public Responder {
public:
    explicit View(const Rect& frame = {}, YAxis axis = YAxis::down);
    ~View() override;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    Rect frame() const { return frame_; }
    void setFrame(const Rect& frame) { setFrame(frame, frame.size()); }
    // With bounds of another size, for a window's content alone. Both glide inside an animated transaction and call
    // frameDidChange().
    void setFrame(const Rect& frame, Size bounds);
    Rect bounds() const { return {0, 0, boundsSize_.width, boundsSize_.height}; }
    YAxis yAxis() const { return layer_->yAxis(); }

    bool isHidden() const { return layer_->isHidden(); }
    void setHidden(bool hidden) { layer_->setHidden(hidden); }
    double alpha() const { return layer_->opacity(); }
    void setAlpha(double alpha) { layer_->setOpacity(alpha); }
    // As setAlpha, gliding over `seconds`: the platform's implicit animator.
    void animateAlpha(double alpha, double seconds = 0.25);
    const std::shared_ptr<Layer>& layer() const { return layer_; }

    // Tree. The subview is owned from then on; the reference stays valid until it is removed or its parent dies.
    template <class T>
    T& addSubview(std::unique_ptr<T> view) {
        T& added = *view;
        insertSubview(std::move(view), subviews_.size());
        return added;
    }
    // Above or below `sibling`; with none, above or below all.
    template <class T>
    T& addSubview(std::unique_ptr<T> view, Order order, const View* sibling = nullptr) {
        T& added = *view;
        insertSubview(std::move(view), indexFor(order, sibling));
        return added;
    }
    // Hands the view back to the caller; dropping the result deletes it. Null when there is no superview.
    std::unique_ptr<View> removeFromSuperview();
    View* superview() const { return superview_; }
    Window* window() const { return window_; }
    const std::vector<std::unique_ptr<View>>& subviews() const { return subviews_; }
    bool isDescendantOf(const View& ancestor) const;

    ViewCoordinates coordinates() const { return ViewCoordinates(*this); }

    // The deepest visible view under a point given in the superview's coordinates, or null. Frames count, not what is
    // presented in mid-animation; what reaches beyond its superview's frame is not hit there.
    virtual View* hitTest(Point pointInSuperview);
    // For window systems that swallow the click which makes a window key. This one does not: every click counts.
    virtual bool acceptsFirstMouse() const { return false; }

    // The context menu for a right click (or Control-click) here; asked up the view tree until one answers.
    virtual std::unique_ptr<Menu> menuForEvent(const Event& event);

    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string text) { toolTip_ = std::move(text); }
    Cursor cursor() const { return cursor_; }
    void setCursor(Cursor cursor);

    // Hooks.
    virtual void viewWillMoveToWindow(Window*) {}
    virtual void viewDidMoveToWindow() {}
    // The window's device pixels a point changed; layers have their contents scale already.
    virtual void viewDidChangeBackingProperties() {}
    virtual void frameDidChange() {}

    Responder* nextResponder() const override;

private:
    friend class Window;
    void insertSubview(std::unique_ptr<View> view, std::size_t index);
    std::size_t indexFor(Order order, const View* sibling) const;
    std::size_t layerIndexFor(std::size_t subviewIndex) const;
    void moveToWindow(Window* window);
    void setWindow(Window* window);
    void pushContentsScale(double scale);

    std::shared_ptr<Layer> layer_;
    Rect frame_;
    Size boundsSize_;
    View* superview_ = nullptr;
    Window* window_ = nullptr;
    std::vector<std::unique_ptr<View>> subviews_;
    std::string toolTip_;
    Cursor cursor_ = Cursor::arrow;
};

} // namespace QVM_NAMESPACE
