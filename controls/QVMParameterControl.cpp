#include "controls/QVMParameterControl.h"

#include "controls/QVMVerticalSlider.h"
#include "description/NumberText.h"
#include "platform/runloop/RunLoop.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* kMasterSwitch = "MasterOnOff";
constexpr double kDimmedAlpha = 0.2;
constexpr double kQuickTapSeconds = 5;
constexpr double kTimeOrigin = 1e9; // seconds; taps are timed from long before any run loop began
constexpr std::int32_t kNoControlType = -1;
constexpr float kThousand = 1000;
constexpr float kBeyondLimits = 1e9f; // more than any parameter holds, and little enough to reckon with

// What a control is made for that is given no parameter: it has no name, no place and no type.
const QVMParameter& noParameter() {
    static const QVMParameter none = [] {
        QVMParameter made;
        made.controlType = kNoControlType;
        return made;
    }();
    return none;
}

const QVMParameter& orNone(const QVMParameter* parameter) {
    return parameter ? *parameter : noParameter();
}

// A decimal number with a point, as large as one cares to type; 0 for anything else.
float parsedNumber(const std::string& text) {
    if (text.find_first_not_of("-.0123456789") != std::string::npos) return 0;
    return std::clamp(NumberFromText<float>(text).value_or(0), -kBeyondLimits, kBeyondLimits);
}

// The master switch has a class of its own, whatever its type says.
QVMFloatControlClass classFor(const QVMParameter& parameter, std::int32_t controlType) {
    return parameter.codesafeName == kMasterSwitch ? masterControlClass() : controlClassForType(controlType);
}

std::size_t indexOfNearest(const std::vector<double>& entries, double value) {
    const auto nearest = std::min_element(entries.begin(), entries.end(), [value](double one, double other) {
        return std::abs(one - value) < std::abs(other - value);
    });
    return nearest == entries.end() ? 0 : static_cast<std::size_t>(nearest - entries.begin());
}

} // namespace

QVMParameterControl::QVMParameterControl(const Rect& frame, const Rect& /*labelFrame*/, const QVMParameter* parameter,
                                         float initialValue)
    : QVMParameterControl(frame, parameter, initialValue, classFor(orNone(parameter), orNone(parameter).controlType),
                          orNone(parameter).controlFrame) {}

QVMParameterControl::QVMParameterControl(const Rect& frame, const QVMParameter* parameter, float initialValue,
                                         QVMFloatControlClass primaryClass, const Rect& controlFrame)
    : FocusableControl(frame), parameter_(&orNone(parameter)) {
    if (parameter && primaryClass) {
        primaryControl_ = &addSubview(primaryClass(controlFrame.isEmpty() ? bounds() : controlFrame, *parameter));
        primaryControl_->setAction([this](Control&) {
            tellFollowers();
            sliderUpdated();
        });
        primaryControl_->setDelegate(this);
    }
    QVMParameterControl::setFloatValue(initialValue);
    layer()->setMasksToBounds(false); // the focus border stands outside
    toggleTooltip(true);
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { themeUpdated(); });
}

QVMParameterControl::~QVMParameterControl() {
    for (ValueFollower* follower : followers_)
        follower->forgetMember(*this);
}

Rect QVMParameterControl::controlFrame() const {
    return parameter_->controlFrame;
}

QVMFloatControlClass QVMParameterControl::classForControlType(std::int32_t controlType) const {
    return classFor(*parameter_, controlType);
}

float QVMParameterControl::floatValue() const {
    return primaryControl_ ? primaryControl_->floatValue() : 0;
}

void QVMParameterControl::setFloatValue(float value) {
    if (!primaryControl_) return;
    float shown = parameter_->normalizeFloatValue(value, QVMGranularityFine);
    if (immutableFloatValue_) shown = *immutableFloatValue_;
    if (primaryControl_->floatValue() == shown && primaryControl_->userControlling()) return;
    primaryControl_->setFloatValue(shown);
    tellFollowers();
}

void QVMParameterControl::tellFollowers() {
    for (ValueFollower* follower : followers_)
        follower->followMember(*this);
}

void QVMParameterControl::setTarget(ValuesFromUser& target) {
    setAction([this, &target](Control&) { target.sendFromControl(parameter_->pid, floatValue()); });
}

void QVMParameterControl::reportValueChange() {
    sendAction();
}

void QVMParameterControl::setUserInitiatedValueInternally(float value) {
    setFloatValue(value);
    reportValueChange();
    if (!primaryControl_) return;
    primaryControl_->reportDiscreteInteraction();
    clearTransientStringValue();
}

void QVMParameterControl::setStringValue(const std::string& text) {
    std::string digits = text;
    float multiplier = 1;
    if (digits.ends_with('k')) {
        std::erase(digits, 'k');
        multiplier = kThousand;
    }
    std::replace(digits.begin(), digits.end(), ',', '.');
    float value = parsedNumber(digits) * multiplier;
    if (parameter_->textEntryNumbers) value = static_cast<float>(indexOfNearest(*parameter_->textEntryNumbers, value));
    setUserInitiatedValueInternally(value);
}

bool QVMParameterControl::acceptsTransientStringBuffers() const {
    return dynamic_cast<QVMTransientBufferDisplay*>(primaryControl_) != nullptr;
}

