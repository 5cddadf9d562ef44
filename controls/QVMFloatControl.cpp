#include "controls/QVMFloatControl.h"

#include "controls/QVMFocusBorder.h"
#include "description/ValueMapping.h"
#include "platform/system/Log.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kKilohertz = 1000;
constexpr float kLeastStepAboveKilohertz = 10; // Hz, all the way up
constexpr double kPointsANotch = 10;
constexpr double kFocusDistanceX = 4; // points
constexpr double kFocusDistanceY = 3; // points
constexpr double kOtherShapeRounding = 6;
constexpr double kDisabledAlpha = 0.4;

} // namespace

QVMFloatControl::QVMFloatControl(const Rect& frame, const QVMParameter& parameter)
    : Control(frame, YAxis::up), parameter_(parameter), highlight_(std::make_shared<QVMFocusBorder>()) {
    layer()->setMasksToBounds(false); // the focus border stands outside
    highlight_->setStrokeNSColor(QVMCGColor(parameter.color));
    layer()->tree().add(highlight_);
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { themeUpdated(); });
}

QVMFloatControl::~QVMFloatControl() = default;

void QVMFloatControl::setHighlit(bool highlit) {
    highlit_ = highlit;
    highlight_->setOpacity(highlit ? 1 : 0);
}

void QVMFloatControl::setPreventInteraction(bool prevent) {
    preventInteraction_ = prevent;
    setAlpha(prevent ? kDisabledAlpha : 1);
}

void QVMFloatControl::mouseDown(const Event& event) {
    handleMouseDownEvent(QVMEvent(event, *this));
    Control::mouseDown(event);
}

void QVMFloatControl::mouseDragged(const Event& event) {
    handleMouseDraggedEvent(QVMEvent(event, *this));
}

void QVMFloatControl::mouseUp(const Event& event) {
    handleMouseUpEvent(QVMEvent(event, *this));
}

void QVMFloatControl::handleMouseDownEvent(const QVMEvent& event) {
    granIs_ = granWas_ = QVMGranularityNormal;
    if (isDisabled()) return;
    const Event& source = event.nsEvent;
    // A press with Control held belongs to the context menu, but the interaction has begun all the same.
    if (!source.has(EventModifier::control)) {
        if (source.has(EventModifier::option) && !source.has(EventModifier::command))
            resetToInitialValue();
        else if (!validStaticConversionKeyComboFromEvent(source))
            handleMouseDownWithEventGranularities(event, {});
    }
    if (delegate_) delegate_->floatControlInteractionDidChangeToEvent(*this, QVMInteractionBegan, &source);
}

void QVMFloatControl::handleMouseDraggedEvent(const QVMEvent& event) {
    if (isDisabled() || event.nsEvent.has(EventModifier::option)) return;
    handleMouseDraggedWithEventGranularities(event, nextGranularities(event.nsEvent));
}

void QVMFloatControl::handleMouseUpEvent(const QVMEvent& event) {
    pressDidEnd(event);
    const Event& source = event.nsEvent;
    if (isDisabled() || source.has(EventModifier::option) || source.has(EventModifier::control)) return;
    if (validStaticConversionKeyComboFromEvent(source)) return contextMenuDoStaticConversion();
    handleMouseUpWithEventGranularities(event, {});
    if (delegate_) delegate_->floatControlInteractionDidChangeToEvent(*this, QVMInteractionEnded, &source);
}

void QVMFloatControl::scrollWheel(const Event& event) {
    if (isDisabled()) return;
    const QVMGranularities granularities = nextGranularities(event);
    double delta = parameter_.horizontal ? event.scrollingDeltaX : -event.scrollingDeltaY;
    if (!event.isDirectionInvertedFromDevice) delta = -delta;

    if (!event.hasPreciseScrollingDeltas) {
        // Every notch is a sequence of its own, and counts whole however gently the wheel was turned.
        double notches = event.scrollingDeltaY;
        if (std::abs(notches) < 1) notches = notches >= 0 ? 1 : -1;
        scrollStartValue_ = floatValue();
        scrollDelta_ = notches * -kPointsANotch;
    } else if (event.phase & EventPhase::mayBegin) {
        scrollStartValue_ = floatValue();
        scrollDelta_ = delta;
    } else {
        scrollDelta_ += delta;
    }
    handleScrollWithEventStartDeltaGranularities(QVMEvent(event, *this), scrollStartValue_, scrollDelta_,
                                                 granularities);
}

