#include "editor/surface/CurveMarks.h"

#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "theme/Colors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double kTickHeight = 3, kTickWidth = 1; // points

} // namespace

CurveMarks::CurveMarks() : layer_(std::make_shared<Layer>()), ticks_(std::make_shared<ShapeLayer>()) {
    layer_->setName("curveMarks");
    ticks_->setName("curveTicks");
    layer_->tree().add(ticks_);
}

void CurveMarks::setColor(Color color) {
    color_ = color;
    ticks_->setFillColor(color);
    for (Texts* texts : {&frequencyTexts_, &levelTexts_})
        for (const auto& [text, shown] : *texts)
            shown->setString({text, curveMarkFont(), color});
}

void CurveMarks::follow(const QVMFreqResp& display, const std::vector<Rect>& keptFree) {
    const CurveScale scale(display);
    const double pixels = layer_->look().contentsScale();
    if (scale.size != scale_.size || pixels != pixels_) {
        scale_ = scale;
        pixels_ = pixels;
        layer_->setFrame({0, 0, scale.size.width, scale.size.height});
        frequencies_ = frequencyMarks(scale);
        drawTicks();
        show(frequencies_, frequencyTexts_);
    }
    if (scale == levelScale_ && display.referenceLevel == reference_ && keptFree == keptFree_) return;
    levelScale_ = scale;
    reference_ = display.referenceLevel;
    keptFree_ = keptFree;
    std::vector<float> levels = display.gridLevels();
    levels.push_back(reference_);
    std::sort(levels.begin(), levels.end());
    levels_ = levelMarks(scale, levels, reference_, keptFree);
    show(levels_, levelTexts_);
}

void CurveMarks::show(const std::vector<CurveMark>& marks, Texts& texts) {
    for (const auto& [text, shown] : texts)
        shown->setHidden(true);
    for (const CurveMark& mark : marks) {
        std::shared_ptr<TextLayer>& shown = texts[mark.text];
        if (!shown) {
            shown = std::make_shared<TextLayer>();
            shown->setName("curveMark:" + mark.text);
            shown->setAlignment(TextAlignment::left, TextPlacement::middle);
            shown->setString({mark.text, curveMarkFont(), color_});
            layer_->tree().add(shown);
        }
        shown->setFrame(mark.box);
        shown->setHidden(isCovered(mark));
    }
}

void CurveMarks::giveWayTo(std::vector<Rect> boxes) {
    if (boxes == over_) return;
    over_ = std::move(boxes);
    for (const CurveMark& mark : frequencies_)
        frequencyTexts_.at(mark.text)->setHidden(isCovered(mark));
    for (const CurveMark& mark : levels_)
        levelTexts_.at(mark.text)->setHidden(isCovered(mark));
}

bool CurveMarks::isCovered(const CurveMark& mark) const {
    return std::ranges::any_of(over_, [&](const Rect& box) { return box.intersects(mark.box); });
}

std::vector<CurveMark> CurveMarks::marks() const {
    std::vector<CurveMark> all = frequencies_;
    all.insert(all.end(), levels_.begin(), levels_.end());
    return all;
}

void CurveMarks::drawTicks() {
    Path path;
    for (const CurveMark& mark : frequencies_)
        path.addRect({std::round((mark.at - kTickWidth / 2) * pixels_) / pixels_, 0, kTickWidth, kTickHeight});
    ticks_->setFrame({0, scale_.size.height - kTickHeight, scale_.size.width, kTickHeight});
    ticks_->setPath(std::move(path));
}

} // namespace QVM_NAMESPACE
