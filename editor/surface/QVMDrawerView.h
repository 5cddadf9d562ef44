// A view that covers part of the editor while it is open and lets nothing through to what it covers.
//
// Whoever owns it decides, as its delegate, whether it may open or close, and may run a transition of its own then: a
// fade that is already under way on the drawer's layer is left to end where it is. While it is closed a drawer takes no
// clicks, wherever it stands. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"

namespace QVM_NAMESPACE {

class QVMConfig;
class QVMDrawerView;

// What a drawer asks of and tells its owner.
class QVMDrawerViewDelegate {
public:
    virtual ~QVMDrawerViewDelegate() = default;
    // Whether the drawer may become visible, or hidden; asked before it changes. Allowed unless overridden.
    virtual bool canDrawerViewToggleVisibilityToVisibility(QVMDrawerView&, bool /*visible*/) { return true; }
    // The miniature behind the drawer was clicked, which every press on the drawer's background counts as.
    virtual void drawerDidTapMiniature(QVMDrawerView&, std::int32_t /*code*/) {}
};

class QVMDrawerView : public ThemedView {
public:
    // Closed and out of the way at first. `frame` is where it stands when it is open; the configuration outlives it.
    QVMDrawerView(const Rect& frame, const QVMConfig& config);

    const QVMConfig& config() const { return config_; }
    // Borrowed; null for none, which allows everything.
    QVMDrawerViewDelegate* delegate() const { return delegate_; }
    void setDelegate(QVMDrawerViewDelegate* delegate) { delegate_ = delegate; }

    // Opens it if it is closed and closes it if it is open, when the delegate allows that.
    void toggleVisibility();
    bool visible() const { return visible_; }
    // Applies a visibility, fading when `animatesVisibility` is set; the delegate is not asked.
    virtual void setVisibility(bool visible);
    bool animatesVisibility() const { return animatesVisibility_; }
    void setAnimatesVisibility(bool animates) { animatesVisibility_ = animates; }

    // To where it stands when it is open, and out of the visible area.
    void shiftIntoView();
    void shiftOutOfView();
    // The frame it had at creation, in the superview's coordinates.
    Rect originalFrame() const { return originalFrame_; }

    // The theme's pattern over its colour for drawers.
    bool drawsPatternedBackground() const { return drawsPatternedBackground_; }
    void setDrawsPatternedBackground(bool draws);

    // Puts this drawer's ground on a layer: its own, or one behind what it lets be seen.
    void drawGround(Layer& layer) const;

    void themeUpdated() override;
    View* hitTest(Point pointInSuperview) override;
    // Consumed: none of these reaches what is underneath.
    void mouseDown(const Event&) override {}
    void mouseUp(const Event&) override {}
    void mouseDragged(const Event&) override {}
    void scrollWheel(const Event&) override {}
    bool acceptsFirstMouse() const override { return true; }

    // Named by the contract and not used in this product: the control that opens it, borrowed; null for none.
    View* toggle() const { return toggle_; }
    void setToggle(View* toggle) { toggle_ = toggle; }

private:
    void fade(bool visible);

    const QVMConfig& config_;
    QVMDrawerViewDelegate* delegate_ = nullptr;
    View* toggle_ = nullptr;
    Rect originalFrame_;
    bool visible_ = false;
    bool animatesVisibility_ = true;
    bool drawsPatternedBackground_ = false;
};

} // namespace QVM_NAMESPACE
