#include "editor/surface/QVMPresetControl.h"

#include "description/ValueMapping.h"
#include "editor/surface/BorderRect.h"
#include "editor/surface/ElidedText.h"
#include "editor/surface/PresetNameText.h"
#include "editor/surface/ToolTips.h"
#include "platform/layer/TextMetrics.h"
#include "resources/IconGlyphs.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* nameFace = "HelveticaNeue";
constexpr const char* approximateFace = "HelveticaNeue-Italic";
constexpr double nameSize = 15, arrowSize = 18; // points
constexpr Rect arrowBox = {0, 8, 28, 14};       // at the left edge, mirrored at the right one
constexpr double hitGrowth = 20;                // above and below an arrow
constexpr double lightInsetX = 2, lightHeight = 22;
constexpr double nameInsetX = 36, nameInsetY = 6; // the focus border around it stays clear of the bar's edges
constexpr double dividerWidth = 1, dividerInset = 6;
constexpr double pulseScale = 1.6;
constexpr double leastShrinking = 0.8; // of a name that is too long, before it is cut

} // namespace

QVMPresetControl::QVMPresetControl(const Rect& frame, const QVMParameter& presets)
    : QVMCycleControl(frame, presets), arrowLight_(std::make_shared<Layer>(YAxis::up)) {
    arrowLight_->setName("arrowLight");
    arrowLight_->setOpacity(0);
    layer()->tree().add(arrowLight_);
    dec_ = addCrementerWithGlyphEdge(icons::chevronLeft, PresetEdge::left);
    inc_ = addCrementerWithGlyphEdge(icons::chevronRight, PresetEdge::right);
    dividers_ = {addDividerWithX(0), addDividerWithX(bounds().width - dividerWidth)};
    QVMPresetControl::themeUpdated();
}

std::shared_ptr<TextLayer> QVMPresetControl::addCrementerWithGlyphEdge(std::string_view glyph, PresetEdge edge) {
    auto arrow = std::make_shared<TextLayer>(YAxis::up);
    arrow->setName(edge == PresetEdge::right ? "incArrow" : "decArrow");
    arrow->setAlignment(TextAlignment::center, TextPlacement::middle);
    arrow->setFrame(hitFrameOf(edge).insetBy(0, hitGrowth));
    arrow->setString({std::string(glyph), QVMUITheme::iconFontOfSize(arrowSize), Color{}});
    layer()->tree().add(arrow);
    return arrow;
}

std::shared_ptr<Layer> QVMPresetControl::addDividerWithX(double x) {
    auto divider = std::make_shared<Layer>(YAxis::up);
    divider->setName("divider");
    const Rect behind = {x, 0, bounds().width - x, bounds().height};
    divider->setFrame(
        QVMBorderRectWithBorderSpec(behind, {.edge = QVMEdge::left, .width = dividerWidth, .inset = dividerInset}));
    layer()->tree().add(divider);
    return divider;
}

Rect QVMPresetControl::hitFrameOf(PresetEdge edge) const {
    Rect box = arrowBox;
    if (edge == PresetEdge::right) box.x = bounds().width - box.x - box.width;
    return box.insetBy(0, -hitGrowth);
}

// The base's reset would load a preset over everything.
void QVMPresetControl::handleMouseDownEvent(const QVMEvent& event) {
    if (isDisabled()) return;
    const bool forward = hitFrameOf(PresetEdge::right).contains(event.point);
    if (forward || hitFrameOf(PresetEdge::left).contains(event.point)) return cycleValueForward(forward);
    if (delegate()) delegate()->floatControlDidTapMeaninglessly(*this);
}

void QVMPresetControl::setFloatValue(float value) {
    if (value != floatValue()) QVMCycleControl::setFloatValue(value);
}

void QVMPresetControl::pulse(bool forward) {
    BasicAnimation pulse = standardPulse();
    pulse.toValue = pulseScale;
    (forward ? inc_ : dec_)->animations().add(std::move(pulse), "pulse");
}

