// The part of the slider that is seen: where its layers stand, what they show and how they answer the pointer.
#include "controls/QVMVerticalSlider.h"

#include "controls/QVMFocusBorder.h"
#include "controls/ReadoutText.h"
#include "controls/TextFitting.h"
#include "platform/layer/TextMetrics.h"
#include "platform/layer/Transaction.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace QVM_NAMESPACE {

namespace {

constexpr double kLyingBulbWidth = 76, kUprightBulbWidth = 70; // points, unless a value needs more
constexpr double kScaleTrackDepth = 21; // from the top of a lying slider with a scale to its track's middle
constexpr double kLowMemberMargin = 2;  // above the handle of a pair's low end; the high one's stands at the bottom
constexpr double kReadoutSize = 16, kFocusRounding = 0.5;
constexpr int kWidthSamples = 48;

// What shows inside the track.
class TrackContent final : public View {
public:
    TrackContent(const Rect& track, YAxis axis) : View(track, axis) {
        layer()->setName("trackContent");
        layer()->setMasksToBounds(true);
    }
    View* hitTest(Point) override { return nullptr; }
};

// The text with each digit replaced by one that is as wide as any, so that alike texts are measured once.
std::string digitPattern(std::string text) {
    for (char& c : text) {
        if (c >= '0' && c <= '9') c = '0';
    }
    return text;
}

} // namespace

AttributedString QVMVerticalSlider::formattedReadoutStringForValueSuffixFontSize(
    const std::string& value, const std::optional<std::string>& suffix, double fontSize) {
    return readoutText(value, suffix, fontSize);
}

AttributedString QVMVerticalSlider::potentiallyShrunkenVersionOfString(const AttributedString& text) const {
    return shrunkenToWidth(text, bulb_.textWidth());
}

AttributedString QVMVerticalSlider::textForValue(float value) const {
    std::string text;
    std::optional<std::string> suffix;
    parameter().valueString(&text, &suffix, value);
    return formattedReadoutStringForValueSuffixFontSize(text, suffix, kReadoutSize);
}

void QVMVerticalSlider::sizeReadoutToFitWidestValue() {
    double widest = 0;
    std::set<std::pair<std::string, std::string>> measured;
    for (int i = 0; i <= kWidthSamples; ++i) {
        const float fraction = static_cast<float>(i) / kWidthSamples;
        const float value = parameter().normalizedFloatValueFromPercent(fraction, QVMGranularityFine);
        std::string text;
        std::optional<std::string> suffix;
        parameter().valueString(&text, &suffix, value);
        text = digitPattern(std::move(text));
        if (!measured.emplace(text, suffix.value_or("")).second) continue;
        widest = std::max(widest, sizeOf(readoutText(text, suffix, kReadoutSize)).width);
    }
    const double usual = horizontal_ ? kLyingBulbWidth : kUprightBulbWidth;
    const double needed =
        2 * std::ceil((widest + 2 * ReadoutBulb::textMargin) / 2); // even, so that its middle is a whole point
    bulb_.setWidth(std::max(usual, needed));
    calculateSliderPixelExtents();
}

double QVMVerticalSlider::trackCenter() const {
    if (!horizontal_) return std::floor(frame().width / 2);
    if (!isMember() && SliderScale::hasMarks(parameter())) return frame().height - kScaleTrackDepth;
    return std::floor(frame().height / 2);
}

double QVMVerticalSlider::bulbCenter() const {
    switch (bulb_.pointer()) {
    case BulbPointer::down:
        return frame().height - kLowMemberMargin - ReadoutBulb::height / 2;
    case BulbPointer::up:
        return ReadoutBulb::height / 2;
    case BulbPointer::none:
        break;
    }
    return trackCenter();
}

Rect QVMVerticalSlider::trackRect() const {
    const double half = trackThickness / 2, center = trackCenter();
    const double start = lowest_ - half, length = range() + trackThickness;
    return horizontal_ ? Rect{start, center - half, length, trackThickness}
                       : Rect{center - half, start, trackThickness, length};
}

