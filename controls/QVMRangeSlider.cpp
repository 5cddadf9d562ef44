#include "controls/QVMRangeSlider.h"

#include "controls/QVMFocusBorder.h"
#include "platform/layer/Transaction.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr float kBandAlpha = 0.45f;
constexpr double kFocusRounding = 3;

// Frequencies that the track marks, Hz; whole decades stand taller.
struct FrequencyTick {
    float hertz;
    double length; // points
};
constexpr double kDecade = 8, kStep = 4;
constexpr FrequencyTick kTicks[] = {{10, kDecade}, {20, kStep},      {50, kStep},     {100, kDecade},
                                    {200, kStep},  {500, kStep},     {1000, kDecade}, {2000, kStep},
                                    {5000, kStep}, {10000, kDecade}, {20000, kStep}};

} // namespace

QVMRangeSlider::QVMRangeSlider(const Rect& frame, const QVMParameter& parameter)
    : QVMVerticalSlider(frame, parameter), band_(std::make_shared<Layer>(YAxis::up)),
      hoverLight_(std::make_shared<Layer>(YAxis::up)), ticks_(std::make_shared<ShapeLayer>(YAxis::up)) {
    band_->setName("band");
    hoverLight_->setName("bandHover");
    ticks_->setName("frequencyTicks");
    for (const std::shared_ptr<Layer>& added : {band_, std::shared_ptr<Layer>(ticks_), hoverLight_})
        layer()->tree().add(added);
    layer()->tree().add(highlight()); // around the band, there being no handle
    band_->look().setBackgroundColor(QVMCGColor(parameter.color).withAlpha(kBandAlpha));
    hoverLight_->setOpacity(0);
    readoutBulb()->setHidden(true);
    QVMRangeSlider::layOut();
    setInteractive(false);
}

void QVMRangeSlider::setInteractive(bool interactive) {
    interactive_ = interactive;
    background()->setHidden(interactive);
    band_->setHidden(interactive);
    ticks_->setHidden(interactive);
    hoverLight_->setHidden(!interactive);
}

void QVMRangeSlider::updateForLowHighAnimation(double low, double high, double seconds) {
    low_ = low;
    high_ = high;
    updatePositionForLowHighAnimation(seconds);
}

void QVMRangeSlider::updatePositionForLowHighAnimation(double seconds) {
    const Rect track = layers().trackRect();
    const double from = positionValueFromFloatValue(static_cast<float>(low_));
    const double to = std::max(from, positionValueFromFloatValue(static_cast<float>(high_)));
    const Rect box =
        horizontal() ? Rect{from, track.y, to - from, track.height} : Rect{track.x, from, track.width, to - from};
    const Transaction transaction = seconds > 0 ? Transaction::animated(seconds) : Transaction::disablingActions();
    band_->setFrame(box);
    hoverLight_->setFrame(box);
    if (highlit()) animateHighlightToFramePositionRoundingInset(box, {}, kFocusRounding, true);
}

void QVMRangeSlider::setHighlit(bool highlit) {
    QVMVerticalSlider::setHighlit(highlit);
    if (highlit) animateHighlightToFramePositionRoundingInset(band_->frame(), {}, kFocusRounding, true);
}

void QVMRangeSlider::layOut() {
    QVMVerticalSlider::layOut();
    background()->setHidden(interactive_);
    hoverLight_->look().setBackgroundColor(QVMUITheme::theme().palette.hover);
    updatePositionForLowHighAnimation(0);
    layOutTicks();
}

void QVMRangeSlider::layOutTicks() {
    const Rect track = layers().trackRect();
    const double pixels = layer()->look().contentsScale();
    Path lines;
    for (const FrequencyTick& tick : kTicks) {
        const bool isShown = parameter().unit == QVMUnitHertz && tick.hertz >= parameter().minValue &&
                             tick.hertz <= parameter().maxValue;
        if (!isShown) continue;
        const double at = std::round((positionValueFromFloatValue(tick.hertz) - 0.5) * pixels) / pixels;
        const double across = (SliderLayers::trackThickness - tick.length) / 2;
        lines.addRect(horizontal() ? Rect{at, track.y + across, 1, tick.length}
                                   : Rect{track.x + across, at, tick.length, 1});
    }
    ticks_->setFrame(bounds());
    ticks_->setFillColor(QVMUITheme::theme().palette.tick);
    ticks_->setPath(std::move(lines));
}

void QVMRangeSlider::resetToInitialValue() {
    QVMVerticalSlider::resetToInitialValue();
    performMetaAction(QVMMetaActionReset, nullptr);
}

void QVMRangeSlider::handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    setDragging(false);
    holdsEnds_ = true;
    performMetaAction(QVMMetaActionDown, &event);
}

void QVMRangeSlider::handleMouseDraggedWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    setDragging(true);
    performMetaAction(QVMMetaActionDragged, &event);
}

void QVMRangeSlider::pressDidEnd(const QVMEvent& event) {
    QVMVerticalSlider::pressDidEnd(event);
    if (std::exchange(holdsEnds_, false)) performMetaAction(QVMMetaActionUp, &event);
}

void QVMRangeSlider::performMetaAction(std::int32_t code, const QVMEvent* event) {
    if (delegate()) delegate()->floatControlDidPerformMetaActionWithEvent(*this, code, event);
}

void QVMRangeSlider::showHover(bool hovered) {
    const bool isShown = hovered && interactive_ && !isDisabled();
    hoverLight_->setOpacity(isShown ? 1 : 0);
    setCursor(isShown ? Cursor::openHand : Cursor::arrow);
}

} // namespace QVM_NAMESPACE
