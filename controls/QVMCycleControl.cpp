#include "controls/QVMCycleControl.h"

#include "controls/DimmedText.h"
#include "controls/TextFitting.h"
#include "platform/layer/TextMetrics.h"
#include "theme/QVMUITheme.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double kValueSize = 16, kUnitSize = 12, kIconSize = 24; // points
constexpr double kTextPadding = 8;                                // between a capsule's end and its text
constexpr double kPulseSeconds = 0.09;
// Marks inside the capsule stand stacked at its right end, those beside it one at each end of the control, clear of the
// focus border.
constexpr double kInsideSpan = 20, kInsideCenter = 11.5, kBesideSpan = 18, kBesideCenter = 6;
constexpr double kChevronLength = 10, kChevronDepth = 4.75, kChevronGap = 5, kChevronWidth = 1.75;
constexpr float kChevronAlpha = 0.75f;
constexpr double kInaccurateOpacity = 0.7;

BasicAnimation pulseOf(const char* keyPath, double from, double to) {
    BasicAnimation pulse;
    pulse.keyPath = keyPath;
    pulse.fromValue = from;
    pulse.toValue = to;
    pulse.duration = kPulseSeconds;
    pulse.timing = TimingFunction::easeOut;
    pulse.autoreverses = true;
    return pulse;
}

// An open arrow head whose tip points from the box's middle towards `direction`, in a box of `size`.
Path chevron(Size size, Point direction) {
    const Point middle{size.width / 2, size.height / 2};
    const Point along = direction * (kChevronDepth / 2);
    const Point across = Point{direction.y, direction.x} * (kChevronLength / 2);
    Path path;
    return path.moveTo(middle - along - across).lineTo(middle + along).lineTo(middle - along + across);
}

std::shared_ptr<ShapeLayer> makeCrementer() {
    auto layer = std::make_shared<ShapeLayer>(YAxis::up);
    layer->setFillColor(Color::clear());
    layer->setLineWidth(kChevronWidth);
    layer->setLineStyle(LineCap::round, LineJoin::round);
    return layer;
}

Rect square(Point center, double side) {
    return {center.x - side / 2, center.y - side / 2, side, side};
}

} // namespace

BasicAnimation QVMCycleControl::standardPulse() {
    return pulseOf("transform.scale", 1.0, 1.2);
}

BasicAnimation QVMCycleControl::standardColorPulse() {
    return pulseOf("opacity", 0.3, 1.0);
}

QVMCycleControl::QVMCycleControl(const Rect& frame, const QVMParameter& parameter)
    : BoxControl(frame, parameter, BoxShape::capsule), value_(std::make_shared<TextLayer>(YAxis::up)),
      inc_(makeCrementer()), dec_(makeCrementer()) {
    value_->setAlignment(TextAlignment::center, TextPlacement::middle);
    addPart(hover(), "hover");
    addPart(value_, "value");
    addPart(inc_, "inc");
    addPart(dec_, "dec");
    QVMCycleControl::redraw();
}

std::string QVMCycleControl::textForValue(float value) const {
    std::string text;
    parameter().valueString(&text, nullptr, value);
    return text;
}

Font QVMCycleControl::appropriateFontForValueSizeIconSize(const std::string& value, double size, double icon) const {
    return QVMUITheme::appropriateFontForValueSizeIconSize(value, size, icon);
}

double QVMCycleControl::iconSize() const {
    return kIconSize;
}

Rect QVMCycleControl::backgroundFrame() const {
    return bounds().insetBy(crementers_ == Crementers::beside ? kBesideSpan : 0, 0);
}

double QVMCycleControl::widestValueText() const {
    double widest = 0;
    for (const std::string& name : parameter().stringValues) {
        const AttributedString text(name, QVMUITheme::appropriateFontForValueSizeIconSize(name, kValueSize, iconSize()),
                                    Color{});
        widest = std::max(widest, TextMetrics::current().width(text));
    }
    if (!parameter().stringValues.empty()) return widest;
    for (const float value : {parameter().minValue, parameter().maxValue})
        widest = std::max(widest, TextMetrics::current().width(attributedTextForValue(value, Color{})));
    return widest;
}

AttributedString QVMCycleControl::attributedTextForValue(float value, Color color) const {
    const std::string text = textForValue(value);
    std::optional<std::string> suffix;
    parameter().valueString(nullptr, &suffix, value);
    const double icon = std::floor(iconSize());
    AttributedString shown(text, appropriateFontForValueSizeIconSize(text, kValueSize, icon), color);
    if (suffix && !suffix->empty()) shown.append({" " + *suffix, QVMUITheme::unitFontOfSize(kUnitSize), color});
    return shown;
}

