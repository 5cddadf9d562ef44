#include "editor/surface/FrameButton.h"

#include "editor/surface/ToolTips.h"
#include "platform/layer/ShapeLayer.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double strokeWidth = 1.5, reach = 4.5, arm = 3.5; // points
constexpr float groundAlpha = 0.35f;
constexpr double nearAlpha = 0.75, fadeSeconds = 0.15;

// Two arrows along a diagonal, with their heads at the ends of the square or at its middle.
Path arrows(FrameButton::Destination destination) {
    const bool outwards = destination == FrameButton::Destination::wholeEditor;
    const double near = FrameButton::size.width / 2 + 1, far = FrameButton::size.width - reach;
    const Point head =
        outwards ? Point{far, FrameButton::size.height - far} : Point{near, FrameButton::size.height - near};
    const Point tail =
        outwards ? Point{near, FrameButton::size.height - near} : Point{far, FrameButton::size.height - far};
    const double back = outwards ? -arm : arm;
    const auto opposite = [](Point p) { return Point{FrameButton::size.width - p.x, FrameButton::size.height - p.y}; };
    Path path;
    const auto addArrow = [&path](Point from, Point to, double side) {
        path.moveTo({to.x + side, to.y}).lineTo(to).lineTo({to.x, to.y - side}).moveTo(from).lineTo(to);
    };
    addArrow(tail, head, back);
    addArrow(opposite(tail), opposite(head), -back);
    return path;
}

} // namespace

FrameButton::FrameButton() : Control({0, 0, size.width, size.height}), sign_(std::make_shared<ShapeLayer>()) {
    layer()->setName("frameButton");
    layer()->look().setCornerRadius(radii::mark);
    layer()->setOpacity(0);
    sign_->setName("sign");
    sign_->setFrame(bounds());
    sign_->setFillColor(QVMCGClearColor());
    sign_->setLineWidth(strokeWidth);
    sign_->setLineStyle(LineCap::round, LineJoin::round);
    layer()->tree().add(sign_);
    setCursor(Cursor::pointingHand);
    setDestination(Destination::compactForm);
    style();
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { style(); });
}

void FrameButton::style() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layer()->look().setBackgroundColor(palette.shade.withAlpha(groundAlpha));
    sign_->setStrokeColor(palette.onAccent);
}

void FrameButton::setDestination(Destination destination) {
    destination_ = destination;
    sign_->setPath(arrows(destination));
    setToolTip(toolTipOf(destination == Destination::compactForm ? Button::compactForm : Button::wholeEditor));
}

void FrameButton::setPointerNear(bool near) {
    isPointerNear_ = near;
    showAsNeeded();
}

void FrameButton::mouseDown(const Event& event) {
    sendAction();
    Control::mouseDown(event);
}

void FrameButton::mouseEntered(const Event&) {
    isHovered_ = true;
    showAsNeeded();
}

void FrameButton::mouseExited(const Event&) {
    isHovered_ = false;
    showAsNeeded();
}

void FrameButton::showAsNeeded() {
    const double alpha = isHovered_ ? 1 : isPointerNear_ ? nearAlpha : 0;
    if (alpha != layer()->opacity()) animateAlpha(alpha, fadeSeconds);
}

} // namespace QVM_NAMESPACE
