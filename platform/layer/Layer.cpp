#include "platform/layer/Layer.h"

#include "platform/layer/LayerGeometry.h"
#include "platform/runloop/RunLoop.h"

namespace QVM_NAMESPACE {

namespace {

// A blur of this many radii is invisible beyond.
constexpr double shadowReach = 2;

bool isVisible(const Shadow& shadow) {
    return shadow.opacity > 0 && shadow.color.a > 0;
}

} // namespace

Layer::Layer(YAxis axis) : axis_(axis) {}

Layer::~Layer() = default;

Rect Layer::frame() const {
    return model().frame(anchor_);
}

void Layer::setFrame(const Rect& frame) {
    setBounds({bounds_.x, bounds_.y, frame.width, frame.height});
    setPosition({frame.x + anchor_.x * frame.width, frame.y + anchor_.y * frame.height});
}

void Layer::setBounds(const Rect& bounds) {
    if (animations_.assign("bounds", bounds_, bounds)) tree_.didChange();
}

void Layer::setPosition(Point position) {
    if (animations_.assign("position", position_, position)) tree_.didChange();
}

void Layer::setAnchorPoint(Point anchor) {
    if (anchor == anchor_) return;
    anchor_ = anchor;
    tree_.didChange();
}

void Layer::setTransform(const AffineTransform& transform) {
    if (animations_.assign("transform", transform_, transform)) tree_.didChange();
}

void Layer::setOpacity(double opacity) {
    if (animations_.assign("opacity", opacity_, opacity)) tree_.didChange();
}

void Layer::setHidden(bool hidden) {
    if (hidden == hidden_) return;
    hidden_ = hidden;
    tree_.didChange();
}

void Layer::setMasksToBounds(bool masks) {
    if (masks == masksToBounds_) return;
    masksToBounds_ = masks;
    tree_.didChange();
}

PresentedLayer Layer::model() const {
    return {position_, bounds_, opacity_, transform_, look_.backgroundColor(), look_.cornerRadius()};
}

PresentedLayer Layer::presentation(double time) const {
    return animations_.isEmpty() ? model() : animations_.applied(model(), time);
}

PresentedLayer Layer::presentation() const {
    return animations_.isEmpty() ? model() : presentation(RunLoop::main().now());
}

bool Layer::hasLook(const PresentedLayer& presented) const {
    return presented.backgroundColor.a > 0 || look_.backgroundPattern() || look_.hasBorder() || look_.contents();
}

bool Layer::isPlainRectangle(const PresentedLayer& presented) const {
    return presented.backgroundColor.a > 0 && presented.cornerRadius <= 0 && !look_.backgroundPattern() &&
           !look_.contents() && !look_.hasBorder() && !isVisible(look_.shadow());
}

Rect Layer::lookBounds(const PresentedLayer& presented) const {
    Rect look = presented.bounds;
    if (look_.contents()) look = look.unionWith(contentsRect(*this, presented.bounds));
    if (isVisible(look_.shadow())) {
        const double reach = -shadowReach * look_.shadow().radius, down = axis_ == YAxis::down ? 1 : -1;
        look = look.unionWith(
            look.offsetBy(look_.shadow().offset.x, look_.shadow().offset.y * down).insetBy(reach, reach));
    }
    return look;
}

} // namespace QVM_NAMESPACE
