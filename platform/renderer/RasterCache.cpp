#include "platform/renderer/RasterCache.h"

#include "platform/layer/LayerGeometry.h"

namespace QVM_NAMESPACE {

namespace {

// No look is kept beyond this many pixels from its box's top left: a stray coordinate must not ask for gigabytes.
constexpr double maxReach = 8192;
constexpr Rect reachable{-maxReach, -maxReach, 2 * maxReach, 2 * maxReach};

bool isBelow(const Layer* layer, const Layer* root) {
    while (layer && layer != root)
        layer = layer->tree().superlayer();
    return layer != nullptr;
}

} // namespace

void RasterCache::setScale(double scale) {
    scale_ = scale;
    entries_.clear();
}

RasterCache::Entry& RasterCache::find(const Layer& layer, const PresentedLayer& presented) {
    Entry& entry = entries_[&layer];
    const Entry::Look look{layer.look().version(), presented.bounds, presented.cornerRadius, presented.lineDashPhase,
                           presented.backgroundColor};
    if (entry.look_ == look) return entry;
    const AffineTransform toPixels =
        ownToBox(layer.yAxis(), presented.bounds).then(AffineTransform::scale(scale_, scale_));
    entry.layer_ = layer.weak_from_this();
    entry.look_ = look;
    entry.raster = nullptr;
    entry.pixels = touchedPixels(toPixels.apply(layer.lookBounds(presented)).intersectionWith(reachable));
    entry.lookBounds_ = toPixels.inverted().apply(entry.pixels);
    return entry;
}

bool RasterCache::rasterise(Entry& entry, const Layer& layer, const PresentedLayer& presented) {
    if (entry.raster) return false;
    entry.raster = backend_.rasterise(layer, presented, entry.lookBounds_, scale_);
    return true;
}

void RasterCache::keepOnly(const Layer* root) {
    std::erase_if(entries_, [root](const auto& item) {
        const auto layer = item.second.layer_.lock();
        return !root || !layer || !isBelow(layer.get(), root);
    });
}

} // namespace QVM_NAMESPACE
