#include "controls/SliderScale.h"

#include "description/NumberText.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace QVM_NAMESPACE {

namespace {

constexpr double kTextSize = 9.5, kTextKern = 0.2, kSymbolSize = 12;
constexpr double kLineWidth = 1, kLineLength = 4;           // points
constexpr double kLineGapBelow = 4.5, kLineGapBeside = 4.5; // from the edge to a line
constexpr double kTextGap = 10.5;                           // from the edge to a text beside it
constexpr double kTextDrop = 12, kTextHeight = 12, kTextWidth = 34;
constexpr double kLeastDistanceBeside = 10, kLeastDistanceBelow = 24; // between two texts

// The value's own name where it has one, else its number as a mark.
std::string markText(const QVMParameter& parameter, float value) {
    const std::string own = parameter.stringForValue(value);
    const bool isNamed = !own.empty() && own.find_first_of("0123456789") == std::string::npos;
    return isNamed ? own : parameter.displayStringFromCueValue(value);
}

// As it is set: a number has a minus, not a hyphen.
std::string typeset(std::string text) {
    const bool isNegativeNumber = text.size() > 1 && text[0] == '-' && text[1] >= '0' && text[1] <= '9';
    return isNegativeNumber ? text.replace(0, 1, minusSign) : text;
}

std::set<float> markValues(const QVMParameter& parameter) {
    std::set<float> values;
    for (const auto* list : {&parameter.cueSymbolPositions, &parameter.displayTickmarks, &parameter.tickmarks})
        values.insert(list->begin(), list->end());
    return values;
}

} // namespace

SliderScale::SliderScale()
    : layer_(std::make_shared<Layer>(YAxis::up)), lines_(std::make_shared<ShapeLayer>(YAxis::up)) {
    layer_->setName("scale");
    lines_->setName("tickmarks");
}

bool SliderScale::hasMarks(const QVMParameter& parameter) {
    return !markValues(parameter).empty() || parameter.cueSymbols.size() > 1;
}

std::vector<SliderScale::Mark> SliderScale::marksOf(const QVMParameter& parameter, const SliderScaleGeometry& geometry,
                                                    const PositionOfValue& position) {
    std::vector<Mark> all;
    for (const float value : markValues(parameter))
        all.push_back({position(value), value, false, markText(parameter, value)});
    if (all.empty()) { // symbols without values stand at even distances
        const std::size_t count = parameter.cueSymbols.size();
        for (std::size_t i = 0; count > 1 && i < count; ++i) {
            const double fraction = static_cast<double>(i) / static_cast<double>(count - 1);
            const double at = geometry.lowest + fraction * (geometry.highest - geometry.lowest);
            all.push_back({at, 0, true, parameter.cueSymbols[i]});
        }
        return all;
    }

    const double least = geometry.horizontal ? kLeastDistanceBelow : kLeastDistanceBeside;
    std::vector<Mark> kept;
    const auto keep = [&](const Mark& mark) {
        const bool isFree = std::all_of(kept.begin(), kept.end(), [&](const Mark& other) {
            return std::abs(other.position - mark.position) >= least;
        });
        if (isFree) kept.push_back(mark);
    };
    keep(all.back());
    keep(all.front());
    std::for_each(all.rbegin(), all.rend(), keep);
    return kept;
}

void SliderScale::layOut(const QVMParameter& parameter, const SliderScaleGeometry& geometry,
                         const PositionOfValue& position) {
    const std::vector<std::shared_ptr<Layer>> old = layer_->tree().sublayers();
    for (const std::shared_ptr<Layer>& sublayer : old)
        sublayer->tree().removeFromSuperlayer();
    layer_->tree().add(lines_);
    cueRects_.clear();
    Path lines;
    for (const Mark& mark : marksOf(parameter, geometry, position))
        addMark(mark, geometry, lines);
    lines_->setFillColor(QVMUITheme::theme().palette.tick);
    lines_->setPath(std::move(lines));
}

void SliderScale::addMark(const Mark& mark, const SliderScaleGeometry& geometry, Path& lines) {
    const auto snapped = [&](double x) { return std::ceil(x * geometry.devicePixels - 0.5) / geometry.devicePixels; };
    const double edge = geometry.edge, start = snapped(mark.position - kLineWidth / 2);
    Rect textBox;
    if (geometry.horizontal) {
        lines.addRect({start, snapped(edge - kLineGapBelow - kLineLength), kLineWidth, kLineLength});
        textBox = {mark.position - kTextWidth / 2, edge - kTextDrop - kTextHeight + 2, kTextWidth, kTextHeight};
        cueRects_.push_back({{textBox.x, textBox.y, kTextWidth, edge - textBox.y}, mark.indexed, mark.value});
    } else {
        lines.addRect({snapped(edge + kLineGapBeside), start, kLineLength, kLineWidth});
        textBox = {edge + kTextGap, mark.position - kTextHeight / 2, geometry.farEdge - edge - kTextGap, kTextHeight};
        const double cueHeight = std::min(kTextHeight, kLeastDistanceBeside);
        cueRects_.push_back(
            {{edge, mark.position - cueHeight / 2, geometry.farEdge - edge, cueHeight}, mark.indexed, mark.value});
    }

    const QVMUITheme& theme = QVMUITheme::theme();
    const Font font = mark.indexed ? QVMUITheme::appropriateFontForValueSizeIconSize(mark.text, kSymbolSize, 0)
                                   : QVMUITheme::unitFontOfSize(kTextSize);
    AttributedString text(typeset(mark.text), font, theme.labelColorGivenInk(theme.palette.labelInk));
    text.runs.front().kern = kTextKern;
    auto label = std::make_shared<TextLayer>(YAxis::up);
    label->setName("mark " + mark.text);
    label->setAlignment(geometry.horizontal ? TextAlignment::center : TextAlignment::left);
    label->setFrame(textBox);
    label->look().setContentsScale(geometry.devicePixels);
    label->setString(text);
    layer_->tree().add(std::move(label));
}

} // namespace QVM_NAMESPACE
