#include "controls/QVMToggleControl.h"

#include "controls/QVMFocusBorder.h"
#include "description/ValueMapping.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double kHoldSeconds = 0.2;  // after which a press on a switch chooses by position
constexpr double kSelectionInset = 2; // points between selection and background
constexpr int kMostSegments = 64;

} // namespace

QVMToggleControl::QVMToggleControl(const Rect& frame, const QVMParameter& parameter)
    : BoxControl(frame, parameter, BoxShape::capsule), selection_(std::make_shared<Layer>(YAxis::up)) {
    addPart(hover(), "hover");
    addPart(selection_, "selection");
    addSegments();
    QVMToggleControl::setFloatValue(floatValue());
    QVMToggleControl::redraw();
}

void QVMToggleControl::addSegments() {
    const int last = std::min(IntegerPart(parameter().maxValue), kMostSegments - 1);
    for (int value = 0; value <= last; ++value) {
        std::string text;
        parameter().valueString(&text, nullptr, static_cast<float>(value));
        values_.push_back(&addSubview(std::make_unique<QVMToggleSegment>(Rect{}, std::move(text))));
    }
    layer()->tree().add(highlight()); // around the segments too
}

void QVMToggleControl::redraw() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    const Rect box = bounds();
    drawPlainBox();
    selection_->look().setBackgroundColor(contrasted(QVMCGColor(parameter().color), palette.onAccent));

    // Whole points, so that no line falls between two pixels; the ends are the control's.
    rValuesOriginal_.clear();
    const double count = static_cast<double>(values_.size());
    for (std::size_t i = 0; i < values_.size(); ++i) {
        const auto at = [&](std::size_t index) { return std::round(box.width * static_cast<double>(index) / count); };
        rValuesOriginal_.push_back({at(i), 0, at(i + 1) - at(i), box.height});
        values_[i]->setFrame(rValuesOriginal_[i]);
        values_[i]->redraw();
    }
    showSelection(Animate::no);
}

Rect QVMToggleControl::insideOf(int index) const {
    return rValuesOriginal_[static_cast<std::size_t>(index)].insetBy(kSelectionInset, kSelectionInset);
}

std::optional<Rect> QVMToggleControl::hoverFrame(int index) const {
    if (index == selected_) return std::nullopt;
    return insideOf(index);
}

void QVMToggleControl::showSelection(Animate animate) {
    showHover();
    const Transaction transaction = moveChoice(*selection_, selected_ >= 0, animate);
    if (selected_ < 0) return;
    const Rect inside = insideOf(selected_);
    selection_->setFrame(inside);
    const double radius = std::max(std::min(inside.width, inside.height) / 2, 0.0);
    selection_->look().setCornerRadius(radius);
    hover()->look().setCornerRadius(radius);
}

void QVMToggleControl::setFloatValue(float value) {
    QVMFloatControl::setFloatValue(value);
    const float index = std::round(value);
    const int now = index >= 0 && index < static_cast<float>(values_.size()) ? static_cast<int>(index) : -1;
    const int was = std::exchange(selected_, now);
    for (int i = 0; i < static_cast<int>(values_.size()); ++i) {
        QVMToggleSegment& segment = *values_[static_cast<std::size_t>(i)];
        segment.setSelected(i == selected_);
        // No line beside the selection, which has edges of its own.
        segment.setSeparated(i > 0 && i != selected_ && i - 1 != selected_);
    }
    if (now != was && !rValuesOriginal_.empty()) showSelection(Animate::yes);
}

void QVMToggleControl::setPreventInteraction(bool prevent) {
    BoxControl::setPreventInteraction(prevent);
    if (prevent) hold_.cancel();
}

void QVMToggleControl::handleMouseDownWithEventGranularities(const QVMEvent& event,
                                                             const QVMGranularities& granularities) {
    didDrag_ = caughtUp_ = false;
    if (parameter().maxValue <= 1)
        hold_.schedule(kHoldSeconds, [this, event] { toggleDraggedToPointFromEvent(event); });
    else
        handleMouseDraggedWithEventGranularities(event, granularities);
}

void QVMToggleControl::handleMouseDraggedWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    hold_.cancel(); // it would choose where the press was, not where the pointer is now
    toggleDraggedToPointFromEvent(event);
}

void QVMToggleControl::toggleDraggedToPointFromEvent(const QVMEvent& event) {
    if (caughtUp_) return;
    didDrag_ = true;
    setSweeping(true);
    const int index = indexAt(event.point);
    if (index < 0) return;
    setFloatValue(static_cast<float>(index));
    reportInterfaceInitiatedValueChange();
}

void QVMToggleControl::handleMouseUpWithEventGranularities(const QVMEvent&, const QVMGranularities&) {
    if (!didDrag_ && parameter().maxValue == 1) {
        setFloatValue(floatValue() == 0 ? 1.0f : 0.0f);
        reportInterfaceInitiatedValueChange();
    }
    didDrag_ = false;
}

void QVMToggleControl::pressDidEnd(const QVMEvent&) {
    caughtUp_ = true;
    hold_.cancel(); // nothing is chosen once the button is up
    setSweeping(false);
}

void QVMToggleControl::mouseCancelled(const Event& event) {
    didDrag_ = true; // else the end of the press would choose
    mouseUp(event);
}

int QVMToggleControl::indexAt(Point point) const {
    const auto found = std::ranges::find_if(
        rValuesOriginal_, [&](const Rect& frame) { return frame.minX() <= point.x && point.x <= frame.maxX(); });
    return found == rValuesOriginal_.end() ? -1 : static_cast<int>(found - rValuesOriginal_.begin());
}

} // namespace QVM_NAMESPACE
