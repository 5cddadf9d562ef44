#include "editor/QVMInsetShadowBox.h"

namespace QVM_NAMESPACE {

namespace {
constexpr double cornerRadius = 4, edgeWidth = 1; // points
constexpr Color wellColor = Color::white(0, 0.12f), edgeColor = Color::white(0, 0.18f);
} // namespace

QVMInsetShadowBox::QVMInsetShadowBox(const Rect& frame) : View(frame) {
    layer()->setName("insetShadowBox");
    layer()->setCornerRadius(cornerRadius);
    layer()->setBackgroundColor(wellColor);
    layer()->setBorder(edgeWidth, edgeColor);
}

} // namespace QVM_NAMESPACE
