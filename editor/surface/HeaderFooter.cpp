#include "editor/surface/HeaderFooter.h"

#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

namespace {

// Where a strip along this edge ends.
QVMEdge opposite(QVMEdge edge) {
    switch (edge) {
    case QVMEdge::left:
        return QVMEdge::right;
    case QVMEdge::top:
        return QVMEdge::bottom;
    case QVMEdge::right:
        return QVMEdge::left;
    case QVMEdge::bottom:
        return QVMEdge::top;
    }
    return edge;
}

} // namespace

void QVMFillGenericHeaderFooterOnEdge(Layer& strip, const Rect& area, QVMEdge edge, double depth) {
    const QVMUITheme& theme = QVMUITheme::theme();
    strip.setFrame(QVMBorderRectWithBorderSpec(area, {.edge = edge, .width = depth}));
    strip.look().setBackgroundColor(theme.palette.sidePanel);
    if (strip.tree().sublayers().empty()) {
        auto divider = std::make_shared<Layer>();
        divider->setName("divider");
        strip.tree().add(std::move(divider));
    }
    Layer& divider = *strip.tree().sublayers().front();
    divider.setFrame(QVMBorderRectWithBorderSpec(strip.bounds(), {.edge = opposite(edge)}));
    divider.look().setBackgroundColor(theme.interiorBorderColor);
}

} // namespace QVM_NAMESPACE
