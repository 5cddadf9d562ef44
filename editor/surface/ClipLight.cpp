#include "editor/surface/ClipLight.h"

#include "editor/surface/ToolTips.h"
#include "platform/layer/Transaction.h"
#include "viz/sketches/PBGLSketchAbstract.h"
#include "viz/sketches/QVMLevelMeter.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double ringWidth = 1; // points

} // namespace

ClipLight::ClipLight(Point center, const PBGLSketchAbstract* meter)
    : ThemedView(Rect{center.x - diameter / 2, center.y - diameter / 2, diameter, diameter}.insetBy(-margin, -margin)),
      light_(std::make_shared<Layer>()) {
    layer()->setName("clipLight");
    light_->setFrame(bounds().insetBy(margin, margin));
    light_->look().setCornerRadius(diameter / 2);
    layer()->tree().add(light_);
    setToolTip(toolTipOf(Button::clipLight));
    NotificationCenter& centre = NotificationCenter::defaultCenter();
    clipped_ = centre.observe(QVMLevelMeter::clippedNotification, meter, [this](const Notification&) { setLit(true); });
    reset_ = centre.observe(QVMLevelMeter::resetNotification, meter, [this](const Notification&) { setLit(false); });
    themeUpdated();
}

void ClipLight::setLit(bool lit) {
    end_.cancel();
    if (lit) end_.schedule(holdSeconds, [this] { setLit(false); });
    if (isLit_ == lit) return;
    isLit_ = lit;
    themeUpdated();
}

void ClipLight::themeUpdated() {
    const Transaction atOnce = Transaction::disablingActions();
    const QVMPalette& palette = QVMUITheme::theme().palette;
    light_->look().setBackgroundColor(isLit_ ? palette.meterClip : Color::clear());
    light_->look().setBorder(isLit_ ? 0 : ringWidth, palette.pillBorder);
}

} // namespace QVM_NAMESPACE
