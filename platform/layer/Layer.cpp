#include "platform/layer/Layer.h"

#include "platform/layer/LayerGeometry.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

// A blur of this many radii is invisible beyond.
constexpr double shadowReach = 2;

bool isVisible(const Shadow& shadow) {
    return shadow.opacity > 0 && shadow.color.a > 0;
}

} // namespace

std::uint64_t Layer::nextVersion() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

Layer::Layer(YAxis axis) : axis_(axis) {}

Layer::~Layer() {
    for (const auto& sublayer : sublayers_)
        sublayer->superlayer_ = nullptr;
}

Rect Layer::frame() const {
    return model().frame(anchor_);
}

void Layer::setFrame(const Rect& frame) {
    setBounds({bounds_.x, bounds_.y, frame.width, frame.height});
    setPosition({frame.x + anchor_.x * frame.width, frame.y + anchor_.y * frame.height});
}

void Layer::setBounds(const Rect& bounds) {
    if (assign("bounds", bounds_, bounds)) treeChanged();
}

void Layer::setPosition(Point position) {
    if (assign("position", position_, position)) treeChanged();
}

void Layer::setAnchorPoint(Point anchor) {
    if (anchor == anchor_) return;
    anchor_ = anchor;
    treeChanged();
}

void Layer::setTransform(const AffineTransform& transform) {
    if (assign("transform", transform_, transform)) treeChanged();
}

void Layer::setOpacity(double opacity) {
    if (assign("opacity", opacity_, opacity)) treeChanged();
}

void Layer::setHidden(bool hidden) {
    if (hidden == hidden_) return;
    hidden_ = hidden;
    treeChanged();
}

void Layer::setMasksToBounds(bool masks) {
    if (masks == masksToBounds_) return;
    masksToBounds_ = masks;
    treeChanged();
}

void Layer::setBackgroundColor(Color color) {
    if (assign("backgroundColor", backgroundColor_, color)) setNeedsDisplay();
}

void Layer::setBackgroundPattern(std::shared_ptr<const Image> pattern) {
    if (pattern == pattern_) return;
    pattern_ = std::move(pattern);
    setNeedsDisplay();
}

void Layer::setCornerRadius(double radius) {
    if (assign("cornerRadius", cornerRadius_, radius)) setNeedsDisplay();
}

void Layer::setBorder(double width, Color color) {
    if (width == borderWidth_ && color == borderColor_) return;
    borderWidth_ = width;
    borderColor_ = color;
    setNeedsDisplay();
}

void Layer::setShadow(const Shadow& shadow) {
    if (shadow == shadow_) return;
    shadow_ = shadow;
    setNeedsDisplay();
}

void Layer::setContents(std::shared_ptr<const Image> contents, ContentsGravity gravity) {
    if (contents == contents_ && gravity == gravity_) return;
    contents_ = std::move(contents);
    gravity_ = gravity;
    setNeedsDisplay();
}

void Layer::setContentsTint(Color tint) {
    if (tint == tint_) return;
    tint_ = tint;
    setNeedsDisplay();
}

void Layer::setContentsScale(double scale) {
    hasOwnContentsScale_ = true;
    if (scale == contentsScale_) return;
    contentsScale_ = scale;
    setNeedsDisplay();
}

void Layer::inheritContentsScale(double scale) {
    if (hasOwnContentsScale_ || scale == contentsScale_) return;
    setContentsScale(scale);
    hasOwnContentsScale_ = false;
    for (const auto& sublayer : sublayers_)
        sublayer->inheritContentsScale(scale);
}

void Layer::addSublayer(std::shared_ptr<Layer> layer) {
    insertSublayer(std::move(layer), sublayers_.size());
}

void Layer::insertSublayer(std::shared_ptr<Layer> layer, std::size_t index) {
    for (const Layer* above = this; above; above = above->superlayer_) {
        if (above == layer.get()) return; // a layer can't hold itself
    }
    if (!layer) return;
    layer->removeFromSuperlayer();
    layer->superlayer_ = this;
    layer->inheritContentsScale(contentsScale_);
    const auto at = sublayers_.begin() + static_cast<std::ptrdiff_t>(std::min(index, sublayers_.size()));
    sublayers_.insert(at, std::move(layer));
    treeChanged();
}

void Layer::removeFromSuperlayer() {
    if (!superlayer_) return;
    const auto alive = weak_from_this().lock(); // the superlayer may be its only owner
    Layer& parent = *std::exchange(superlayer_, nullptr);
    std::erase_if(parent.sublayers_, [this](const auto& sublayer) { return sublayer.get() == this; });
    parent.structureChanged();
}

bool Layer::hasLook(const PresentedLayer& presented) const {
    return presented.backgroundColor.a > 0 || pattern_ || (borderWidth_ > 0 && borderColor_.a > 0) || contents_;
}

bool Layer::isPlainRectangle(const PresentedLayer& presented) const {
    return presented.backgroundColor.a > 0 && presented.cornerRadius <= 0 && !pattern_ && !contents_ &&
           !(borderWidth_ > 0 && borderColor_.a > 0) && !isVisible(shadow_);
}

Rect Layer::lookBounds(const PresentedLayer& presented) const {
    Rect look = presented.bounds;
    if (contents_) look = look.unionWith(contentsRect(*this, presented.bounds));
    if (isVisible(shadow_)) {
        const double reach = -shadowReach * shadow_.radius, down = axis_ == YAxis::down ? 1 : -1;
        look = look.unionWith(look.offsetBy(shadow_.offset.x, shadow_.offset.y * down).insetBy(reach, reach));
    }
    return look;
}

void Layer::setNeedsDisplay() {
    contentVersion_ = nextVersion();
    treeChanged();
}

void Layer::treeChanged() {
    const Layer* root = this;
    while (root->superlayer_)
        root = root->superlayer_;
    if (root->observer_) root->observer_->layerTreeDidChange();
}

void Layer::structureChanged() {
    const Layer* root = this;
    while (root->superlayer_)
        root = root->superlayer_;
    if (root->observer_) root->observer_->layerTreeDidLoseLayer();
    treeChanged();
}

} // namespace QVM_NAMESPACE
