#include "platform/layer/LayerLook.h"

#include "platform/layer/Layer.h"

#include <atomic>
#include <utility>

namespace QVM_NAMESPACE {

std::uint64_t LayerLook::nextVersion() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

void LayerLook::setNeedsDisplay() {
    version_ = nextVersion();
    layer_.tree().didChange();
}

template <class T>
void LayerLook::store(T& member, T value) {
    if (value == member) return;
    member = std::move(value);
    setNeedsDisplay();
}

void LayerLook::setBackgroundColor(Color color) {
    if (layer_.animations().assign("backgroundColor", backgroundColor_, color)) setNeedsDisplay();
}

void LayerLook::setCornerRadius(double radius) {
    if (layer_.animations().assign("cornerRadius", cornerRadius_, radius)) setNeedsDisplay();
}

void LayerLook::setBackgroundPattern(std::shared_ptr<const Image> pattern) {
    store(pattern_, std::move(pattern));
}

void LayerLook::setBorder(double width, Color color) {
    if (width == borderWidth_ && color == borderColor_) return;
    borderWidth_ = width;
    borderColor_ = color;
    setNeedsDisplay();
}

void LayerLook::setShadow(const Shadow& shadow) {
    store(shadow_, shadow);
}

void LayerLook::setContents(std::shared_ptr<const Image> contents, ContentsGravity gravity) {
    if (contents == contents_ && gravity == gravity_) return;
    contents_ = std::move(contents);
    gravity_ = gravity;
    setNeedsDisplay();
}

void LayerLook::setContentsTint(Color tint) {
    store(tint_, tint);
}

void LayerLook::setContentsScale(double scale) {
    hasOwnContentsScale_ = true;
    store(contentsScale_, scale);
}

void LayerLook::inheritContentsScale(double scale) {
    if (hasOwnContentsScale_ || scale == contentsScale_) return;
    store(contentsScale_, scale);
    for (const auto& sublayer : layer_.tree().sublayers())
        sublayer->look().inheritContentsScale(scale);
}

} // namespace QVM_NAMESPACE