Rect QVMCycleControl::rectAvailableForTextDisplay() const {
    Rect available = bgFrame().insetBy(kTextPadding, 0);
    if (crementers_ == Crementers::inside) available.width = bgFrame().width - kTextPadding - kInsideSpan;
    return available;
}

void QVMCycleControl::layOut() {
    maxWidth_ = widestValueText();
    crementers_ = Crementers::none;
    if (includeCrementers()) {
        const bool roomBeside = bounds().width - 2 * kBesideSpan >= maxWidth_ + 2 * kTextPadding;
        crementers_ = roomBeside ? Crementers::beside : Crementers::inside;
    }
    placeBox(backgroundFrame());
    layOutCrementers();
}

void QVMCycleControl::layOutCrementers() {
    inc_->setHidden(crementers_ == Crementers::none);
    dec_->setHidden(crementers_ == Crementers::none);
    const bool beside = crementers_ == Crementers::beside;
    const double apart = (kChevronGap + kChevronDepth) / 2;
    const Rect box = bgFrame();
    const Point stack{box.maxX() - kInsideCenter, box.midY()};
    const Point up = beside ? Point{bounds().width - kBesideCenter, box.midY()} : stack + Point{0, apart};
    const Point down = beside ? Point{kBesideCenter, box.midY()} : stack - Point{0, apart};
    const Point direction = beside ? Point{1, 0} : Point{0, 1};
    const double side = kChevronLength;
    inc_->setFrame(square(up, side));
    dec_->setFrame(square(down, side));
    inc_->setPath(chevron({side, side}, direction));
    dec_->setPath(chevron({side, side}, direction * -1));
}

QVMCycleControl::Look QVMCycleControl::lookForValue(float) const {
    const QVMUITheme& theme = QVMUITheme::theme();
    if (parameter().controlStyle == 1) {
        const Color fill = contrasted(QVMCGColor(parameter().color), theme.palette.onAccent);
        return {theme.palette.onAccent, fill, Color::clear()};
    }
    return {theme.textColor, theme.palette.boxFill, theme.palette.boxBorder};
}

void QVMCycleControl::redraw() {
    layOut();
    const Look look = lookForValue(floatValue());
    typesetAttributedStringValueBackgroundColor(attributedTextForValue(floatValue(), look.text), look);

    const bool beside = crementers_ == Crementers::beside;
    const Color mark = beside ? QVMUITheme::theme().symbolColor : look.text.withAlpha(look.text.a * kChevronAlpha);
    for (const auto& crementer : {inc_, dec_})
        crementer->setStrokeColor(mark);
    value_->setOpacity(inaccurate_ ? kInaccurateOpacity : 1);
    showHover();
}

void QVMCycleControl::typesetAttributedStringValueBackgroundColor(const AttributedString& text, const Look& look) {
    const bool plainText = isAscii(text.string());
    const Rect available = rectAvailableForTextDisplay();
    value_->setFrame(plainText ? available : bgFrame());
    const bool staysLegible = dimmed() && plainText;
    value_->setLeastOpacity(staysLegible ? dimmedValueOpacity : 0);
    value_->setString(shrunkenToWidth(staysLegible ? inDimmedInk(text) : text, available.width));
    bg()->look().setBackgroundColor(look.background);
    bg()->look().setBorder(look.border.a > 0 ? 1 : 0, look.border);
    bg()->setOpacity(look.backgroundOpacity);
}

void QVMCycleControl::setFloatValue(float value) {
    QVMFloatControl::setFloatValue(value);
    redraw();
}

void QVMCycleControl::setDimmed(bool dimmed) {
    const bool changes = dimmed != this->dimmed();
    BoxControl::setDimmed(dimmed);
    if (changes) redraw(); // it is told after every value that comes in
}

void QVMCycleControl::setInaccurate(bool inaccurate) {
    inaccurate_ = inaccurate;
    redraw();
}

void QVMCycleControl::cycleValueForward(bool forward) {
    setFloatValue(valueFollowing(forward));
    reportInterfaceInitiatedValueChange();
    reportDiscreteInteraction();
    pulse(forward);
}

void QVMCycleControl::handleMouseDownWithEventGranularities(const QVMEvent&, const QVMGranularities&) {
    if (incrementOnMouseUp()) cycleValueForward(true);
}

bool QVMCycleControl::incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) {
    if (!cycleArrows()) return QVMFloatControl::incrementWithArrowGranularity(arrow, granularity);
    cycleValueForward(arrow == Key::right || arrow == Key::up);
    return true;
}

void QVMCycleControl::pulse(bool forward) {
    value_->animations().add(standardPulse(), "pulse");
    bg()->animations().add(standardPulse(), "pulse");
    if (includeCrementers()) (forward ? inc_ : dec_)->animations().add(standardColorPulse(), "pulse");
}

} // namespace QVM_NAMESPACE
