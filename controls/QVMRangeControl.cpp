#include "controls/QVMRangeControl.h"

#include "controls/QVMRangeSlider.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double kGlideSeconds = 0.1;

Rect bandFrame(const QVMParameter* parameter, double height) {
    if (!parameter) return {};
    return {parameter->controlFrame.x, 0, parameter->controlFrame.width, height};
}

QVMVerticalSlider* sliderOf(const QVMParameterControl* control) {
    return control ? dynamic_cast<QVMVerticalSlider*>(control->primaryControl()) : nullptr;
}

float valueOf(const QVMParameterControl* control) {
    return control ? control->floatValue() : 0;
}

} // namespace

QVMRangeControl::QVMRangeControl(const Rect& frame, const Rect& /*labelFrame*/, const QVMParameter* parameter,
                                 float initialValue)
    : QVMParameterControl(frame, parameter, initialValue, &makeFloatControl<QVMRangeSlider>,
                          bandFrame(parameter, frame.height)) {}

QVMRangeControl::~QVMRangeControl() {
    attach(low_, nullptr);
    attach(high_, nullptr);
}

Rect QVMRangeControl::controlFrame() const {
    return bandFrame(parameter(), bounds().height);
}

QVMRangeSlider* QVMRangeControl::rangeSlider() const {
    return static_cast<QVMRangeSlider*>(primaryControl());
}

void QVMRangeControl::setPairing(bool pairing) {
    pairing_ = pairing;
    if (rangeSlider()) rangeSlider()->setPairing(pairing);
}

void QVMRangeControl::setInteractive(bool interactive) {
    interactive_ = interactive;
    if (rangeSlider()) rangeSlider()->setInteractive(interactive);
}

void QVMRangeControl::setLow(QVMParameterControl* control) {
    attach(low_, control);
    if (rangeSlider() && control) rangeSlider()->setLowPid(control->parameter()->pid);
}

void QVMRangeControl::setHigh(QVMParameterControl* control) {
    attach(high_, control);
    if (rangeSlider() && control) rangeSlider()->setHighPid(control->parameter()->pid);
}

void QVMRangeControl::attach(QVMParameterControl*& member, QVMParameterControl* control) {
    if (member) {
        member->removeFollower(*this);
        if (member->range() == this) member->setRange(nullptr);
    }
    member = control;
    if (!member) return;
    member->addFollower(*this);
    updateRangeAnimated(Animate::no);
}

void QVMRangeControl::forgetMember(const QVMParameterControl& member) {
    if (low_ == &member) low_ = nullptr;
    if (high_ == &member) high_ = nullptr;
}

void QVMRangeControl::updateRangeAnimated(Animate animate) {
    if (!rangeSlider()) return;
    rangeSlider()->updateForLowHighAnimation(valueOf(low_), valueOf(high_),
                                             animate == Animate::yes ? kGlideSeconds : 0);
}

void QVMRangeControl::followMember(const QVMParameterControl& member) {
    const QVMVerticalSlider* slider = sliderOf(&member);
    updateRangeAnimated(slider && slider->layers().isHandleGliding() ? Animate::yes : Animate::no);
}

View* QVMRangeControl::hitTest(Point pointInSuperview) {
    View* hit = interactive_ ? QVMParameterControl::hitTest(pointInSuperview) : nullptr;
    if (!hit || !superview()) return hit;
    for (QVMVerticalSlider* slider : {sliderOf(low_), sliderOf(high_)}) {
        if (slider && slider->layers().isOnHandle(slider->coordinates().fromView(pointInSuperview, *superview())))
            return slider;
    }
    return hit;
}

void QVMRangeControl::floatControlDidPerformMetaActionWithEvent(QVMFloatControl&, std::int32_t code,
                                                                const QVMEvent* event) {
    const bool isWhole = code == QVMMetaActionReset;
    for (QVMParameterControl* member : {high_, low_}) {
        QVMFloatControl* const end = member ? member->primaryControl() : nullptr;
        if (!end) continue;
        if (isWhole) member->floatControlInteractionDidChangeToEvent(*end, QVMInteractionBegan, nullptr);
        end->handleMetaActionWithEvent(code, event);
        if (isWhole) member->floatControlInteractionDidChangeToEvent(*end, QVMInteractionEnded, nullptr);
    }
}

} // namespace QVM_NAMESPACE
