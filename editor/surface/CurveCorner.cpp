#include "editor/surface/CurveCorner.h"

#include "controls/FineDrag.h"
#include "controls/QVMFocusBorder.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/Transaction.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double kRingWidth = 1.75, kRim = 1.5;     // points: of a ring's line; of the ground around a disc
constexpr double kHaloRadius = 8, kFocusRadius = 7; // points
constexpr double kHoverAlpha = 0.22, kPressedAlpha = 0.36;
constexpr float kOffAlpha = 0.65f;
constexpr double kFadeSeconds = 0.12;
constexpr double kFinestShare = 1.0 / 6; // of the pointer's way, at most: low frequencies have wide steps
constexpr double kTypedSize = 10;        // points

Path circle(Point center, double radius) {
    return Path::roundedRect({center.x - radius, center.y - radius, 2 * radius, 2 * radius}, radius);
}

} // namespace

CurveCorner::CurveCorner(const Rect& frame, const QVMParameter& parameter)
    : QVMFloatControl(frame, parameter), halo_(std::make_shared<ShapeLayer>(YAxis::up)),
      marker_(std::make_shared<ShapeLayer>(YAxis::up)) {
    halo_->setName("cornerHalo");
    halo_->setOpacity(0);
    marker_->setName("cornerMarker");
    for (const auto& part : {halo_, marker_}) {
        part->setFrame(bounds());
        layer()->tree().add(part);
    }
    halo_->setPath(circle(bounds().center(), kHaloRadius));
    setCursor(Cursor::resizeLeftRight);
    animateHighlightToFramePositionRoundingInset(
        bounds().insetBy(bounds().width / 2 - kFocusRadius, bounds().height / 2 - kFocusRadius), {}, kFocusRadius,
        false);
}

double CurveCorner::shownRadius(Shape shape) {
    return shape == Shape::disc ? discRadius + kRim : discRadius;
}

void CurveCorner::setLook(Shape shape, Color ground) {
    shape_ = shape;
    ground_ = ground;
    showLook();
}

void CurveCorner::setOff(bool off) {
    if (std::exchange(off_, off) != off) showLook();
}

void CurveCorner::showLook() {
    const Color ink = QVMUITheme::theme().palette.onAccent;
    const Color shown = off_ ? composite(ink.withAlpha(kOffAlpha), ground_) : ink;
    const bool isDisc = shape_ == Shape::disc;
    const double width = isDisc ? kRim : kRingWidth;
    halo_->setFillColor(ink);
    marker_->setFillColor(isDisc ? shown : ground_);
    marker_->setStrokeColor(isDisc ? ground_ : shown);
    marker_->setLineWidth(width);
    marker_->setPath(circle(bounds().center(), isDisc ? discRadius + width / 2 : discRadius - width / 2));
    highlight()->setStrokeNSColor(ink);
}

void CurveCorner::setFloatValue(float value) {
    QVMFloatControl::setFloatValue(value);
    if (site_) site_->cornerDidChange(*this);
}

void CurveCorner::setHighlit(bool highlit) {
    QVMFloatControl::setHighlit(highlit);
    if (!site_) return;
    highlit ? site_->cornerWasUsed(*this) : site_->cornerWasLeft(*this);
}

void CurveCorner::resetToInitialValue() {
    QVMFloatControl::resetToInitialValue();
    site_->cornerWasUsed(*this);
}

bool CurveCorner::incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) {
    const bool isHandled = QVMFloatControl::incrementWithArrowGranularity(arrow, granularity);
    site_->cornerWasUsed(*this);
    return isHandled;
}

void CurveCorner::handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) {
    pressed_ = true;
    pointerWas_ = site_->pointerX(event.nsEvent);
    fineAt_ = site_->scale().xOf(floatValue());
    clickOffset_ = pointerWas_ - fineAt_;
    showState();
    site_->cornerWasUsed(*this);
}

void CurveCorner::handleMouseDraggedWithEventGranularities(const QVMEvent& event,
                                                           const QVMGranularities& granularities) {
    if (!pressed_) return;
    const double pointer = site_->pointerX(event.nsEvent);
    if (granularities.is != QVMGranularityFine)
        return moveTo(site_->scale().hertzAt(pointer - clickOffset_), granularities.is);
    if (granularities.changed) {
        pointerWas_ = pointer;
        fineAt_ = site_->scale().xOf(floatValue());
    }
    fineAt_ += (pointer - pointerWas_) * fineShare();
    pointerWas_ = pointer;
    moveTo(site_->scale().hertzAt(fineAt_), QVMGranularityFine);
}

void CurveCorner::moveTo(double hertz, std::int32_t granularity) {
    setFloatValue(limitFloat(parameter().normalizeFloatValue(static_cast<float>(hertz), granularity)));
    reportInterfaceInitiatedValueChange();
    site_->cornerWasUsed(*this);
}

// As on a slider that were as long as the parameter's range is here.
double CurveCorner::fineShare() const {
    const CurveScale& scale = site_->scale();
    const double points = scale.xOf(parameter().maxValue) - scale.xOf(parameter().minValue);
    return std::min(fineDragMultiplier(parameter(), floatValue(), points), kFinestShare);
}

void CurveCorner::pressDidEnd(const QVMEvent&) {
    if (!pressed_) return;
    pressed_ = false;
    showState();
    site_->cornerWasLeft(*this);
}

void CurveCorner::setHovered(bool hovered) {
    if (std::exchange(hovered_, hovered) != hovered) showState();
}

void CurveCorner::showState() {
    const Transaction fading = Transaction::animated(kFadeSeconds);
    halo_->setOpacity(pressed_ ? kPressedAlpha : hovered_ ? kHoverAlpha : 0);
}

void CurveCorner::displayTransientBufferValue(const AttributedString& text) {
    typed_ = text.string();
    site_->cornerDidChange(*this);
    site_->cornerWasUsed(*this);
}

void CurveCorner::discardTransientBufferValue() {
    setDisplayingTransientBufferValue(false);
    site_->cornerDidChange(*this);
}

void CurveCorner::setDisplayingTransientBufferValue(bool displaying) {
    typing_ = displaying;
    if (!displaying) typed_.clear();
}

double CurveCorner::transientStringPreferredFontSize() const {
    return kTypedSize;
}

} // namespace QVM_NAMESPACE
