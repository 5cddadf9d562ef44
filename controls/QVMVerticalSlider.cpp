#include "controls/QVMVerticalSlider.h"

#include "controls/FineDrag.h"
#include "controls/QVMFocusBorder.h"
#include "platform/layer/Transaction.h"
#include "theme/Colors.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kHorizontalBulbOverhang = 58; // a lying track reaches below its handle's ends by this much
constexpr double kRetrySeconds = 0.1;

BulbPointer pointerFor(const QVMParameter& parameter) {
    if (parameter.range.empty()) return BulbPointer::none;
    return parameter.range.boolValue("low") ? BulbPointer::down : BulbPointer::up;
}

} // namespace

QVMVerticalSlider::QVMVerticalSlider(const Rect& frame, const QVMParameter& parameter)
    : QVMFloatControl(frame, parameter), horizontal_(parameter.horizontal),
      background_(std::make_shared<Layer>(YAxis::up)), bulb_(QVMCGColor(parameter.color), pointerFor(parameter)) {
    background_->setName("track");
    layer()->tree().add(background_);
    layer()->tree().add(scale_.layer());
    layer()->tree().add(bulb_.bulb());
    bulb_.bulb()->tree().add(highlight()); // it travels with the handle
    sizeReadoutToFitWidestValue();
    QVMVerticalSlider::layOut();
    setDisplayText(floatValue());
}

void QVMVerticalSlider::calculateSliderPixelExtents() {
    lowest_ = horizontal_ ? bulb_.width() - kHorizontalBulbOverhang : ReadoutBulb::height;
    highest_ = (horizontal_ ? frame().width : frame().height) - lowest_;
}

Point QVMVerticalSlider::pointFromRelevant(double position) const {
    return horizontal_ ? Point{position, 0} : Point{0, position};
}

double QVMVerticalSlider::positionValueFromFloatValue(float value) const {
    const double position = std::round(positionFromFraction(parameter().percentageFromFloatValue(value)));
    return std::isfinite(position) ? position : lowest_;
}

float QVMVerticalSlider::floatValueFromPositionValueGranularity(double position, std::int32_t granularity) const {
    const auto fraction = static_cast<float>(fractionFromPosition(position));
    return limitFloat(parameter().normalizedFloatValueFromPercent(fraction, granularity));
}

bool QVMVerticalSlider::isHandleGliding() const {
    return relevantFromPoint(readoutBulb()->presentation().position) != handleValue();
}

void QVMVerticalSlider::normalizeAndMoveToPositionAnimateSendActionGranularity(double position, Animate animate,
                                                                               SendAction send,
                                                                               std::int32_t granularity) {
    const float value = valueReachedAt(position, granularity);
    updatePositionFloatValueAnimateSendAction(positionValueFromFloatValue(value), value, animate, send);
    setOnce_ = true;
}

float QVMVerticalSlider::valueReachedAt(double position, std::int32_t granularity) const {
    return floatValueFromPositionValueGranularity(std::max(lowest_, std::min(position, highest_)), granularity);
}

void QVMVerticalSlider::updatePositionFloatValueAnimateSendAction(double position, float value, Animate animate,
                                                                  SendAction send) {
    if (handleValue() != position) moveBulb(position, setOnce_ ? animate : Animate::no);
    setDisplayText(value);
    if (send == SendAction::no) return;
    setFloatValueFromInteraction(value, ValueOrigin::interaction);
    reportInterfaceInitiatedValueChange();
}

void QVMVerticalSlider::moveToExactFloatValue(float value) {
    updatePositionFloatValueAnimateSendAction(positionValueFromFloatValue(value), value, Animate::no, SendAction::yes);
}

void QVMVerticalSlider::moveBulb(double position, Animate animate) {
    const double across = bulbCenter();
    const Transaction transaction =
        animate == Animate::yes ? Transaction::animated(glideSeconds) : Transaction::disablingActions();
    readoutBulb()->setPosition(horizontal_ ? Point{position, across} : Point{across, position});
}

double QVMVerticalSlider::diffMultForGranularityFloatValue(std::int32_t granularity, float value) const {
    return granularity == QVMGranularityFine ? fineDragMultiplier(parameter(), value, range()) : 1;
}

