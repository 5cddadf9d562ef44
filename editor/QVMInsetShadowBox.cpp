#include "editor/QVMInsetShadowBox.h"

#include "platform/ShapeLayer.h"

namespace QVM_NAMESPACE {

namespace {
constexpr double cornerRadius = 4, edgeWidth = 1, rimWidth = 8; // points
constexpr Color wellColor = Color::white(0, 0.12f), edgeColor = Color::white(0, 0.18f);
constexpr Shadow rimShadow = {Color::white(0), 3, {0, 1}, 0.45f};
} // namespace

QVMInsetShadowBox::QVMInsetShadowBox(const Rect& frame) : View(frame) {
    layer()->setName("insetShadowBox");
    layer()->setCornerRadius(cornerRadius);
    layer()->setBackgroundColor(wellColor);
    layer()->setBorder(edgeWidth, edgeColor);
    layer()->setMasksToBounds(true);
    // A rim around the box, outside of what is seen, throws its shadow into it.
    rim_ = std::make_shared<ShapeLayer>();
    rim_->setName("rim");
    rim_->setFillColor(Color::clear());
    rim_->setStrokeColor(Color::white(0));
    rim_->setLineWidth(rimWidth);
    rim_->setShadow(rimShadow);
    layer()->addSublayer(rim_);
    QVMInsetShadowBox::frameDidChange();
}

void QVMInsetShadowBox::frameDidChange() {
    rim_->setFrame(bounds());
    const bool isEmpty = bounds().isEmpty();
    rim_->setPath(isEmpty
                      ? Path()
                      : Path::roundedRect(bounds().insetBy(-rimWidth / 2, -rimWidth / 2), cornerRadius + rimWidth / 2));
}

} // namespace QVM_NAMESPACE
