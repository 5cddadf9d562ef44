#include "controls/QVMGlowingBooleanControl.h"

#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kDiscMargin = 10; // points between the disc and the control's nearer edges
constexpr double kOffDiscOpacity = 0.07;
constexpr double kShadowRadius = 3;
constexpr Point kShadowOffset = {0, 1};
constexpr float kShadowAlpha = 0.15f;

} // namespace

QVMGlowingBooleanControl::QVMGlowingBooleanControl(const Rect& frame, const QVMParameter& parameter)
    : QVMBooleanControl(frame, parameter) {
    QVMGlowingBooleanControl::redraw();
}

void QVMGlowingBooleanControl::redraw() {
    const Color ink = QVMUITheme::theme().palette.shade.withAlpha(kShadowAlpha);
    value()->look().setShadow(QVMBlur(ink, kShadowRadius, kShadowOffset));
    QVMBooleanControl::redraw();
}

Rect QVMGlowingBooleanControl::backgroundFrame() const {
    const double side = std::max(std::min(bounds().width, bounds().height) - 2 * kDiscMargin, 0.0);
    return {std::round(bounds().midX() - side / 2), std::round(bounds().midY() - side / 2), side, side};
}

QVMCycleControl::Look QVMGlowingBooleanControl::lookForValue(float value) const {
    Look look = QVMBooleanControl::lookForValue(value);
    look.border = Color::clear();
    look.backgroundOpacity = std::min(look.backgroundOpacity, value >= 0.5f ? 1 : kOffDiscOpacity);
    return look;
}

} // namespace QVM_NAMESPACE