void QVMVerticalSlider::setFloatValueFromInteraction(float value, ValueOrigin origin) {
    QVMFloatControl::setFloatValue(value);
    retry_.cancel(); // what waited is out of date now
    if (dragging_) return;
    if (origin == ValueOrigin::interaction) {
        latentValue_ = value;
        if (writeLocked_ || isHandleGliding()) {
            retry_.schedule(kRetrySeconds, [this] { retrySettingLatentValue(); });
            return;
        }
    }
    clickOffset_ = 0;
    // The handle stays on the track and on its side of the pair's limit; the text is that of the value itself.
    const float reached = valueReachedAt(positionValueFromFloatValue(value), QVMGranularityFine);
    updatePositionFloatValueAnimateSendAction(positionValueFromFloatValue(reached), value, Animate::yes,
                                              SendAction::no);
    setOnce_ = true;
}

void QVMVerticalSlider::resetToInitialValue() {
    dragging_ = writeLocked_ = false;
    QVMFloatControl::resetToInitialValue();
}

void QVMVerticalSlider::handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    dragging_ = false;
    const double position = relevantFromPoint(event.point);
    // A replayed gesture is another control's: it is only aimed along the axis, and always at the handle.
    if (event.simulated || isOnHandle(event.point)) {
        clickOffset_ = position - idealHandleValue();
        isHandlePressed_ = true;
    } else if (handleCueClick(event.point)) {
        return;
    } else {
        clickOffset_ = 0;
        normalizeAndMoveToPositionAnimateSendActionGranularity(position, Animate::yes, SendAction::yes,
                                                               QVMGranularityNormal);
        isHandlePressed_ = true;
    }
    percentageWas_ = naivePercentageWas_ = fractionFromPosition(idealHandleValue());
    writeLocked_ = true;
    showBulbState();
}

bool QVMVerticalSlider::handleCueClick(Point point) {
    const std::vector<QVMCueRect>& cues = cueRects();
    const auto hit =
        std::find_if(cues.begin(), cues.end(), [&](const QVMCueRect& c) { return c.rect.contains(point); });
    if (hit == cues.end()) return false;
    clickOffset_ = 0;
    float value = hit->value;
    if (hit->indexed) {
        const auto index = static_cast<float>(hit - cues.begin()), last = static_cast<float>(cues.size() - 1);
        value = limitFloat(parameter().normalizedFloatValueFromPercent(index / last, QVMGranularityFine));
    }
    setFloatValueFromInteraction(value, ValueOrigin::interaction);
    reportInterfaceInitiatedValueChange();
    return true;
}

void QVMVerticalSlider::handleMouseDraggedWithEventGranularities(const QVMEvent& event,
                                                                 const QVMGranularities& granularities) {
    dragging_ = true;
    const double position = relevantFromPoint(event.point) - clickOffset_;
    if (granularities.is == QVMGranularityFine) return dragFine(position, granularities.changed);
    normalizeAndMoveToPositionAnimateSendActionGranularity(position, Animate::no, SendAction::yes, granularities.is);
}

void QVMVerticalSlider::dragFine(double position, bool reanchor) {
    if (reanchor) percentageWas_ = naivePercentageWas_ = fractionFromPosition(idealHandleValue());
    const double fraction = fractionFromPosition(position);
    const double moved =
        (fraction - percentageWas_) * diffMultForGranularityFloatValue(QVMGranularityFine, floatValue());
    const double reached = naivePercentageWas_ + moved;
    moveToExactFloatValue(
        limitFloat(parameter().normalizedFloatValueFromPercent(static_cast<float>(reached), QVMGranularityFine)));
    percentageWas_ = fraction;
    naivePercentageWas_ = reached;
}

void QVMVerticalSlider::pressDidEnd(const QVMEvent&) {
    dragging_ = writeLocked_ = isHandlePressed_ = false;
    showBulbState();
}

void QVMVerticalSlider::handleMetaActionWithEvent(std::int32_t code, const QVMEvent* event) {
    if (code == QVMMetaActionReset) return resetToInitialValue();
    if (!event) return;
    if (code == QVMMetaActionDown) simDiff_ = idealHandleValue() - event->point.x;
    const QVMEvent replayed = event->adjustedToPoint({event->point.x + simDiff_, event->point.y});
    if (code == QVMMetaActionDown) handleMouseDownEvent(replayed);
    if (code == QVMMetaActionDragged) handleMouseDraggedEvent(replayed);
    if (code == QVMMetaActionUp) handleMouseUpEvent(replayed);
}

} // namespace QVM_NAMESPACE
