#include "editor/surface/CurveReadout.h"

#include "editor/surface/FrameButton.h"
#include "editor/surface/ScaleGrip.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "platform/layer/TextMetrics.h"
#include "platform/layer/Transaction.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace QVM_NAMESPACE {

namespace {

constexpr double kFontSize = 10, kPlateHeight = FrameButton::size.height, kPadding = 6,
                 kColumnGap = 7;             // points
constexpr double kEdge = FrameButton::inset; // points, between the plate and the box; in line with the button
constexpr double kFloor = 14;                // points at the lower edge that the frequencies have
constexpr double kPlateFloor = ScaleGrip::size.height + ScaleGrip::inset; // and that a plate near it leaves
constexpr double kClearance = 9;                                          // points, from the plate to what is read
constexpr double kDotSize = 7, kDotRing = 1.5;                            // points
constexpr float kHairAlpha = 0.55f, kPlateShade = 0.5f, kCentsAlpha = 0.75f;
constexpr double kFadeSeconds = 0.12;
// The widest that is shown in each column.
constexpr const char* kWidest[] = {"20.0 kHz", "+20.0 dB", "G#10"};
constexpr const char* kWidestCents = " +50 ct";

Font font() {
    return QVMUITheme::appropriateFontForValueSizeIconSize("0", kFontSize, kFontSize);
}

double roomFor(const char* text) {
    return std::ceil(widthOf(text, font()));
}

} // namespace

CurveReadout::CurveReadout()
    : layer_(std::make_shared<Layer>()), hairLine_(std::make_shared<Layer>()), plate_(std::make_shared<Layer>()),
      dot_(std::make_shared<ShapeLayer>()) {
    layer_->setName("curveReadout");
    layer_->setOpacity(0);
    hairLine_->setName("hairLine");
    dot_->setName("curveDot");
    dot_->setBounds({0, 0, kDotSize, kDotSize});
    dot_->setLineWidth(kDotRing);
    dot_->setPath(Path::roundedRect(dot_->bounds().insetBy(kDotRing / 2, kDotRing / 2), kDotSize));
    plate_->setName("curvePlate");
    plate_->look().setCornerRadius(radii::mark);
    layer_->tree().add(hairLine_);
    layer_->tree().add(dot_);
    layer_->tree().add(plate_);
    constexpr const char* names[] = {"readFrequency", "readLevel", "readNote"};
    for (std::size_t i = 0; i < columns; ++i) {
        texts_[i] = std::make_shared<TextLayer>();
        texts_[i]->setName(names[i]);
        texts_[i]->setAlignment(TextAlignment::left, TextPlacement::middle);
        plate_->tree().add(texts_[i]);
    }
}

void CurveReadout::setColors(Color ground) {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    const Color plate = composite(palette.shade.withAlpha(kPlateShade), ground);
    hairLine_->look().setBackgroundColor(palette.onAccent.withAlpha(kHairAlpha));
    dot_->setFillColor(palette.onAccent);
    dot_->setStrokeColor(ground);
    plate_->look().setBackgroundColor(plate);
    ink_ = contrasted(palette.onAccent, plate);
    quietInk_ = contrasted(composite(palette.onAccent.withAlpha(kCentsAlpha), plate), plate);
    showTexts();
}

void CurveReadout::layOutIn(Size box, const Rect& keptFree) {
    if (box == box_ && keptFree == keptFree_) return;
    box_ = box;
    keptFree_ = keptFree;
    layer_->setFrame({0, 0, box.width, box.height});
    for (std::size_t i = 0; i < columns; ++i)
        widths_[i] = roomFor(kWidest[i]);
    centsWidth_ = roomFor(kWidestCents);
    showTexts();
    place();
}

void CurveReadout::show(const Content& content) {
    isShown_ = true;
    content_ = content;
    showTexts();
    place();
    layer_->animations().removeAll();
    layer_->setOpacity(1);
}

void CurveReadout::hide() {
    if (!isShown_) return;
    isShown_ = false;
    const Transaction fading = Transaction::animated(kFadeSeconds);
    layer_->setOpacity(0);
}

bool CurveReadout::showsCents() const {
    const double all =
        std::accumulate(widths_.begin(), widths_.end(), centsWidth_ + 2 * kPadding + (columns - 1) * kColumnGap);
    return !content_.cents.empty() && all <= box_.width - 2 * kEdge;
}

void CurveReadout::showTexts() {
    const std::string* const shown[] = {&content_.frequency, &content_.level, &content_.note};
    for (std::size_t i = 0; i < columns; ++i) {
        AttributedString text(*shown[i], font(), ink_);
        if (i == note && showsCents()) text.append({" " + content_.cents, font(), quietInk_});
        texts_[i]->setString(text);
    }
}

void CurveReadout::placeColumns() {
    double x = kPadding;
    for (std::size_t i = 0; i < columns; ++i) {
        const bool isShown = !texts_[i]->string().isEmpty();
        texts_[i]->setHidden(!isShown);
        if (!isShown) continue;
        if (x > kPadding) x += kColumnGap;
        const double width = widths_[i] + (i == note && showsCents() ? centsWidth_ : 0);
        texts_[i]->setFrame({x, 0, width, kPlateHeight});
        x += width;
    }
    plateWidth_ = x + kPadding;
}

std::array<Rect, 2> CurveReadout::frames() const {
    if (!isShown_) return {};
    return {plate_->frame(), hairLine_->frame()};
}

void CurveReadout::place() {
    placeColumns();
    const double pixels = layer_->look().contentsScale();
    const auto onPixel = [pixels](double at) { return std::round(at * pixels) / pixels; };
    const double roomAbove = keptFree_.isEmpty() ? box_.width - kEdge : keptFree_.x - kEdge;
    const bool isBelow = content_.at.y < kEdge + kPlateHeight + kClearance || roomAbove < kEdge + plateWidth_;
    const double right = isBelow ? box_.width - kEdge : roomAbove;
    const double x = std::max(kEdge, std::min(content_.at.x - plateWidth_ / 2, right - plateWidth_));
    const double y = isBelow ? box_.height - kPlateFloor - kPlateHeight : kEdge;
    plate_->setFrame({onPixel(x), onPixel(y), plateWidth_, kPlateHeight});
    const double from = isBelow ? 0 : kEdge + kPlateHeight, to = isBelow ? y : box_.height - kFloor;
    hairLine_->setFrame({onPixel(content_.at.x - 0.5), from, 1, to - from});
    dot_->setPosition(content_.at);
    dot_->setHidden(content_.at.y <= 0 || content_.at.y >= box_.height); // the curve has left the box there
}

} // namespace QVM_NAMESPACE
