#include "editor/surface/ScaleGrip.h"

#include "editor/surface/EditorScale.h"
#include "editor/surface/ToolTips.h"
#include "platform/layer/ShapeLayer.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double strokeWidth = 1.5;                            // points
constexpr double signEnd = 4, longStroke = 8, shortStroke = 4; // points, from the sign's own corner
constexpr double nearDistance = 56;                            // points from the corner, along each axis
constexpr float groundAlpha = 0.35f;
constexpr double nearAlpha = 0.75, fadeSeconds = 0.15;
constexpr double followSeconds = 1.0 / 60; // between sizes, at least

// Two strokes across the corner.
Path strokes() {
    const double end = ScaleGrip::size.width - signEnd;
    Path path;
    for (const double length : {longStroke, shortStroke})
        path.moveTo({end, end - length}).lineTo({end - length, end});
    return path;
}

} // namespace

ScaleGrip::ScaleGrip(EditorScale& scale)
    : Control({0, 0, size.width, size.height}), scale_(scale), sign_(std::make_shared<ShapeLayer>()) {
    layer()->setName("scaleGrip");
    layer()->look().setCornerRadius(radii::mark);
    layer()->setOpacity(0);
    sign_->setName("sign");
    sign_->setFrame(bounds());
    sign_->setFillColor(QVMCGClearColor());
    sign_->setLineWidth(strokeWidth);
    sign_->setLineStyle(LineCap::round, LineJoin::round);
    sign_->setPath(strokes());
    layer()->tree().add(sign_);
    setCursor(Cursor::resizeDiagonal);
    setToolTip(toolTipOf(Button::sizeGrip));
    style();
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { style(); });
}

void ScaleGrip::style() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layer()->look().setBackgroundColor(palette.shade.withAlpha(groundAlpha));
    sign_->setStrokeColor(palette.onAccent);
}

void ScaleGrip::placeIn(Size layout) {
    layout_ = layout;
    setFrame({layout.width - size.width - inset, layout.height - size.height - inset, size.width, size.height});
}

void ScaleGrip::pointerMoved(Point at) {
    isNear_ = at.x > layout_.width - nearDistance && at.y > layout_.height - nearDistance;
    showAsNeeded();
}

void ScaleGrip::pointerLeft() {
    isNear_ = false;
    showAsNeeded();
}

Point ScaleGrip::inFrame(const Event& event) const {
    const double shown = scale_.shown();
    return {event.locationInWindow.x * shown, event.locationInWindow.y * shown};
}

void ScaleGrip::mouseDown(const Event& event) {
    if (event.clickCount == 2) return scale_.choose(1);
    const Point at = inFrame(event);
    const double shown = scale_.shown();
    hold_ = {layout_.width * shown - at.x, layout_.height * shown - at.y};
    isHeld_ = true;
    hasMoved_ = false;
    showAsNeeded();
}

// The editor is drawn anew for each size: one a refresh is enough.
void ScaleGrip::mouseDragged(const Event& event) {
    if (!isHeld_) return;
    const Point at = inFrame(event);
    corner_ = {at.x + hold_.x, at.y + hold_.y};
    hasMoved_ = true;
    const double wait = lastFollowed_ + followSeconds - RunLoop::main().now();
    if (wait <= 0) return follow();
    if (!std::exchange(isDue_, true)) followCall_.schedule(wait, [this] { follow(); });
}

// The point of the diagonal that is nearest to the pointer, in whole points of width.
void ScaleGrip::follow() {
    followCall_.cancel();
    isDue_ = false;
    lastFollowed_ = RunLoop::main().now();
    const double along = (corner_.x * layout_.width + corner_.y * layout_.height) /
                         (layout_.width * layout_.width + layout_.height * layout_.height);
    scale_.show(static_cast<float>(std::round(along * layout_.width) / layout_.width));
}

void ScaleGrip::mouseUp(const Event& event) {
    if (hasMoved_) mouseDragged(event);
    end();
}

void ScaleGrip::mouseCancelled(const Event&) {
    end();
}

void ScaleGrip::end() {
    if (!isHeld_) return;
    isHeld_ = false;
    if (isDue_) follow();
    if (hasMoved_) scale_.keep();
    showAsNeeded();
}

void ScaleGrip::mouseEntered(const Event&) {
    isHovered_ = true;
    showAsNeeded();
}

void ScaleGrip::mouseExited(const Event&) {
    isHovered_ = false;
    showAsNeeded();
}

void ScaleGrip::showAsNeeded() {
    const double alpha = isHovered_ || isHeld_ ? 1 : isNear_ ? nearAlpha : 0;
    if (alpha != layer()->opacity()) animateAlpha(alpha, fadeSeconds);
}

} // namespace QVM_NAMESPACE
