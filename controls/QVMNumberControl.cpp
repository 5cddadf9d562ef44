#include "controls/QVMNumberControl.h"

#include "controls/DimmedText.h"
#include "controls/FineDrag.h"
#include "controls/TextFitting.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kValueSize = 16, kUnitSize = 11; // points
constexpr double kTextPadding = 6;
// The mark: two open arrow heads back to back, in a square at the right of the box.
constexpr double kMarkSide = 12, kMarkInset = 5, kMarkReach = 5, kMarkArm = 2.5, kMarkWidth = 1.25;
// Heights of the two lines, and how far the number's middle stands above the box's when a unit is under it.
constexpr double kValueHeight = 22, kUnitHeight = 14, kValueRise = 6, kUnitDrop = 11;

// Where each granularity's points stand in the parameter's list.
constexpr std::array<std::size_t, 3> kPixelConstantIndex = {1, 0, 2};
constexpr double kDefaultPixels = 120; // for a parameter without such a list
constexpr double kTravel = 1.5;        // points of drag a point of range

Path arrowsBothWays(bool horizontal) {
    const Point middle{kMarkSide / 2, kMarkSide / 2};
    const Point along = horizontal ? Point{1, 0} : Point{0, 1}, across{along.y, along.x};
    Path path;
    for (const double way : {1.0, -1.0}) {
        const Point tip = middle + along * (way * kMarkReach), back = tip - along * (way * kMarkArm);
        path.moveTo(back - across * kMarkArm).lineTo(tip).lineTo(back + across * kMarkArm);
    }
    return path;
}

} // namespace

QVMNumberControl::QVMNumberControl(const Rect& frame, const QVMParameter& parameter)
    : BoxControl(frame, parameter, BoxShape::rounded), value_(std::make_shared<TextLayer>(YAxis::up)),
      unit_(std::make_shared<TextLayer>(YAxis::up)), dragMark_(std::make_shared<ShapeLayer>(YAxis::up)) {
    addPart(hover(), "hover");
    addPart(value_, "value");
    addPart(unit_, "unit");
    addPart(dragMark_, "dragMark");
    dragMark_->setFillColor(Color::clear());
    dragMark_->setLineWidth(kMarkWidth);
    dragMark_->setLineStyle(LineCap::round, LineJoin::round);
    dragMark_->setPath(arrowsBothWays(parameter.horizontal));
    setCursor(parameter.horizontal ? Cursor::resizeLeftRight : Cursor::resizeUpDown);
    QVMNumberControl::redraw();
}

QVMNumberControl::~QVMNumberControl() {
    popDragCursor();
}

double QVMNumberControl::rangeForGranularity(std::int32_t granularity) const {
    const std::vector<double>& pixels = parameter().numberOnlyPixelConstants;
    const auto code = static_cast<std::size_t>(granularity);
    const std::size_t index = kPixelConstantIndex[code < kPixelConstantIndex.size() ? code : 0];
    return index < pixels.size() ? pixels[index] : kDefaultPixels;
}

double QVMNumberControl::diffMultForGranularityFloatValueArbitraryPixelConstant(std::int32_t granularity, float value,
                                                                                double pixels) const {
    return granularity == QVMGranularityFine ? fineDragMultiplier(parameter(), value, pixels) : 1;
}

double QVMNumberControl::axisCoordinate(const QVMEvent& event) const {
    return parameter().horizontal ? event.point.x : event.point.y;
}

void QVMNumberControl::handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    startPoint_ = axisCoordinate(event);
    startValue_ = floatValue();
    diffWas_ = 0;
    startPercentage_ = parameter().percentageFromFloatValue(startValue_);
    popDragCursor();
    if (!window()) return;
    cursorWindow_ = window();
    cursorWindow_->pushCursor(cursor());
}

void QVMNumberControl::handleMouseDraggedWithEventGranularities(const QVMEvent& event,
                                                                const QVMGranularities& granularities) {
    const double moved = axisCoordinate(event) - startPoint_;
    const double pixels = rangeForGranularity(granularities.is);
    const double perPoint =
        diffMultForGranularityFloatValueArbitraryPixelConstant(granularities.is, floatValue(), pixels) /
        (kTravel * pixels);
    const auto way = static_cast<float>(perPoint * moved) + diffWas_;
    // Clamped as a fraction, not as points: whoever comes back from beyond an end moves at once.
    const float clamped = std::min(std::max(way, -startPercentage_), 1 - startPercentage_);

    setFloatValue(parameter().normalizedFloatValueFromPercent(startPercentage_ + clamped,
                                                              static_cast<std::uint32_t>(granularities.is)));
    reportInterfaceInitiatedValueChange();
    startPoint_ = axisCoordinate(event);
    diffWas_ = clamped;
}

void QVMNumberControl::popDragCursor() {
    if (cursorWindow_) cursorWindow_->popCursor();
    cursorWindow_ = nullptr;
}

void QVMNumberControl::viewWillMoveToWindow(Window* newWindow) {
    if (newWindow != cursorWindow_) popDragCursor();
}

void QVMNumberControl::layOut() {
    const Rect box = bounds();
    placeBox(box);
    dragMark_->setFrame({box.maxX() - kMarkInset - kMarkSide, box.midY() - kMarkSide / 2, kMarkSide, kMarkSide});
    const bool hasUnit = !unit_->string().isEmpty();
    const double middle = box.midY() + (hasUnit ? kValueRise : 0);
    value_->setFrame({kTextPadding, middle - kValueHeight / 2, box.width - 2 * kTextPadding, kValueHeight});
    unit_->setFrame(
        {kTextPadding, box.midY() - kUnitDrop - kUnitHeight / 2, box.width - 2 * kTextPadding, kUnitHeight});
}

void QVMNumberControl::redraw() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    std::string text;
    std::optional<std::string> suffix;
    parameter().valueString(&text, &suffix, floatValue());
    unit_->setString({suffix.value_or(""), QVMUITheme::unitFontOfSize(kUnitSize),
                      dimmed() ? QVMUITheme::theme().textColor : palette.unit});
    layOut();
    if (!displayingTransient_) {
        const Font font = QVMUITheme::appropriateFontForValueSizeIconSize(text, kValueSize, 0);
        value_->setString(shrunkenToWidth({text, font, QVMUITheme::theme().textColor}, value_->bounds().width));
    }
    dragMark_->setStrokeColor(palette.tick);
    bg()->look().setBackgroundColor(palette.boxFill);
    bg()->look().setBorder(1, displayingTransient_ ? QVMCGColor(parameter().color) : palette.boxBorder);
    showHover();
}

void QVMNumberControl::setFloatValue(float value) {
    QVMFloatControl::setFloatValue(value);
    redraw();
}

// The value is in the theme's ink as it is.
void QVMNumberControl::setDimmed(bool dimmed) {
    BoxControl::setDimmed(dimmed);
    redraw();
    for (TextLayer* text : {value_.get(), unit_.get()})
        text->setLeastOpacity(dimmed ? dimmedValueOpacity : 0);
}

double QVMNumberControl::transientStringPreferredFontSize() const {
    return kValueSize;
}

void QVMNumberControl::displayTransientBufferValue(const AttributedString& text) {
    AttributedString shown = text;
    for (TextRun& run : shown.runs)
        run.color = QVMUITheme::theme().textColor;
    value_->setString(shrunkenToWidth(std::move(shown), value_->bounds().width));
    redraw();
}

void QVMNumberControl::discardTransientBufferValue() {
    displayingTransient_ = false;
    redraw();
}

} // namespace QVM_NAMESPACE
