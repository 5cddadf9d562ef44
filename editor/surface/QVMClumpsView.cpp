#include "editor/surface/QVMClumpsView.h"

#include "editor/surface/EdgeInsets.h"
#include "editor/surface/HeaderFooter.h"
#include "editor/surface/QVMBase64Decoder.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double lineWidth = 1, headerHeight = 30; // points; as high as the preset bar beside it

// Lines are given with y upwards. Each becomes a thin box whose edge, not its middle, stands on the line, so that it
// covers whole pixels at every scale.
Rect boxForLine(const QVMLineSegment& line, double height) {
    const double left = std::min(line.from.x, line.to.x), top = height - std::max(line.from.y, line.to.y);
    const double width = std::abs(line.to.x - line.from.x), tall = std::abs(line.to.y - line.from.y);
    return {left, top, width > 0 ? width : lineWidth, tall > 0 ? tall : lineWidth};
}

// A line along the area's own edge parts nothing.
bool liesOnEdge(const QVMLineSegment& line, const Rect& area) {
    const auto along = [](double from, double to, double end) { return from == to && (from == 0 || from == end); };
    return along(line.from.y, line.to.y, area.height) || along(line.from.x, line.to.x, area.width);
}

} // namespace

QVMClumpsView::QVMClumpsView(const Rect& frame, const QVMConfig& config, ClumpsArea clumpsArea)
    : ThemedView(frame), config_(config), area_(clumpsArea) {
    layer()->setName(advanced() ? "advClumpsView" : "clumpsView");
    addPanels();
    addHeader();
    addDividers();
    themeUpdated();
}

void QVMClumpsView::setInset(std::map<std::string, double> inset) {
    inset_ = std::move(inset);
    layOutPanels();
}

void QVMClumpsView::setDrawOutsideBorder(bool draw) {
    drawOutsideBorder_ = draw;
    themeUpdated();
}

void QVMClumpsView::themeUpdated() {
    const QVMUITheme& theme = QVMUITheme::theme();
    layer()->look().setBackgroundColor(advanced() ? theme.palette.drawer : theme.backgroundColor);
    layer()->look().setBackgroundPattern(advanced() ? theme.backgroundPattern : nullptr);
    layer()->look().setBorder(drawOutsideBorder_ ? lineWidth : 0, theme.interiorBorderColor);
    for (const Panel& panel : panels_)
        panel.layer->look().setBackgroundColor(panel.depictsSound ? theme.palette.sidePanel : theme.backgroundColor);
    for (const auto& divider : dividers_)
        divider->look().setBackgroundColor(theme.interiorBorderColor);
    if (header_) QVMFillGenericHeaderFooterOnEdge(*header_, bounds(), QVMEdge::top, headerHeight);
    if (banner_) banner_->setColor(theme.labelColorGivenInk(theme.palette.labelInk));
}

void QVMClumpsView::addPanels() {
    if (advanced()) return; // one clump, one surface: the view's own
    config_.enumerateClumpsOfType(QVMClumpTypeOrdinary, [this](QVMClump& clump) {
        auto panel = std::make_shared<Layer>();
        panel->setName("panel:" + clump.codesafeName);
        layer()->tree().add(panel);
        panels_.push_back({panel, clump.frame, !clump.sketches.empty()});
    });
    layOutPanels();
}

void QVMClumpsView::layOutPanels() {
    const Rect area = insetByEdges(bounds(), inset_);
    for (const Panel& panel : panels_)
        panel.layer->setFrame(panel.frame.intersectionWith(area));
}

void QVMClumpsView::addDividers() {
    const std::size_t group = advanced() ? 1 : 0; // the groups of lines are in the order of the areas
    const auto& groups = config_.metadata->layoutEdges;
    if (group >= groups.size()) return;
    for (const QVMLineSegment& line : groups[group]) {
        if (liesOnEdge(line, bounds())) continue;
        auto divider = std::make_shared<Layer>();
        divider->setName("divider");
        divider->setFrame(boxForLine(line, bounds().height));
        layer()->tree().add(divider);
        dividers_.push_back(std::move(divider));
    }
}

void QVMClumpsView::addHeader() {
    if (!advanced()) return;
    header_ = std::make_shared<Layer>();
    header_->setName("header");
    layer()->tree().add(header_);
    if (!config_.metadata->advBanner.starts_with(base64LabelPrefix)) return;
    banner_.emplace(LabelContent{
        config_.metadata->advBanner, "", {0, 0, bounds().width, headerHeight}, QVMLabelAlignment::left, {}});
    layer()->tree().add(banner_->layer());
}

} // namespace QVM_NAMESPACE