std::string QVMPresetControl::textForValue(float value) const {
    const std::int32_t index = IntegerPart(value);
    const std::vector<std::string>& names = parameter().stringValues;
    if (index >= 0 && static_cast<std::size_t>(index) < names.size()) return names[static_cast<std::size_t>(index)];
    if (!presets_ || index < 0) return unknownName;
    const std::string name = presets_->nameOf(static_cast<std::uint32_t>(index));
    const Font font = appropriateFontForValueSizeIconSize(name, nameSize, nameSize);
    const double room = rectAvailableForTextDisplay().width;
    const bool fitsWhenShrunken = isAscii(name) && widthOf(name, font) <= room / leastShrinking; // others never shrink
    return fitsWhenShrunken ? name : elided(name, font, room);
}

void QVMPresetControl::setPresets(PresetList& presets) {
    presets_ = &presets;
    redraw();
}

float QVMPresetControl::valueFollowing(bool forward) {
    const std::int32_t index = IntegerPart(floatValue());
    if (!presets_ || index < 0) return QVMCycleControl::valueFollowing(forward);
    return static_cast<float>(presets_->following(static_cast<std::uint32_t>(index), forward));
}

Font QVMPresetControl::appropriateFontForValueSizeIconSize(const std::string&, double, double) const {
    return QVMUITheme::safeFontWithNameSize(inaccurate() ? approximateFace : nameFace, nameSize);
}

AttributedString QVMPresetControl::attributedTextForValue(float value, Color color) const {
    const std::string name = textForValue(value);
    return presetNameText(name, appropriateFontForValueSizeIconSize(name, nameSize, 0), color);
}

QVMCycleControl::Look QVMPresetControl::lookForValue(float) const {
    return {QVMUITheme::theme().textColor, QVMCGClearColor(), QVMCGClearColor()};
}

Rect QVMPresetControl::backgroundFrame() const {
    return bounds().insetBy(nameInsetX, nameInsetY);
}

std::optional<Color> QVMPresetControl::surface() const {
    return QVMUITheme::theme().palette.sidePanel;
}

void QVMPresetControl::themeUpdated() {
    redraw();
    styleArrows();
}

void QVMPresetControl::styleArrows() {
    const QVMUITheme& theme = QVMUITheme::theme();
    for (const auto& arrow : {inc_, dec_})
        arrow->setString({arrow->string().string(), QVMUITheme::iconFontOfSize(arrowSize), theme.symbolColor});
    for (const auto& divider : dividers_)
        divider->look().setBackgroundColor(theme.interiorBorderColor);
    arrowLight_->look().setBackgroundColor(theme.palette.hover);
}

void QVMPresetControl::mouseMoved(const Event& event) {
    const Point at = coordinates().fromWindow(event.locationInWindow);
    for (const PresetEdge edge : {PresetEdge::left, PresetEdge::right}) {
        const Rect box = hitFrameOf(edge);
        if (!box.contains(at)) continue;
        arrowLight_->setFrame(
            {box.x + lightInsetX, (bounds().height - lightHeight) / 2, box.width - 2 * lightInsetX, lightHeight});
        arrowLight_->look().setCornerRadius(radii::capsule(arrowLight_->bounds()));
        arrowLight_->setOpacity(1);
        setToolTip(toolTipOf(edge == PresetEdge::left ? Button::previousPreset : Button::nextPreset));
        return QVMCycleControl::mouseExited(event); // the pointer is not over the name
    }
    arrowLight_->setOpacity(0);
    setToolTip({}); // over the name the bar's is shown
    QVMCycleControl::mouseEntered(event);
}

void QVMPresetControl::mouseExited(const Event& event) {
    arrowLight_->setOpacity(0);
    QVMCycleControl::mouseExited(event);
}

} // namespace QVM_NAMESPACE