QVMGranularities QVMFloatControl::nextGranularities(const Event& event) {
    granWas_ = granIs_;
    granIs_ = granularityFromEvent(event);
    return {granIs_, granWas_, granIs_ != granWas_};
}

std::int32_t QVMFloatControl::granularityFromEvent(const Event& event) {
    if (event.has(EventModifier::command)) return QVMGranularityFine;
    return event.has(EventModifier::shift) ? QVMGranularityCoarse : QVMGranularityNormal;
}

void QVMFloatControl::resetToInitialValue() {
    setFloatValue(parameter_.initialValue);
    reportInterfaceInitiatedValueChange();
    QVMTransientBufferDisplayClear(this);
}

void QVMFloatControl::reportInterfaceInitiatedValueChange() {
    userControlling_ = true;
    sendAction();
}

void QVMFloatControl::reportDiscreteInteraction() {
    if (delegate_) delegate_->floatControlInteractionDidChangeToEvent(*this, QVMInteractionDiscrete, nullptr);
}

float QVMFloatControl::incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const {
    float step = parameter_.granularityValueForType(granularity, floatValue());
    if (parameter_.unit == QVMUnitHertz && floatValue() >= kKilohertz) step = std::max(step, kLeastStepAboveKilohertz);
    return arrow == Key::down || arrow == Key::left ? -step : step;
}

bool QVMFloatControl::incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) {
    const float value = floatValue();
    const bool isPrerounded = parameter_.coarseGranularityShouldPreround;
    const float base = isPrerounded ? parameter_.roundFloatValue(value, granularity) : value;
    const float step = incrementedValueForArrowGranularity(arrow, granularity);

    // A step towards the side that rounding has moved to is taken by the rounding alone.
    float next = base + step;
    if ((base < value && !(step > 0)) || (base > value && !(step < 0))) next = base;

    const std::vector<float>& options = parameter_.coarseGranularityOptions;
    if (granularity == QVMGranularityCoarse && !options.empty()) {
        std::size_t index = 0;
        parameter_.closestCoarseGranularityOptionToValue(value, &index);
        if (step > 0 && index + 1 < options.size()) next = options[index + 1];
        if (!(step > 0) && index >= 1) next = options[index - 1];
    }

    if (granularity == QVMGranularityCoarse && !isPrerounded) granularity = QVMGranularityFine;
    setFloatValue(parameter_.normalizeFloatValue(next, granularity));
    reportInterfaceInitiatedValueChange();
    reportDiscreteInteraction();
    return true;
}

float QVMFloatControl::limitFloat(float value) const {
    const QVMRangeSettings& range = parameter_.range;
    if (!doLimit() || range.empty()) return value;
    const float limit = range.floatValue("limit");
    return range.boolValue("low") ? std::min(limit, value) : std::max(limit, value);
}

void QVMFloatControl::animateHighlightToFramePositionRoundingInset(Rect frame, Point, double rounding, bool inset) {
    if (inset) frame = frame.insetBy(parameter_.highlightInsetX - kFocusDistanceX, -kFocusDistanceY).integral();
    if (rounding < 1) rounding = std::max(rounding, 0.5) * frame.height;
    if (parameter_.controlFocusShape == 1) rounding = kOtherShapeRounding;
    highlight_->updateWithFrameRounding(frame, rounding);
}

void QVMFloatControl::contextMenuDoStaticConversion() {
    if (delegate_) delegate_->floatControlWantsToPerformStaticConversion(*this, IntegerPart(floatValue()));
}

void QVMFloatControl::contextMenuRequestedDocumentation() {
    if (delegate_) delegate_->floatControlHasRequestedDocumentation(*this);
}

void QVMFloatControl::handleMetaActionWithEvent(std::int32_t, const QVMEvent*) {
    logLine("unhandled");
}

} // namespace QVM_NAMESPACE
