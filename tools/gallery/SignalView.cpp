#include "tools/gallery/SignalView.h"

#include "description/NumberText.h"
#include "theme/QVMUITheme.h"
#include "tools/gallery/Accent.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kSmoothingSeconds = 0.1, kFloorDb = -60;
constexpr double kBarHeight = 12, kTextHeight = 20, kGap = 4; // points

double decibels(double square) {
    return std::max(10 * std::log10(std::max(square, 1e-12)), kFloorDb);
}

} // namespace

SignalView::SignalView(const Rect& frame, StereoFeed& feed) : View(frame), sampleRateHz_(feed.sampleRateHz()) {
    const double pitch = bounds().height / static_cast<double>(bars_.size());
    const char* const names[] = {"Left", "Right", "Alike"};
    for (std::size_t i = 0; i < bars_.size(); ++i)
        bars_[i] = addBar(names[i], pitch * static_cast<double>(i) + (pitch - kTextHeight - kGap - kBarHeight) / 2);
    redraw();
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { redraw(); });
    feed_ = feed.listen([this](auto left, auto right) { hear(left, right); });
}

SignalView::Bar SignalView::addBar(const char* name, double y) {
    Bar bar{std::make_shared<Layer>(), std::make_shared<Layer>(), std::make_shared<TextLayer>(),
            std::make_shared<TextLayer>()};
    for (const std::shared_ptr<Layer>& part :
         {bar.track, bar.fill, std::shared_ptr<Layer>(bar.label), std::shared_ptr<Layer>(bar.reading)})
        layer()->tree().add(part);
    bar.label->setName(name);
    bar.label->setAlignment(TextAlignment::left);
    bar.reading->setAlignment(TextAlignment::right);
    bar.label->setFrame({0, y, bounds().width / 2, kTextHeight});
    bar.reading->setFrame({bounds().width / 2, y, bounds().width / 2, kTextHeight});
    bar.track->setFrame({0, y + kTextHeight + kGap, bounds().width, kBarHeight});
    bar.track->look().setCornerRadius(kBarHeight / 2);
    bar.fill->look().setCornerRadius(kBarHeight / 2);
    return bar;
}

void SignalView::hear(std::span<const float> left, std::span<const float> right) {
    const double keep = std::exp(-1 / (kSmoothingSeconds * sampleRateHz_));
    for (std::size_t i = 0; i < left.size(); ++i) {
        const double l = static_cast<double>(left[i]), r = static_cast<double>(right[i]);
        left_ = keep * left_ + (1 - keep) * l * l;
        right_ = keep * right_ + (1 - keep) * r * r;
        product_ = keep * product_ + (1 - keep) * l * r;
    }
    redraw();
}

double SignalView::levelDb(std::size_t side) const {
    return decibels(side == 0 ? left_ : right_);
}

double SignalView::correlation() const {
    const double scale = std::sqrt(left_ * right_);
    return scale > 0 ? std::clamp(product_ / scale, -1.0, 1.0) : 0;
}

void SignalView::setBar(const Bar& bar, double from, double to, const std::string& reading) {
    const QVMUITheme& theme = QVMUITheme::theme();
    const QVMPalette& palette = theme.palette;
    const Rect track = bar.track->frame();
    bar.track->look().setBackgroundColor(palette.trackFill);
    bar.track->look().setBorder(1, palette.trackBorder);
    bar.fill->look().setBackgroundColor(galleryAccent);
    bar.fill->setFrame(
        {track.x + track.width * std::min(from, to), track.y, track.width * std::abs(to - from), track.height});
    bar.label->setString(
        {bar.label->name(), QVMUITheme::unitFontOfSize(12), theme.labelColorGivenInk(palette.labelInk)});
    bar.reading->setString({reading, QVMUITheme::appropriateFontForValueSizeIconSize(reading, 14, 0), theme.textColor});
}

void SignalView::redraw() {
    for (std::size_t side = 0; side < 2; ++side)
        setBar(bars_[side], 0, 1 - levelDb(side) / kFloorDb, FixedText(levelDb(side), 1) + " dB");
    setBar(bars_[2], 0.5, (correlation() + 1) / 2, FixedText(correlation(), 2));
}

} // namespace QVM_NAMESPACE