void QVMParameterControl::setTransientStringValue(const std::string& text) {
    auto* const display = dynamic_cast<QVMTransientBufferDisplay*>(primaryControl_);
    if (!display || !focused()) return;
    display->setDisplayingTransientBufferValue(true);
    display->displayTransientBufferValue(QVMVerticalSlider::formattedReadoutStringForValueSuffixFontSize(
        text, "", display->transientStringPreferredFontSize()));
}

void QVMParameterControl::setFocused(bool focused) {
    const bool isChanged = focused != this->focused();
    FocusableControl::setFocused(focused);
    if (isChanged && primaryControl_) primaryControl_->setHighlit(focused);
    if (!focused) clearTransientStringValue();
}

void QVMParameterControl::clearTransientStringValue() {
    QVMTransientBufferDisplayClear(primaryControl_);
}

bool QVMParameterControl::incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) {
    return primaryControl_ && primaryControl_->incrementWithArrowGranularity(arrow, granularity);
}

void QVMParameterControl::handleModalClick(const Event& event) {
    if (primaryControl_) primaryControl_->handleModalClick(event);
}

void QVMParameterControl::updateScalarIndicatorWithValueOffsetAnimateClipping(float value, float offset,
                                                                              Animate animate, bool clipping) {
    if (primaryControl_)
        primaryControl_->updateScalarIndicatorWithValueOffsetAnimateClipping(value, offset, animate, clipping);
}

bool QVMParameterControl::toggleBooleanControl() {
    if (!primaryControl_) return false;
    const bool isTwoState =
        (parameter_->unit == QVMUnitIndexed && parameter_->valueRange() == 1.0f) || parameter_->unit == QVMUnitSwitch;
    if (!isTwoState) return false;
    primaryControl_->setFloatValue(floatValue() == 0.0f ? 1.0f : 0.0f);
    reportValueChange();
    primaryControl_->reportDiscreteInteraction();
    return true;
}

bool QVMParameterControl::tap() {
    if (!primaryControl_ || !hasTap() || primaryControl_->isDisabled()) return false;
    const double now = kTimeOrigin + RunLoop::main().now();
    if (now - lastTap_ < kQuickTapSeconds) setUserInitiatedValueInternally(0);
    lastTap_ = now;
    return true;
}

void QVMParameterControl::setDimmedDelayPriorityKey(bool dimmed, double /*delay*/, unsigned priority,
                                                    const std::string& key) {
    if (dimmed)
        dimHolds_[key] = priority;
    else
        dimHolds_.erase(key);
    if (dimmed != isDimmed()) return; // someone else holds it still
    if (primaryControl_) primaryControl_->setDimmed(dimmed);
    animateAlpha(dimmed ? kDimmedAlpha : 1);
}

void QVMParameterControl::toggleTooltip(bool on) {
    setToolTip(on ? parameter_->name : "");
}

void QVMParameterControl::themeUpdated() {
    layer()->look().setNeedsDisplay();
    if (primaryControl_) primaryControl_->setFloatValue(floatValue());
}

void QVMParameterControl::mouseDown(const Event& event) {
    handlingOutsideClick_ = false;
    if (event.clickCount == 2) return setTransientStringValue("");
    const Rect inside = controlFrame();
    handlingOutsideClick_ = !inside.isEmpty() && !inside.contains(coordinates().fromWindow(event.locationInWindow)) &&
                            !primaryControlHasPress();
    if (handlingOutsideClick_ && primaryControl_) primaryControl_->handleMouseDownEvent({event, *primaryControl_});
    FocusableControl::mouseDown(event);
}

bool QVMParameterControl::primaryControlHasPress() const {
    const View* const pressed = window() ? window()->mouseCapture() : nullptr;
    return pressed && primaryControl_ && pressed->isDescendantOf(*primaryControl_);
}

void QVMParameterControl::mouseDragged(const Event& event) {
    if (handlingOutsideClick_ && primaryControl_) primaryControl_->handleMouseDraggedEvent({event, *primaryControl_});
}

void QVMParameterControl::mouseUp(const Event& event) {
    if (handlingOutsideClick_ && primaryControl_) primaryControl_->handleMouseUpEvent({event, *primaryControl_});
    handlingOutsideClick_ = false;
}

void QVMParameterControl::floatControlInteractionDidChangeToEvent(QVMFloatControl&, QVMInteraction state,
                                                                  const Event* event) {
    if (delegate_) delegate_->parameterControlDidChangeInteractionStateEvent(*this, state, event);
}

void QVMParameterControl::floatControlWantsToPerformStaticConversion(QVMFloatControl&, std::int32_t value) {
    if (delegate_) delegate_->parameterControlWantsToPerformStaticConversion(*this, value);
}

void QVMParameterControl::floatControlHasRequestedDocumentation(QVMFloatControl&) {
    if (delegate_) delegate_->parameterControlHasRequestedDocumentation(*this);
}

void QVMParameterControl::floatControlWantsToDisplayModal(QVMFloatControl&, View& modal) {
    if (delegate_) delegate_->parameterControlWantsToDisplayModal(*this, modal);
}

void QVMParameterControl::floatControlDidTapMeaninglessly(QVMFloatControl&) {
    if (delegate_) delegate_->parameterControlDidTapMeaninglessly(*this);
}

} // namespace QVM_NAMESPACE
