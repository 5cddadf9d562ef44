#include "editor/surface/QVMDrawerView.h"

#include "platform/layer/Transaction.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double fadeSeconds = 0.25;
constexpr double farAway = 2; // widths to the left of where it stands when it is open

} // namespace

QVMDrawerView::QVMDrawerView(const Rect& frame, const QVMConfig& config)
    : ThemedView(frame), config_(config), originalFrame_(frame) {
    layer()->setName("drawer");
    layer()->setMasksToBounds(true);
    layer()->setOpacity(0);
    shiftOutOfView();
    QVMDrawerView::themeUpdated();
}

void QVMDrawerView::toggleVisibility() {
    const bool visible = !visible_;
    if (delegate_ && !delegate_->canDrawerViewToggleVisibilityToVisibility(*this, visible)) return;
    visible_ = visible;
    setVisibility(visible);
}

void QVMDrawerView::setVisibility(bool visible) {
    visible_ = visible;
    if (visible) shiftIntoView();
    if (animatesVisibility_) {
        fade(visible);
    } else {
        const auto immediately = Transaction::disablingActions();
        layer()->setOpacity(visible ? 1 : 0);
    }
    if (!visible && !layer()->animations().isRunning("opacity")) shiftOutOfView();
}

void QVMDrawerView::fade(bool visible) {
    BasicAnimation fade;
    fade.keyPath = "opacity";
    fade.fromValue = layer()->presentation().opacity;
    fade.toValue = visible ? 1.0 : 0.0;
    fade.duration = fadeSeconds;
    fade.completion = [this](bool finished) {
        if (finished && !visible_) shiftOutOfView();
    };
    layer()->animations().remove(visible ? "fadeOut" : "fadeIn");
    layer()->setOpacity(visible ? 1 : 0);
    layer()->animations().add(std::move(fade), visible ? "fadeIn" : "fadeOut");
}

void QVMDrawerView::shiftIntoView() {
    const auto immediately = Transaction::disablingActions();
    setFrame(originalFrame_);
    setHidden(false);
}

void QVMDrawerView::shiftOutOfView() {
    const auto immediately = Transaction::disablingActions();
    setFrame({originalFrame_.x - farAway * originalFrame_.width, originalFrame_.y, originalFrame_.width,
              originalFrame_.height});
    setHidden(true);
}

void QVMDrawerView::setDrawsPatternedBackground(bool draws) {
    drawsPatternedBackground_ = draws;
    themeUpdated();
}

void QVMDrawerView::themeUpdated() {
    drawGround(*layer());
}

void QVMDrawerView::drawGround(Layer& layer) const {
    const QVMUITheme& theme = QVMUITheme::theme();
    layer.look().setBackgroundColor(theme.palette.drawer);
    layer.look().setBackgroundPattern(drawsPatternedBackground_ ? theme.backgroundPattern : nullptr);
}

View* QVMDrawerView::hitTest(Point pointInSuperview) {
    return visible_ ? ThemedView::hitTest(pointInSuperview) : nullptr;
}

} // namespace QVM_NAMESPACE
