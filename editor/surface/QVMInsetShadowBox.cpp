#include "editor/surface/QVMInsetShadowBox.h"

#include "platform/layer/ShapeLayer.h"
#include "theme/Radii.h"

namespace QVM_NAMESPACE {

namespace {
constexpr double edgeWidth = 1, rimWidth = 8; // points
constexpr double shadowRadius = 3;
constexpr Point shadowOffset = {0, 1};
constexpr float wellAlpha = 0.12f, edgeAlpha = 0.18f, shadowAlpha = 0.45f; // of the theme's shade
} // namespace

QVMInsetShadowBox::QVMInsetShadowBox(const Rect& frame) : ThemedView(frame) {
    layer()->setName("insetShadowBox");
    layer()->look().setCornerRadius(radii::mark);
    layer()->setMasksToBounds(true);
    // A rim around the box, outside of what is seen, throws its shadow into it.
    rim_ = std::make_shared<ShapeLayer>();
    rim_->setName("rim");
    rim_->setFillColor(QVMCGClearColor());
    rim_->setLineWidth(rimWidth);
    layer()->tree().add(rim_);
    QVMInsetShadowBox::frameDidChange();
    QVMInsetShadowBox::themeUpdated();
}

void QVMInsetShadowBox::themeUpdated() {
    const Color shade = QVMUITheme::theme().palette.shade;
    layer()->look().setBackgroundColor(shade.withAlpha(wellAlpha));
    layer()->look().setBorder(edgeWidth, shade.withAlpha(edgeAlpha));
    rim_->setStrokeColor(shade);
    rim_->look().setShadow(QVMBlur(shade.withAlpha(shadowAlpha), shadowRadius, shadowOffset));
}

void QVMInsetShadowBox::frameDidChange() {
    rim_->setFrame(bounds());
    const bool isEmpty = bounds().isEmpty();
    rim_->setPath(isEmpty
                      ? Path()
                      : Path::roundedRect(bounds().insetBy(-rimWidth / 2, -rimWidth / 2), radii::mark + rimWidth / 2));
}

} // namespace QVM_NAMESPACE
