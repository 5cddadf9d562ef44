#include "editor/surface/CornerSign.h"

#include "platform/layer/ShapeLayer.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double strokeWidth = 1.5; // points
constexpr float groundAlpha = 0.35f;
constexpr double nearAlpha = 0.75, fadeSeconds = 0.15;

} // namespace

CornerSign::CornerSign(const char* name, Size size, Cursor cursor)
    : Control({0, 0, size.width, size.height}), sign_(std::make_shared<ShapeLayer>()) {
    layer()->setName(name);
    layer()->look().setCornerRadius(radii::mark);
    layer()->setOpacity(0);
    sign_->setName("sign");
    sign_->setFrame(bounds());
    sign_->setFillColor(QVMCGClearColor());
    sign_->setLineWidth(strokeWidth);
    sign_->setLineStyle(LineCap::round, LineJoin::round);
    layer()->tree().add(sign_);
    setCursor(cursor);
    style();
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { style(); });
}

void CornerSign::style() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layer()->look().setBackgroundColor(palette.shade.withAlpha(groundAlpha));
    sign_->setStrokeColor(palette.onAccent);
}

void CornerSign::setSign(Path strokes) {
    sign_->setPath(std::move(strokes));
}

void CornerSign::showNear(bool near) {
    isNear_ = near;
    showAsNeeded();
}

void CornerSign::showHeld(bool held) {
    isHeld_ = held;
    showAsNeeded();
}

void CornerSign::mouseEntered(const Event&) {
    isHovered_ = true;
    showAsNeeded();
}

void CornerSign::mouseExited(const Event&) {
    isHovered_ = false;
    showAsNeeded();
}

void CornerSign::showAsNeeded() {
    const double alpha = isHovered_ || isHeld_ ? 1 : isNear_ ? nearAlpha : 0;
    if (alpha != layer()->opacity()) animateAlpha(alpha, fadeSeconds);
}

} // namespace QVM_NAMESPACE
