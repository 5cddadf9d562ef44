#include "controls/QVMSymbolButton.h"

#include "controls/QVMCycleControl.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double kLightInset = 2; // points
constexpr float kLightAlpha = 0.4f, kHoverAlpha = 0.1f;
constexpr double kDisabledOpacity = 0.2;

// The alpha under a disabled glyph with which both are seen in one.
float alphaUnder(float seen) {
    return std::clamp(1 - (1 - seen) / (1 - static_cast<float>(kDisabledOpacity)), 0.0f, 1.0f);
}

std::shared_ptr<Layer> makeLight(const char* name) {
    auto light = std::make_shared<Layer>();
    light->setName(name);
    light->setOpacity(0);
    return light;
}

} // namespace

QVMSymbolButton::QVMSymbolButton(const Rect& frame, std::string glyph, double size, Color color)
    : Control(frame), color_(color), size_(size), hoverLight_(makeLight("hoverLight")),
      spotlight_(makeLight("spotlight")), warningLight_(makeLight("warningLight")),
      glyph_(std::make_shared<TextLayer>()) {
    font_ = defaultFont();
    glyph_->setName("glyph");
    glyph_->setAlignment(TextAlignment::center, TextPlacement::middle);
    layer()->tree().add(hoverLight_);
    layer()->tree().add(spotlight_);
    layer()->tree().add(warningLight_);
    layer()->tree().add(glyph_);
    layOut();
    symbol_ = std::move(glyph);
    glyph_->setString(QVMSymbolButton::attributedStringForGlyphColor(symbol_, color_));
    styleLights();
}

void QVMSymbolButton::styleLights() {
    hoverLight_->look().setBackgroundColor(color_.withAlpha(kHoverAlpha));
    const Color glow = QVMUITheme::theme().palette.glow.withAlpha(kLightAlpha);
    spotlight_->look().setBackgroundColor(glow);
    warningLight_->look().setBackgroundColor(glow);
}

Font QVMSymbolButton::defaultFont() const {
    return QVMUITheme::iconFontOfSize(size_);
}

void QVMSymbolButton::setFont(Font font) {
    font_ = std::move(font);
    showGlyph();
}

void QVMSymbolButton::resetGlyphColor(std::string glyph, Color color) {
    symbol_ = std::move(glyph);
    color_ = color;
    styleLights();
    showGlyph();
    layOut();
}

AttributedString QVMSymbolButton::attributedStringForGlyphColor(const std::string& glyph,
                                                                std::optional<Color> color) const {
    return {glyph, font_, color.value_or(color_)};
}

void QVMSymbolButton::showGlyph() {
    glyph_->setString(attributedStringForGlyphColor(symbol_, shownColor()));
    if (restingGlyph_)
        restingGlyph_->setString(attributedStringForGlyphColor(symbol_, color_.withAlpha(alphaUnder(restingAlpha_))));
}

void QVMSymbolButton::setRestingAlpha(float alpha) {
    restingAlpha_ = alpha;
    if (!restingGlyph_) {
        restingGlyph_ = std::make_shared<TextLayer>();
        restingGlyph_->setName("restingGlyph");
        restingGlyph_->setAlignment(TextAlignment::center, TextPlacement::middle);
        layer()->tree().insert(restingGlyph_, layer()->tree().sublayers().size() - 1); // below the glyph
        restingGlyph_->setOpacity(buttonEnabled_ ? 0 : 1);
    }
    showGlyph();
    layOut();
}

Color QVMSymbolButton::shownColor() const {
    return selected_ || warning_ ? contrasted(color_, QVMUITheme::theme().palette.litGround) : color_;
}

void QVMSymbolButton::layOut() {
    const Rect light = bounds().insetBy(kLightInset, kLightInset);
    for (const auto& each : {hoverLight_, spotlight_, warningLight_}) {
        each->setFrame(light);
        each->look().setCornerRadius(radii::capsule(light)); // as every switch that is on
    }
    glyph_->setFrame(bounds());
    if (restingGlyph_) restingGlyph_->setFrame(bounds());
}

void QVMSymbolButton::frameDidChange() {
    layOut();
}

void QVMSymbolButton::setButtonEnabled(bool enabled) {
    buttonEnabled_ = enabled;
    glyph_->setOpacity(enabled ? 1 : kDisabledOpacity);
    if (restingGlyph_) restingGlyph_->setOpacity(enabled ? 0 : 1);
    showHover();
}

void QVMSymbolButton::setSelected(bool selected) {
    selected_ = selected;
    spotlight_->setOpacity(selected ? 1 : 0);
    showGlyph();
}

void QVMSymbolButton::setWarning(bool warning) {
    const bool changed = warning != warning_;
    warning_ = warning;
    warningLight_->setOpacity(warning ? 1 : 0);
    showGlyph();
    if (!changed) return;
    BasicAnimation pulse = QVMCycleControl::standardPulse();
    pulse.duration = 0.33;
    pulse.repeatCount = 6;
    warningLight_->animations().add(std::move(pulse), "pulse");
}

void QVMSymbolButton::flash() {
    BasicAnimation flash;
    flash.keyPath = "opacity";
    flash.fromValue = 0.0;
    flash.toValue = 1.0;
    flash.duration = 0.125;
    flash.timing = TimingFunction::easeOut;
    flash.autoreverses = true;
    spotlight_->animations().remove("flash");
    spotlight_->animations().add(std::move(flash), "flash");
}

void QVMSymbolButton::mouseDown(const Event& event) {
    if (!buttonEnabled_) return;
    glyph_->animations().add(QVMCycleControl::standardPulse(), "pulse");
    sendAction();
    Control::mouseDown(event); // on to the next responder
}

void QVMSymbolButton::mouseEntered(const Event&) {
    hovered_ = true;
    showHover();
}

void QVMSymbolButton::mouseExited(const Event&) {
    hovered_ = false;
    showHover();
}

void QVMSymbolButton::showHover() {
    hoverLight_->setOpacity(hovered_ && buttonEnabled_ ? 1 : 0);
}

} // namespace QVM_NAMESPACE
