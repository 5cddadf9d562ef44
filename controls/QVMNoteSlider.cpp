#include "controls/QVMNoteSlider.h"

#include "controls/QVMFocusBorder.h"
#include "description/ValueMapping.h"
#include "platform/Transaction.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kIconSize = 22;             // points
constexpr double kMarginX = 5, kMarginY = 3; // between background and symbols
constexpr double kSelectionInset = 1;        // within a symbol's cell
constexpr double kSelectionRadius = 8, kCornerRadius = 10, kFocusRadius = 13;
constexpr double kGlideSeconds = 0.1, kDisabledOpacity = 0.35;

} // namespace

QVMNoteSlider::QVMNoteSlider(const Rect& frame, const QVMParameter& parameter)
    : QVMFloatControl(frame, parameter), bg_(std::make_shared<Layer>(YAxis::up)),
      hover_(std::make_shared<Layer>(YAxis::up)), selection_(std::make_shared<Layer>(YAxis::up)) {
    bg_->setName("bg");
    hover_->setName("hover");
    hover_->setOpacity(0);
    selection_->setName("selection");
    std::size_t index = 0;
    for (const std::shared_ptr<Layer>& sublayer : {bg_, hover_, selection_})
        layer()->insertSublayer(sublayer, index++); // below the focus border
    for (std::size_t i = 0; i < parameter.cueSymbols.size(); ++i) {
        auto symbol = std::make_shared<TextLayer>(YAxis::up);
        symbol->setName("symbol");
        symbol->setAlignment(TextAlignment::center, TextPlacement::middle);
        layer()->insertSublayer(symbol, index++);
        symbols_.push_back(std::move(symbol));
    }
    redraw();
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
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layOutSymbols();
    bg_->setFrame(bounds());
    bg_->setCornerRadius(std::min(kCornerRadius, bounds().height / 2));
    bg_->setBackgroundColor(palette.boxFill);
    bg_->setBorder(1, palette.boxBorder);
    hover_->setBackgroundColor(palette.hover);
    hover_->setCornerRadius(kSelectionRadius);
    const Color accent = contrasted(colorFrom(parameter().color), palette.onAccent);
    selection_->setBackgroundColor(accent);
    selection_->setBorder(1, accent.mixedWith(palette.boxFill, 0.25f));
    selection_->setCornerRadius(kSelectionRadius);
    highlight()->setStrokeNSColor(contrasted(colorFrom(parameter().color), palette.panel));
    const double opacity = isDisabled() ? kDisabledOpacity : 1;
    for (const std::shared_ptr<TextLayer>& symbol : symbols_)
        symbol->setOpacity(opacity);
    bg_->setOpacity(opacity);
    selection_->setOpacity(opacity);
    showSelection(Animate::no);
    showHover();
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
        symbols_[at]->setString({parameter().cueSymbols[at], font, i == selected ? palette.onAccent : palette.value});
    }
    const bool glides = animate == Animate::yes && selected >= 0 && !selection_->isHidden();
    selection_->setHidden(selected < 0);
    if (selected < 0) return;
    const Transaction transaction = glides ? Transaction::animated(kGlideSeconds) : Transaction::disablingActions();
    positionSelectionWithReferenceFrame(symbols_[static_cast<std::size_t>(selected)]->frame());
}

void QVMNoteSlider::setFloatValue(float value) {
    const int was = selectedIndex();
    QVMFloatControl::setFloatValue(value);
    if (selectedIndex() != was) showSelection(Animate::yes);
}

void QVMNoteSlider::setHighlit(bool highlit) {
    animateHighlightToFramePositionRoundingInset(bounds(), {}, kFocusRadius, true);
    QVMFloatControl::setHighlit(highlit);
}

void QVMNoteSlider::setDimmed(bool dimmed) {
    QVMFloatControl::setDimmed(dimmed);
    showHover();
}

void QVMNoteSlider::setPreventInteraction(bool prevent) {
    QVMFloatControl::setPreventInteraction(prevent);
    redraw();
}

int QVMNoteSlider::indexAt(Point point) const {
    const auto found =
        std::ranges::find_if(symbols_, [&](const auto& symbol) { return symbol->frame().contains(point); });
    return found == symbols_.end() ? -1 : static_cast<int>(found - symbols_.begin());
}

void QVMNoteSlider::selectIndexFromEvent(const QVMEvent& event) {
    const int index = indexAt(event.point);
    if (index < 0) return;
    setFloatValue(static_cast<float>(index));
    reportInterfaceInitiatedValueChange();
}

void QVMNoteSlider::handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    selectIndexFromEvent(event);
}

void QVMNoteSlider::handleMouseDraggedWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    selectIndexFromEvent(event);
}

float QVMNoteSlider::incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const {
    const float step = QVMFloatControl::incrementedValueForArrowGranularity(arrow, granularity);
    if (granularity != QVMGranularityCoarse) return step;
    const float next = floatValue() + step;
    return next > parameter().maxValue || next < parameter().minValue ? 0 : step;
}

void QVMNoteSlider::mouseMoved(const Event& event) {
    hoveredIndex_ = indexAt(convertFromWindow(event.locationInWindow));
    showHover();
}

void QVMNoteSlider::mouseExited(const Event&) {
    hoveredIndex_ = -1;
    showHover();
}

void QVMNoteSlider::showHover() {
    const bool shows = hoveredIndex_ >= 0 && hoveredIndex_ != selectedIndex() && !isDisabled() && !dimmed();
    hover_->setOpacity(shows ? 1 : 0);
    if (shows)
        hover_->setFrame(
            symbols_[static_cast<std::size_t>(hoveredIndex_)]->frame().insetBy(kSelectionInset, kSelectionInset));
}

} // namespace QVM_NAMESPACE