void QVMVerticalSlider::layOut() {
    const Transaction atOnce = Transaction::disablingActions();
    const QVMPalette& palette = QVMUITheme::theme().palette;
    calculateSliderPixelExtents();

    const Rect track = trackRect();
    background_->setFrame(track);
    background_->look().setCornerRadius(trackThickness / 2);
    background_->look().setBackgroundColor(palette.trackFill);
    background_->look().setBorder(1, palette.trackBorder);
    background_->setHidden(isMember());

    layOutTrackContent();

    scale_.layer()->setFrame(bounds());
    if (!isMember()) {
        const SliderScaleGeometry geometry = {.horizontal = horizontal_,
                                              .trackEdge = horizontal_ ? track.minY() : track.maxX(),
                                              .farEdge = frame().width,
                                              .lowest = lowest_,
                                              .highest = highest_,
                                              .devicePixels = layer()->look().contentsScale()};
        scale_.layOut(parameter(), geometry, [this](float value) { return positionValueFromFloatValue(value); });
    }

    bulb_.style();
    moveBulb(idealHandleValue(), Animate::no);
    const Rect capsule = {0, 0, bulb_.width(), ReadoutBulb::height};
    animateHighlightToFramePositionRoundingInset(capsule.insetBy(0, -1), {}, kFocusRounding, true);
}

void QVMVerticalSlider::placeInTrack(std::unique_ptr<View> view) {
    if (!trackContent_) {
        trackContent_ = &addSubview(std::make_unique<TrackContent>(trackRect(), yAxis()));
        const auto& layers = layer()->tree().sublayers();
        const auto groove = std::find(layers.begin(), layers.end(), background_);
        layer()->tree().insert(trackContent_->layer(), static_cast<std::size_t>(groove - layers.begin()) + 1);
    }
    trackContent_->addSubview(std::move(view));
    layOutTrackContent();
}

void QVMVerticalSlider::layOutTrackContent() {
    if (!trackContent_) return;
    background_->look().setBackgroundColor(QVMUITheme::theme().palette.meterGroove);
    const Rect track = trackRect();
    trackContent_->setFrame(track);
    for (const auto& view : trackContent_->subviews())
        view->setFrame(bounds().offsetBy(-track.x, -track.y));
}

void QVMVerticalSlider::frameDidChange() {
    layOut();
}

void QVMVerticalSlider::themeUpdated() {
    layOut();
    if (!displayingTransientBufferValue_) setDisplayText(floatValue());
}

void QVMVerticalSlider::setDisplayText(float value) {
    if (!displayingTransientBufferValue_) bulb_.setText(textForValue(value));
}

void QVMVerticalSlider::displayTransientBufferValue(const AttributedString& text) {
    bulb_.setText(text);
}

void QVMVerticalSlider::discardTransientBufferValue() {
    setDisplayingTransientBufferValue(false);
    setDisplayText(floatValue());
}

void QVMVerticalSlider::setDisplayingTransientBufferValue(bool displaying) {
    displayingTransientBufferValue_ = displaying;
    bulb_.setTyping(displaying);
}

double QVMVerticalSlider::transientStringPreferredFontSize() const {
    return kReadoutSize;
}

void QVMVerticalSlider::mouseMoved(const Event& event) {
    const Point point = coordinates().fromWindow(event.locationInWindow);
    const std::vector<QVMCueRect>& cues = cueRects();
    isHandleHovered_ = isOnHandle(point);
    isHandlePressed_ = false; // no button is down, even if its release was not ours to see
    const bool isOnCue =
        std::any_of(cues.begin(), cues.end(), [&](const auto& cue) { return cue.rect.contains(point); });
    setCursor(!isDisabled() && (isHandleHovered_ || isOnCue) ? Cursor::pointingHand : Cursor::arrow);
    showBulbState();
}

void QVMVerticalSlider::mouseExited(const Event&) {
    isHandleHovered_ = false;
    showBulbState();
}

void QVMVerticalSlider::showBulbState() {
    const bool isHovered = isHandleHovered_ && !isDisabled() && !dimmed();
    bulb_.setState(isHandlePressed_ ? BulbState::pressed : isHovered ? BulbState::hovered : BulbState::normal);
}

} // namespace QVM_NAMESPACE
