#include "controls/SliderLayers.h"

#include "controls/ReadoutText.h"
#include "platform/layer/TextMetrics.h"
#include "platform/layer/Transaction.h"
#include "theme/Colors.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double kHorizontalBulbOverhang = 58; // a lying track reaches below its handle's ends by this much
constexpr double kLyingBulbWidth = 76, kUprightBulbWidth = 61; // points, unless a value needs more
constexpr double kUprightRoom = 6;      // above and below an upright handle, so that its border meets no heading
constexpr double kUprightCenter = 36.5; // from the left edge, of an upright track with a scale at its right
constexpr float kFillAlpha = 0.45f;
constexpr double kScaleTrackDepth = 21; // from the top of a lying slider with a scale to its track's middle
constexpr double kLowMemberMargin = 2;  // above the handle of a pair's low end; the high one's stands at the bottom
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

struct ValueText {
    std::string value;
    std::optional<std::string> unit;
};

ValueText textOf(const QVMParameter& parameter, float value) {
    ValueText text;
    parameter.valueString(&text.value, &text.unit, value);
    return text;
}

// The text with each digit replaced by one that is as wide as any, so that alike texts are measured once.
std::string digitPattern(std::string text) {
    for (char& c : text) {
        if (c >= '0' && c <= '9') c = '0';
    }
    return text;
}

double widestReadout(const QVMParameter& parameter) {
    double widest = 0;
    std::set<std::pair<std::string, std::string>> measured;
    for (int i = 0; i <= kWidthSamples; ++i) {
        const float fraction = static_cast<float>(i) / kWidthSamples;
        const float value = parameter.normalizedFloatValueFromPercent(fraction, QVMGranularityFine);
        const ValueText text = textOf(parameter, value);
        const std::string pattern = digitPattern(text.value);
        if (!measured.emplace(pattern, text.unit.value_or("")).second) continue;
        widest = std::max(widest, sizeOf(readoutText(pattern, text.unit, SliderLayers::readoutSize)).width);
    }
    return widest;
}

BulbPointer pointerFor(const QVMParameter& parameter) {
    if (parameter.range.empty()) {
        if (!SliderScale::hasMarks(parameter)) return BulbPointer::none;
        return parameter.horizontal ? BulbPointer::shortDown : BulbPointer::shortRight;
    }
    return parameter.range.boolValue("low") ? BulbPointer::down : BulbPointer::up;
}

} // namespace

SliderLayers::SliderLayers(View& slider, const QVMParameter& parameter)
    : slider_(slider), parameter_(parameter), axis_{.horizontal = parameter.horizontal},
      background_(std::make_shared<Layer>(YAxis::up)), fill_(std::make_shared<Layer>(YAxis::up)),
      bulb_(QVMCGColor(parameter.color), pointerFor(parameter), parameter.horizontal ? 0 : kUprightRoom) {
    background_->setName("track");
    fill_->setName("fill");
    slider_.layer()->tree().add(background_);
    slider_.layer()->tree().add(fill_);
    slider_.layer()->tree().add(scale_.layer());
    slider_.layer()->tree().add(bulb_.bulb());
    sizeHandleToFitWidestValue();
}

void SliderLayers::calculateExtents() {
    const Size size = slider_.bounds().size();
    axis_.lowest = axis_.horizontal ? bulb_.width() - kHorizontalBulbOverhang : bulb_.fullHeight();
    axis_.highest = (axis_.horizontal ? size.width : size.height) - axis_.lowest;
}

void SliderLayers::sizeHandleToFitWidestValue() {
    const double usual = axis_.horizontal ? kLyingBulbWidth : kUprightBulbWidth;
    const double needed = widestReadout(parameter_) + 2 * ReadoutBulb::textMargin;
    // Wider by whole points at either side, so that its middle stays where it was on the grid of points.
    bulb_.setWidth(usual + 2 * std::max(0.0, std::ceil((needed - usual) / 2)));
    calculateExtents();
}

double SliderLayers::trackCenter() const {
    const Size size = slider_.bounds().size();
    if (!axis_.horizontal) return hasScale() ? kUprightCenter : std::floor(size.width / 2);
    if (hasScale()) return size.height - kScaleTrackDepth;
    return std::floor(size.height / 2);
}

