#include "controls/QVMGridControl.h"

#include "controls/QVMFocusBorder.h"
#include "controls/TextFitting.h"
#include "description/ValueMapping.h"
#include "platform/Transaction.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kMarginY = 4, kTextStrip = 24; // points
constexpr double kPaddingX = 6, kGap = 3;       // around the field and between squares
constexpr double kCornerRadius = 10, kFocusRadius = 13;
constexpr double kValueSize = 14, kIconSize = 18, kUnitSize = 11;
constexpr double kSquareRounding = 0.18, kMostRounding = 6; // of the side; points
constexpr double kGlideSeconds = 0.1, kDisabledOpacity = 0.35;
constexpr int kMostSquares = 1024;

double squareRadius(double side) {
    return std::min(side * kSquareRounding, kMostRounding);
}

// The side of `count` squares in rows of `columns`; whole points while there are any.
double sideFor(int count, int columns, Size room) {
    const int rows = (count + columns - 1) / columns;
    const double side =
        std::min((room.width - kGap * (columns - 1)) / columns, (room.height - kGap * (rows - 1)) / rows);
    return side >= 1 ? std::floor(side) : std::max(side, 0.0);
}

// As many columns as make the squares largest; of equally good ones the fewest, which leave the fewest gaps.
int columnsFor(int count, Size room) {
    int best = 1;
    for (int columns = 2; columns <= count; ++columns)
        if (sideFor(count, columns, room) > sideFor(count, best, room)) best = columns;
    return best;
}

} // namespace

QVMGridControl::QVMGridControl(const Rect& frame, const QVMParameter& parameter)
    : QVMFloatControl(frame, parameter), bg_(std::make_shared<Layer>(YAxis::up)),
      hover_(std::make_shared<Layer>(YAxis::up)), current_(std::make_shared<Layer>(YAxis::up)),
      field_(std::make_shared<ShapeLayer>(YAxis::up)), strValue_(std::make_shared<TextLayer>(YAxis::up)) {
    bg_->setName("bg");
    field_->setName("squares");
    hover_->setName("hover");
    hover_->setOpacity(0);
    current_->setName("current");
    strValue_->setName("strValue");
    strValue_->setAlignment(centeredStyle(), TextPlacement::middle);
    std::size_t index = 0;
    for (const std::shared_ptr<Layer>& sublayer :
         {bg_, std::shared_ptr<Layer>(field_), current_, hover_, std::shared_ptr<Layer>(strValue_)})
        layer()->insertSublayer(sublayer, index++); // below the focus border
    redraw();
}

Rect QVMGridControl::calculatedSquares() const {
    Rect field = bounds().insetBy(0, kMarginY);
    const double strip = std::min(kTextStrip, std::max(field.height, 0.0));
    field.y += strip;
    field.height = std::max(field.height - strip, 0.0);
    return field;
}

Rect QVMGridControl::strValueRect() const {
    const Rect inside = bounds().insetBy(0, kMarginY);
    return {inside.x, inside.y, inside.width, std::min(kTextStrip, std::max(inside.height, 0.0))};
}

void QVMGridControl::addSquares() {
    const Rect field = calculatedSquares().insetBy(kPaddingX, 0);
    const int count = std::clamp(IntegerPart(parameter().maxValue) + 1, 1, kMostSquares);
    square_ = columnsFor(count, field.size());
    const double side = sideFor(count, square_, field.size()), pitch = side + kGap;
    const int rows = (count + square_ - 1) / square_;
    const double left = std::round(field.midX() - (pitch * square_ - kGap) / 2);
    const double top = std::round(field.midY() + (pitch * rows - kGap) / 2);
    squares_.clear();
    Path path;
    for (int i = 0; i < count; ++i) {
        const int row = i / square_, column = i % square_;
        squares_.push_back({left + pitch * column, top - pitch * row - side, side, side});
        path.addRoundedRect(squares_.back(), squareRadius(side));
    }
    field_->setFrame(bounds());
    field_->setPath(std::move(path));
}

