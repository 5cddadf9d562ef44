#include "controls/QVMGridControl.h"

#include "controls/TextFitting.h"
#include "description/ValueMapping.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kMarginY = 4, kTextStrip = 24; // points
constexpr double kPaddingX = 6, kGap = 3;       // around the field and between squares
constexpr double kValueSize = 14, kIconSize = 18, kUnitSize = 11;
constexpr double kSquareRounding = 0.18, kMostRounding = radii::mark; // of the side; points
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
    : SweptControl(frame, parameter, BoxShape::rounded), current_(std::make_shared<Layer>(YAxis::up)),
      field_(std::make_shared<ShapeLayer>(YAxis::up)), strValue_(std::make_shared<TextLayer>(YAxis::up)) {
    strValue_->setAlignment(centeredStyle(), TextPlacement::middle);
    addPart(field_, "squares");
    addPart(current_, "current");
    addPart(hover(), "hover");
    addPart(strValue_, "strValue");
    QVMGridControl::redraw();
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
    drawPlainBox();
    hover()->look().setCornerRadius(squareRadius(squares_.front().width));
    current_->look().setCornerRadius(squareRadius(squares_.front().width));
    field_->setFillColor(QVMUITheme::theme().backgroundColor);
    field_->setStrokeColor(palette.boxBorder);
    current_->look().setBackgroundColor(contrasted(QVMCGColor(parameter().color), palette.onAccent));
    strValue_->setFrame(strValueRect().insetBy(kPaddingX, 0));
    showValue(Animate::no);
    showHover();
}

void QVMGridControl::showValue(Animate animate) {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    std::string text;
    std::optional<std::string> suffix;
    parameter().valueString(&text, &suffix, floatValue());
    const Font font = QVMUITheme::appropriateFontForValueSizeIconSize(text, kValueSize, kIconSize);
    AttributedString shown(text, font, QVMUITheme::theme().textColor);
    if (suffix && !suffix->empty()) shown.append({" " + *suffix, QVMUITheme::unitFontOfSize(kUnitSize), palette.unit});
    strValue_->setString(shrunkenToWidth(std::move(shown), strValue_->bounds().width));

    const int index = IntegerPart(floatValue());
    const bool exists = index >= 0 && index < static_cast<int>(squares_.size());
    const Transaction transaction = moveChoice(*current_, exists, animate);
    if (exists) current_->setFrame(squares_[static_cast<std::size_t>(index)]);
}

void QVMGridControl::setFloatValue(float value) {
    const bool moves = IntegerPart(value) != IntegerPart(floatValue());
    QVMFloatControl::setFloatValue(value);
    if (moves) showValue(Animate::yes);
}

int QVMGridControl::indexAt(Point point) const {
    const auto found = std::ranges::find_if(squares_, [&](const Rect& square) { return square.contains(point); });
    return found == squares_.end() ? -1 : static_cast<int>(found - squares_.begin());
}

int QVMGridControl::indexValueForEvent(const QVMEvent& event) const {
    const int index = indexAt(event.point);
    return index < 0 ? IntegerPart(floatValue()) : index;
}

float QVMGridControl::incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const {
    const auto row = static_cast<float>(square_);
    if (arrow == Key::down) return std::min(floatValue() + row, parameter().maxValue) - floatValue();
    if (arrow == Key::up) return std::max(floatValue() - row, 0.0f) - floatValue();
    return QVMFloatControl::incrementedValueForArrowGranularity(arrow, granularity);
}

} // namespace QVM_NAMESPACE
