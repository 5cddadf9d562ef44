#include "controls/QVMBooleanControl.h"

#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// Codes of `controlStyle`.
enum Style : std::int32_t { kTinted = 1, kWhiteOnClear = 2, kWhiteOnBox = 3, kOutlined = 4 };

constexpr float kOnThreshold = 0.5f;
constexpr float kTintedOnAlpha = 0.9f, kOffAlpha = 0.4f, kWhiteLeastAlpha = 0.5f, kPlainLeastAlpha = 0.35f;
// An icon that is off is faint: its outline, or the ground under a white one, makes sure that the switch is seen.
constexpr double kOffContrast = 3;
// A background of the icon's own colour is a wash, or the icon would vanish in it.
constexpr double kWashOpacity = 0.16;

Color textColor(std::int32_t style, float value, Color accent) {
    const bool on = value >= kOnThreshold;
    const Color onAccent = QVMUITheme::theme().palette.onAccent;
    const Color white = onAccent.withAlpha(std::min(std::max(value, kWhiteLeastAlpha), 1.0f));
    switch (style) {
    case kTinted:
        return on ? onAccent.withAlpha(kTintedOnAlpha)
                  : QVMUITheme::theme().foregroundGivenSpecified(accent).withAlpha(kOffAlpha);
    case kWhiteOnClear:
    case kWhiteOnBox:
        return white;
    case kOutlined:
        return on ? white : accent.withAlpha(kOffAlpha);
    default:
        return accent.withAlpha(std::min(std::max(value, kPlainLeastAlpha), 1.0f));
    }
}

} // namespace

QVMBooleanControl::QVMBooleanControl(const Rect& frame, const QVMParameter& parameter)
    : QVMCycleControl(frame, parameter) {
    redraw();
}

double QVMBooleanControl::iconSize() const {
    // In the scale's own precision: 1.3 of 20 points are 26.
    return std::floor(static_cast<float>(QVMCycleControl::iconSize()) * parameter().controlScale);
}

QVMCycleControl::Look QVMBooleanControl::lookForValue(float value) const {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    const std::int32_t style = parameter().controlStyle;
    const Color accent = QVMCGColor(parameter().color);
    const bool hasStyle = style >= kTinted && style <= kOutlined;

    Look look{textColor(style, value, accent), accent, Color::clear(), hasStyle ? 1 : kWashOpacity};
    if (value >= kOnThreshold) return look;

    const bool clearWhenOff = style == kWhiteOnClear || style == kOutlined;
    look.background = clearWhenOff ? Color::clear() : palette.boxFill;
    look.border = clearWhenOff ? palette.pillBorder : palette.boxBorder;
    look.backgroundOpacity = 1;
    if (style == kWhiteOnBox) look.background = groundForText(palette.boxFill, look.text, kOffContrast);
    if (const std::optional<Color> below = surface(); below && clearWhenOff)
        look.border = contrasted(palette.pillBorder, *below, kOffContrast);
    return look;
}

} // namespace QVM_NAMESPACE