void QVMGridControl::redraw() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    addSquares();
    bg_->setFrame(bounds());
    bg_->setCornerRadius(std::min(kCornerRadius, bounds().height / 2));
    bg_->setBackgroundColor(palette.boxFill);
    bg_->setBorder(1, palette.boxBorder);
    field_->setFillColor(palette.panel);
    field_->setStrokeColor(palette.boxBorder);
    hover_->setBackgroundColor(palette.hover);
    const Color accent = colorFrom(parameter().color);
    current_->setBackgroundColor(contrasted(accent, palette.onAccent));
    highlight()->setStrokeNSColor(contrasted(accent, palette.panel));
    strValue_->setFrame(strValueRect().insetBy(kPaddingX, 0));
    for (const std::shared_ptr<Layer>& part :
         {bg_, std::shared_ptr<Layer>(field_), current_, std::shared_ptr<Layer>(strValue_)})
        part->setOpacity(isDisabled() ? kDisabledOpacity : 1);
    showValue(Animate::no);
    showHover();
}

void QVMGridControl::showValue(Animate animate) {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    std::string text;
    std::optional<std::string> suffix;
    parameter().valueString(&text, &suffix, floatValue());
    const Font font = QVMUITheme::appropriateFontForValueSizeIconSize(text, kValueSize, kIconSize);
    AttributedString shown(text, font, palette.value);
    if (suffix && !suffix->empty()) shown.append({" " + *suffix, QVMUITheme::unitFontOfSize(kUnitSize), palette.unit});
    strValue_->setString(shrunkenToWidth(std::move(shown), strValue_->bounds().width));

    const int index = IntegerPart(floatValue());
    const bool exists = index >= 0 && index < static_cast<int>(squares_.size());
    const bool glides = animate == Animate::yes && exists && !current_->isHidden();
    current_->setHidden(!exists);
    if (!exists) return;
    const Rect& taken = squares_[static_cast<std::size_t>(index)];
    const Transaction transaction = glides ? Transaction::animated(kGlideSeconds) : Transaction::disablingActions();
    current_->setFrame(taken);
    current_->setCornerRadius(squareRadius(taken.width));
}

void QVMGridControl::setFloatValue(float value) {
    const bool moves = IntegerPart(value) != IntegerPart(floatValue());
    QVMFloatControl::setFloatValue(value);
    if (moves) showValue(Animate::yes);
}

void QVMGridControl::setHighlit(bool highlit) {
    animateHighlightToFramePositionRoundingInset(bounds(), {}, kFocusRadius, true);
    QVMFloatControl::setHighlit(highlit);
}

void QVMGridControl::setDimmed(bool dimmed) {
    QVMFloatControl::setDimmed(dimmed);
    showHover();
}

void QVMGridControl::setPreventInteraction(bool prevent) {
    QVMFloatControl::setPreventInteraction(prevent);
    redraw();
}

int QVMGridControl::indexAt(Point point) const {
    const auto found = std::ranges::find_if(squares_, [&](const Rect& square) { return square.contains(point); });
    return found == squares_.end() ? -1 : static_cast<int>(found - squares_.begin());
}

int QVMGridControl::indexValueForEvent(const QVMEvent& event) const {
    const int index = indexAt(event.point);
    return index < 0 ? IntegerPart(floatValue()) : index;
}

void QVMGridControl::takeValueFromEvent(const QVMEvent& event) {
    setFloatValue(static_cast<float>(indexValueForEvent(event)));
    reportInterfaceInitiatedValueChange();
}

void QVMGridControl::handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    takeValueFromEvent(event);
}

void QVMGridControl::handleMouseDraggedWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    takeValueFromEvent(event);
}

float QVMGridControl::incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const {
    const auto row = static_cast<float>(square_);
    if (arrow == Key::down) return std::min(floatValue() + row, parameter().maxValue) - floatValue();
    if (arrow == Key::up) return std::max(floatValue() - row, 0.0f) - floatValue();
    return QVMFloatControl::incrementedValueForArrowGranularity(arrow, granularity);
}

void QVMGridControl::mouseMoved(const Event& event) {
    hoveredIndex_ = indexAt(convertFromWindow(event.locationInWindow));
    showHover();
}

void QVMGridControl::mouseExited(const Event&) {
    hoveredIndex_ = -1;
    showHover();
}

void QVMGridControl::showHover() {
    const bool shows =
        hoveredIndex_ >= 0 && hoveredIndex_ < static_cast<int>(squares_.size()) && !isDisabled() && !dimmed();
    hover_->setOpacity(shows ? 1 : 0);
    if (!shows) return;
    const Rect& square = squares_[static_cast<std::size_t>(hoveredIndex_)];
    hover_->setFrame(square);
    hover_->setCornerRadius(squareRadius(square.width));
}

} // namespace QVM_NAMESPACE
