#include "controls/QVMVerticalSlider.h"

#include "controls/FineDrag.h"
#include "controls/QVMFocusBorder.h"
#include "controls/ReadoutText.h"
#include "controls/TextFitting.h"
#include "platform/layer/Transaction.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kFocusRounding = 0.5; // a share: below 1, of the height
constexpr double kRetrySeconds = 0.1;

} // namespace

QVMVerticalSlider::QVMVerticalSlider(const Rect& frame, const QVMParameter& parameter)
    : QVMFloatControl(frame, parameter), layers_(*this, parameter) {
    readoutBulb()->tree().add(highlight()); // it travels with the handle
    QVMVerticalSlider::layOut();
    setDisplayText(floatValue());
}

void QVMVerticalSlider::layOut() {
    const Transaction atOnce = Transaction::disablingActions();
    layers_.layOut([this](float value) { return positionValueFromFloatValue(value); });
    layers_.moveHandle(idealHandleValue(), Animate::no);
    animateHighlightToFramePositionRoundingInset(layers_.bulb().capsuleBox(), {}, kFocusRounding, true);
}

double QVMVerticalSlider::positionValueFromFloatValue(float value) const {
    const double position = std::round(layers_.axis().positionAt(parameter().percentageFromFloatValue(value)));
    return std::isfinite(position) ? position : lowest();
}

float QVMVerticalSlider::floatValueFromPositionValueGranularity(double position, std::int32_t granularity) const {
    const auto fraction = static_cast<float>(layers_.axis().fractionAt(position));
    return limitFloat(parameter().normalizedFloatValueFromPercent(fraction, granularity));
}

void QVMVerticalSlider::normalizeAndMoveToPositionAnimateSendActionGranularity(double position, Animate animate,
                                                                               SendAction send,
                                                                               std::int32_t granularity) {
    const float value = valueReachedAt(position, granularity);
    updatePositionFloatValueAnimateSendAction(positionValueFromFloatValue(value), value, animate, send);
    setOnce_ = true;
}

float QVMVerticalSlider::valueReachedAt(double position, std::int32_t granularity) const {
    return floatValueFromPositionValueGranularity(std::max(lowest(), std::min(position, highest())), granularity);
}

void QVMVerticalSlider::updatePositionFloatValueAnimateSendAction(double position, float value, Animate animate,
                                                                  SendAction send) {
    if (handleValue() != position) layers_.moveHandle(position, setOnce_ ? animate : Animate::no);
    setDisplayText(value);
    if (send == SendAction::no) return;
    setFloatValueFromInteraction(value, ValueOrigin::interaction);
    reportInterfaceInitiatedValueChange();
}

void QVMVerticalSlider::moveToExactFloatValue(float value) {
    updatePositionFloatValueAnimateSendAction(positionValueFromFloatValue(value), value, Animate::no, SendAction::yes);
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
        if (writeLocked_ || layers_.isHandleGliding()) {
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
    if (event.simulated || layers_.isOnHandle(event.point)) {
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
    percentageWas_ = naivePercentageWas_ = layers_.axis().fractionAt(idealHandleValue());
    writeLocked_ = true;
    showBulbState();
}

bool QVMVerticalSlider::handleCueClick(Point point) {
    const QVMCueRect* hit = layers_.cueAt(point);
    if (!hit) return false;
    clickOffset_ = 0;
    float value = hit->value;
    if (hit->indexed) {
        const auto index = static_cast<float>(hit - cueRects().data()),
                   last = static_cast<float>(cueRects().size() - 1);
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
    if (reanchor) percentageWas_ = naivePercentageWas_ = layers_.axis().fractionAt(idealHandleValue());
    const double fraction = layers_.axis().fractionAt(position);
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

AttributedString QVMVerticalSlider::formattedReadoutStringForValueSuffixFontSize(
    const std::string& value, const std::optional<std::string>& suffix, double fontSize) {
    return readoutText(value, suffix, fontSize);
}

AttributedString QVMVerticalSlider::potentiallyShrunkenVersionOfString(const AttributedString& text) const {
    return shrunkenToWidth(text, layers_.bulb().textWidth());
}

void QVMVerticalSlider::setDisplayText(float value) {
    if (!displayingTransientBufferValue_) layers_.showValue(value);
}

void QVMVerticalSlider::themeUpdated() {
    layOut();
    if (!displayingTransientBufferValue_) setDisplayText(floatValue());
}

void QVMVerticalSlider::setDimmed(bool dimmed) {
    QVMFloatControl::setDimmed(dimmed);
    layers_.bulb().setDimmed(dimmed);
}

void QVMVerticalSlider::displayTransientBufferValue(const AttributedString& text) {
    layers_.bulb().setText(text);
}

void QVMVerticalSlider::discardTransientBufferValue() {
    setDisplayingTransientBufferValue(false);
    setDisplayText(floatValue());
}

void QVMVerticalSlider::setDisplayingTransientBufferValue(bool displaying) {
    displayingTransientBufferValue_ = displaying;
    layers_.bulb().setTyping(displaying);
}

double QVMVerticalSlider::transientStringPreferredFontSize() const {
    return SliderLayers::readoutSize;
}

void QVMVerticalSlider::mouseMoved(const Event& event) {
    const Point point = coordinates().fromWindow(event.locationInWindow);
    isHandleHovered_ = layers_.isOnHandle(point);
    isHandlePressed_ = false; // no button is down, even if its release was not ours to see
    setCursor(!isDisabled() && (isHandleHovered_ || layers_.cueAt(point)) ? Cursor::pointingHand : Cursor::arrow);
    showBulbState();
}

void QVMVerticalSlider::mouseExited(const Event&) {
    isHandleHovered_ = false;
    showBulbState();
}

void QVMVerticalSlider::showBulbState() {
    const bool isHovered = isHandleHovered_ && !isDisabled() && !dimmed();
    layers_.bulb().setState(isHandlePressed_ ? BulbState::pressed : isHovered ? BulbState::hovered : BulbState::normal);
}

} // namespace QVM_NAMESPACE