double SliderLayers::handleCenter() const {
    if (bulb_.pointer() == BulbPointer::down)
        return slider_.bounds().height - kLowMemberMargin - ReadoutBulb::height / 2;
    return bulb_.pointer() == BulbPointer::up ? ReadoutBulb::height / 2 : trackCenter();
}

Rect SliderLayers::trackRect() const {
    const double half = thickness() / 2, center = trackCenter();
    const double start = axis_.lowest - std::floor(half), length = axis_.range() + 2 * std::floor(half);
    return axis_.horizontal ? Rect{start, center - half, length, thickness()}
                            : Rect{center - half, start, thickness(), length};
}

void SliderLayers::layOut(const SliderScale::PositionOfValue& position) {
    const Transaction atOnce = Transaction::disablingActions();
    const QVMPalette& palette = QVMUITheme::theme().palette;
    calculateExtents();
    background_->setFrame(trackRect());
    background_->look().setCornerRadius(thickness() / 2);
    background_->look().setBackgroundColor(palette.trackFill);
    background_->look().setBorder(1, palette.trackBorder);
    background_->setHidden(isMember());
    layOutTrackContent();
    layOutFill(position);
    layOutScale(position);
    bulb_.style();
}

void SliderLayers::layOutScale(const SliderScale::PositionOfValue& position) {
    scale_.layer()->setFrame(slider_.bounds());
    if (isMember()) return;
    const Rect track = trackRect();
    const SliderScaleGeometry geometry = {.horizontal = axis_.horizontal,
                                          .edge = axis_.horizontal ? track.minY() : trackCenter() + bulb_.width() / 2,
                                          .farEdge = slider_.bounds().width,
                                          .lowest = axis_.lowest,
                                          .highest = axis_.highest,
                                          .devicePixels = slider_.layer()->look().contentsScale()};
    scale_.layOut(parameter_, geometry, position);
}

void SliderLayers::layOutFill(const SliderScale::PositionOfValue& position) {
    fill_->setHidden(isMember() || parameter_.minValue >= 0 || parameter_.minValue != -parameter_.maxValue);
    if (fill_->isHidden()) return;
    fill_->look().setBackgroundColor(QVMCGColor(parameter_.color).withAlpha(kFillAlpha));
    zeroPosition_ = position(0);
    placeFill(handlePosition());
}

void SliderLayers::placeFill(double position) {
    const double from = std::min(zeroPosition_, position), length = std::abs(position - zeroPosition_);
    const Rect track = trackRect();
    fill_->setFrame(axis_.horizontal ? Rect{from, track.y, length, track.height}
                                     : Rect{track.x, from, track.width, length});
}

void SliderLayers::addInTrack(std::unique_ptr<View> view) {
    if (!trackContent_) {
        trackContent_ = &slider_.addSubview(std::make_unique<TrackContent>(trackRect(), slider_.yAxis()));
        LayerTree& tree = slider_.layer()->tree();
        const auto groove = std::find(tree.sublayers().begin(), tree.sublayers().end(), background_);
        tree.insert(trackContent_->layer(), static_cast<std::size_t>(groove - tree.sublayers().begin()) + 1);
    }
    trackContent_->addSubview(std::move(view));
    layOutTrackContent();
}

void SliderLayers::layOutTrackContent() {
    if (!trackContent_) return;
    const Rect track = trackRect();
    trackContent_->setFrame(track);
    for (const auto& view : trackContent_->subviews())
        view->setFrame(slider_.bounds().offsetBy(-track.x, -track.y));
}

void SliderLayers::moveHandle(double position, Animate animate) {
    const Transaction transaction =
        animate == Animate::yes ? Transaction::animated(glideSeconds) : Transaction::disablingActions();
    bulb_.bulb()->setPosition(axis_.pointAt(position, handleCenter()));
    if (!fill_->isHidden()) placeFill(position);
}

bool SliderLayers::isHandleGliding() const {
    return axis_.coordinateOf(bulb_.bulb()->presentation().position) != handlePosition();
}

void SliderLayers::showValue(float value) {
    const ValueText text = textOf(parameter_, value);
    bulb_.setText(readoutText(text.value, text.unit, readoutSize));
}

const QVMCueRect* SliderLayers::cueAt(Point point) const {
    const auto hit =
        std::find_if(cueRects().begin(), cueRects().end(), [&](const auto& cue) { return cue.rect.contains(point); });
    return hit == cueRects().end() ? nullptr : &*hit;
}

} // namespace QVM_NAMESPACE
