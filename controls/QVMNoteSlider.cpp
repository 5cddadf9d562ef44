#include "controls/QVMNoteSlider.h"

#include "description/ValueMapping.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kIconSize = 22;             // points
constexpr double kMarginX = 5, kMarginY = 3; // between background and symbols
constexpr double kSelectionInset = 1;        // within a symbol's cell

} // namespace

QVMNoteSlider::QVMNoteSlider(const Rect& frame, const QVMParameter& parameter)
    : SweptControl(frame, parameter, BoxShape::rounded), selection_(std::make_shared<Layer>(YAxis::up)) {
    addPart(hover(), "hover");
    addPart(selection_, "selection");
    for (std::size_t i = 0; i < parameter.cueSymbols.size(); ++i) {
        auto symbol = std::make_shared<TextLayer>(YAxis::up);
        symbol->setAlignment(TextAlignment::center, TextPlacement::middle);
        addPart(symbol, "symbol");
        symbols_.push_back(std::move(symbol));
    }
    QVMNoteSlider::redraw();
}

Rect QVMNoteSlider::availableRect() const {
    return bounds().insetBy(kMarginX, kMarginY);
}

void QVMNoteSlider::layOutSymbols() {
    const Rect room = availableRect();
    const auto count = static_cast<double>(symbols_.size());
    // Spread over the room; where there is too little of it the cells overlap rather than stand outside.
    const double pitch = count > 1 ? (room.width - cell.width) / (count - 1) : 0;
    const double first = count > 1 ? room.x : room.midX() - cell.width / 2;
    for (std::size_t i = 0; i < symbols_.size(); ++i)
        symbols_[i]->setFrame({std::round(first + pitch * static_cast<double>(i)),
                               std::round(room.midY() - cell.height / 2), cell.width, cell.height});
}

void QVMNoteSlider::redraw() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const QVMPalette& palette = theme.palette;
    layOutSymbols();
    drawPlainBox();
    bg()->look().setBackgroundColor(theme.backgroundColor); // a box's fill would be too near to the glyphs
    hover()->look().setCornerRadius(radii::box);
    const Color accent = contrasted(QVMCGColor(parameter().color), palette.onAccent);
    selection_->look().setBackgroundColor(accent);
    selection_->look().setBorder(1, accent.mixedWith(palette.boxFill, 0.25f));
    selection_->look().setCornerRadius(radii::box);
    showSelection(Animate::no);
}

void QVMNoteSlider::positionSelectionWithReferenceFrame(const Rect& frame) {
    selection_->setFrame(frame.insetBy(kSelectionInset, kSelectionInset));
}

int QVMNoteSlider::selectedIndex() const {
    const int index = IntegerPart(std::round(floatValue()));
    return index >= 0 && index < static_cast<int>(symbols_.size()) ? index : -1;
}

void QVMNoteSlider::showSelection(Animate animate) {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    const Font font = QVMUITheme::iconFontOfSize(kIconSize);
    const int selected = selectedIndex();
    for (int i = 0; i < static_cast<int>(symbols_.size()); ++i) {
        const auto at = static_cast<std::size_t>(i);
        symbols_[at]->setString(
            {parameter().cueSymbols[at], font, i == selected ? palette.onAccent : QVMUITheme::theme().symbolColor});
    }
    const Transaction transaction = moveChoice(*selection_, selected >= 0, animate);
    if (selected >= 0) positionSelectionWithReferenceFrame(symbols_[static_cast<std::size_t>(selected)]->frame());
    showHover();
}

void QVMNoteSlider::setFloatValue(float value) {
    const int was = selectedIndex();
    QVMFloatControl::setFloatValue(value);
    if (selectedIndex() != was) showSelection(Animate::yes);
}

int QVMNoteSlider::indexAt(Point point) const {
    const auto found =
        std::ranges::find_if(symbols_, [&](const auto& symbol) { return symbol->frame().contains(point); });
    return found == symbols_.end() ? -1 : static_cast<int>(found - symbols_.begin());
}

void QVMNoteSlider::selectIndexFromEvent(const QVMEvent& event) {
    const int index = indexAt(event.point);
    if (index >= 0) takeIndex(index);
}

float QVMNoteSlider::incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const {
    const float step = QVMFloatControl::incrementedValueForArrowGranularity(arrow, granularity);
    if (granularity != QVMGranularityCoarse) return step;
    const float next = floatValue() + step;
    return next > parameter().maxValue || next < parameter().minValue ? 0 : step;
}

std::optional<Rect> QVMNoteSlider::hoverFrame(int index) const {
    if (index == selectedIndex()) return std::nullopt;
    return symbols_[static_cast<std::size_t>(index)]->frame().insetBy(kSelectionInset, kSelectionInset);
}

} // namespace QVM_NAMESPACE
