#include "editor/QVMClumpsView.h"

#include "controls/DescriptionRect.h"
#include "editor/EdgeInsets.h"
#include "editor/QVMBase64Decoder.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double lineWidth = 1, bannerHeight = 30; // points

// Lines are given with y upwards. Each becomes a thin box whose edge, not its middle, stands on the line, so that it
// covers whole pixels at every scale.
Rect boxForLine(const QVMLineSegment& line, double height) {
    const double left = std::min(line.from.x, line.to.x), top = height - std::max(line.from.y, line.to.y);
    const double width = std::abs(line.to.x - line.from.x), tall = std::abs(line.to.y - line.from.y);
    return {left, top, width > 0 ? width : lineWidth, tall > 0 ? tall : lineWidth};
}

// What depicts the sound stands on the side panel's colour.
Color QVMPalette::*panelColor(const QVMClump& clump) {
    return clump.sketches.empty() ? &QVMPalette::panel : &QVMPalette::sidePanel;
}

} // namespace

QVMClumpsView::QVMClumpsView(const Rect& frame, const QVMConfig& config, ClumpsArea clumpsArea)
    : ThemedView(frame), config_(config), area_(clumpsArea) {
    layer()->setName(advanced() ? "advClumpsView" : "clumpsView");
    addPanels();
    addDividers();
    addBanner();
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
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layer()->setBackgroundColor(advanced() ? palette.sidePanel : palette.panel);
    layer()->setBorder(drawOutsideBorder_ ? lineWidth : 0, palette.divider);
    for (const Panel& panel : panels_)
        panel.layer->setBackgroundColor(palette.*panel.color);
    for (const auto& divider : dividers_)
        divider->setBackgroundColor(palette.divider);
    if (banner_) banner_->setColor(palette.label);
}

void QVMClumpsView::addPanels() {
    if (advanced()) return; // one clump, one surface: the view's own
    config_.enumerateClumpsOfType(QVMClumpTypeOrdinary, [this](QVMClump& clump) {
        auto panel = std::make_shared<Layer>();
        panel->setName("panel:" + clump.codesafeName);
        layer()->addSublayer(panel);
        panels_.push_back({panel, rectFrom(clump.frame), panelColor(clump)});
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
        auto divider = std::make_shared<Layer>();
        divider->setName("divider");
        divider->setFrame(boxForLine(line, bounds().height));
        layer()->addSublayer(divider);
        dividers_.push_back(std::move(divider));
    }
}

void QVMClumpsView::addBanner() {
    if (!advanced() || !config_.metadata->advBanner.starts_with(base64LabelPrefix)) return;
    banner_.emplace(LabelContent{
        config_.metadata->advBanner, "", {0, 0, bounds().width, bannerHeight}, QVMLabelAlignment::left, {}});
    layer()->addSublayer(banner_->layer());
}

} // namespace QVM_NAMESPACE
