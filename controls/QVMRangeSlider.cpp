#include "controls/QVMRangeSlider.h"

#include "controls/QVMFocusBorder.h"
#include "platform/layer/TextMetrics.h"
#include "platform/layer/Transaction.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr float kBandAlpha = 0.45f;
constexpr double kFocusRounding = radii::mark;

// The track marks frequencies like logarithmic paper; these are told in numbers, in place of their marks.
struct FrequencyNumber {
    float hertz;
    const char* text;
};
constexpr FrequencyNumber kNumbers[] = {{100, "100"}, {1000, "1k"}, {10000, "10k"}};
constexpr float kLowestDecade = 1, kDecade = 10;                     // hertz
constexpr double kDecadeLength = 8, kStepLength = 4, kTickWidth = 1; // points
constexpr double kNumberSize = 9, kNumberKern = 0.2;
constexpr double kNumberMargin = 2.5; // points that a number keeps from the marks

} // namespace

QVMRangeSlider::QVMRangeSlider(const Rect& frame, const QVMParameter& parameter)
    : QVMVerticalSlider(frame, parameter), band_(std::make_shared<Layer>(YAxis::up)),
      hoverLight_(std::make_shared<Layer>(YAxis::up)), numberLayer_(std::make_shared<Layer>(YAxis::up)),
      ticks_(std::make_shared<ShapeLayer>(YAxis::up)) {
    band_->setName("band");
    hoverLight_->setName("bandHover");
    numberLayer_->setName("frequencies");
    ticks_->setName("frequencyTicks");
    for (const std::shared_ptr<Layer>& added : {band_, numberLayer_, std::shared_ptr<Layer>(ticks_), hoverLight_})
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
    numberLayer_->setHidden(interactive);
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
    layOutFrequencies();
}

void QVMRangeSlider::layOutFrequencies() {
    layOutNumbers();
    ticks_->setFrame(bounds());
    ticks_->setFillColor(QVMUITheme::theme().palette.tick);
    ticks_->setPath(ticks());
}

void QVMRangeSlider::layOutNumbers() {
    for (const std::shared_ptr<TextLayer>& number : numbers_)
        number->tree().removeFromSuperlayer();
    numbers_.clear();
    numberLayer_->setFrame(bounds());
    if (parameter().unit != QVMUnitHertz || !horizontal()) return;
    const QVMUITheme& theme = QVMUITheme::theme();
    const Color inBand = composite(band_->look().backgroundColor(), theme.palette.trackFill);
    const Color ink = contrasted(theme.labelColorGivenInk(theme.palette.labelInk), inBand);
    const Rect track = layers().trackRect();
    for (const FrequencyNumber& shown : kNumbers) {
        if (shown.hertz < parameter().minValue || shown.hertz > parameter().maxValue) continue;
        AttributedString text(shown.text, QVMUITheme::unitFontOfSize(kNumberSize), ink);
        text.runs.front().kern = kNumberKern;
        auto number = std::make_shared<TextLayer>(YAxis::up);
        number->setName(std::string("frequency ") + shown.text);
        number->setAlignment(TextAlignment::center, TextPlacement::middle);
        const double width = 2 * std::ceil(sizeOf(text).width / 2 + kNumberMargin);
        number->setFrame({positionValueFromFloatValue(shown.hertz) - width / 2, track.y, width, track.height});
        number->look().setContentsScale(layer()->look().contentsScale());
        number->setString(text);
        numberLayer_->tree().add(number);
        numbers_.push_back(std::move(number));
    }
}

Path QVMRangeSlider::ticks() const {
    Path lines;
    if (parameter().unit != QVMUnitHertz) return lines;
    const Rect track = layers().trackRect();
    const double pixels = layer()->look().contentsScale();
    const auto add = [&](float hertz, double length) {
        const double position = positionValueFromFloatValue(hertz);
        const bool isInNumber = std::any_of(numbers_.begin(), numbers_.end(), [&](const auto& number) {
            return std::abs(position - number->position().x) <= number->bounds().width / 2;
        });
        if (isInNumber || hertz < parameter().minValue || hertz > parameter().maxValue) return;
        const double at = std::round((position - kTickWidth / 2) * pixels) / pixels;
        const double across = (SliderLayers::trackThickness - length) / 2;
        lines.addRect(horizontal() ? Rect{at, track.y + across, kTickWidth, length}
                                   : Rect{track.x + across, at, length, kTickWidth});
    };
    for (float decade = kLowestDecade; decade <= parameter().maxValue; decade *= kDecade) {
        add(decade, kDecadeLength);
        for (float step = 2; step < kDecade; ++step)
            add(step * decade, kStepLength);
    }
    return lines;
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
