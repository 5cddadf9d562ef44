#include "controls/BoxControl.h"

#include "controls/QVMFocusBorder.h"
#include "theme/QVMUITheme.h"
#include "theme/Radii.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double kFocusRadius = radii::box + 3; // points, of the border around a rounded box
constexpr double kCapsuleFocusShare = 0.5;      // of the height
constexpr double kGlideSeconds = 0.1;

} // namespace

BoxControl::BoxControl(const Rect& frame, const QVMParameter& parameter, BoxShape shape)
    : QVMFloatControl(frame, parameter), shape_(shape), bg_(std::make_shared<Layer>(YAxis::up)),
      hover_(std::make_shared<Layer>(YAxis::up)) {
    addPart(bg_, "bg");
    hover_->setOpacity(0);
}

void BoxControl::addPart(const std::shared_ptr<Layer>& part, const char* name) {
    part->setName(name);
    layer()->tree().insert(part, partCount_++);
}

std::optional<Color> BoxControl::surface() const {
    return QVMUITheme::theme().backgroundColor;
}

void BoxControl::placeBox(const Rect& frame) {
    const double most = std::min(frame.width, frame.height) / 2;
    const double radius = shape_ == BoxShape::capsule ? most : std::min(radii::box, most);
    bg_->setFrame(frame);
    bg_->look().setCornerRadius(radius);
    hover_->setFrame(frame);
    hover_->look().setCornerRadius(radius);
    hover_->look().setBackgroundColor(QVMUITheme::theme().palette.hover);
}

void BoxControl::drawPlainBox() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    placeBox(bounds());
    bg_->look().setBackgroundColor(palette.boxFill);
    bg_->look().setBorder(1, palette.boxBorder);
}

Transaction BoxControl::moveChoice(Layer& mark, bool isShown, Animate animate) {
    const bool glides = animate == Animate::yes && isShown && !mark.isHidden();
    mark.setHidden(!isShown);
    return glides ? Transaction::animated(kGlideSeconds) : Transaction::disablingActions();
}

void BoxControl::setHighlit(bool highlit) {
    const double rounding = shape_ == BoxShape::capsule ? kCapsuleFocusShare : kFocusRadius;
    animateHighlightToFramePositionRoundingInset(bg_->frame(), bg_->frame().origin(), rounding, true);
    QVMFloatControl::setHighlit(highlit);
}

void BoxControl::setDimmed(bool dimmed) {
    QVMFloatControl::setDimmed(dimmed);
    showHover();
}

void BoxControl::setPreventInteraction(bool prevent) {
    QVMFloatControl::setPreventInteraction(prevent);
    showHover();
}

void BoxControl::mouseEntered(const Event& event) {
    pointTo(indexAt(coordinates().fromWindow(event.locationInWindow)));
}

void BoxControl::mouseMoved(const Event& event) {
    pointTo(indexAt(coordinates().fromWindow(event.locationInWindow)));
}

void BoxControl::mouseExited(const Event&) {
    pointTo(-1);
}

void BoxControl::pointTo(int index) {
    hoveredIndex_ = index;
    showHover();
}

void BoxControl::showHover() {
    const bool mayShow = hoveredIndex_ >= 0 && !isDisabled() && !dimmed();
    const std::optional<Rect> frame = mayShow ? hoverFrame(hoveredIndex_) : std::nullopt;
    hover_->setOpacity(frame ? 1 : 0);
    if (frame) hover_->setFrame(*frame);
}

} // namespace QVM_NAMESPACE
