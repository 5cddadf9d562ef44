// Keeps the pixels of each layer's look until the look changes or the layer leaves the tree.
#pragma once

#include "platform/renderer/RasterBackend.h"

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace QVM_NAMESPACE {

class RasterCache {
public:
    struct Entry {
        // Where the pixels lie: whole device pixels from the top left of the layer's box.
        Rect pixels;
        // Null until the layer was first seen.
        std::shared_ptr<Raster> raster;

    private:
        friend class RasterCache;
        // All that the pixels depend on, but for the scale.
        struct Look {
            std::uint64_t version = 0;
            Rect bounds;
            double cornerRadius = 0, lineDashPhase = 0;
            Color backgroundColor;
            bool operator==(const Look&) const = default;
        };
        std::weak_ptr<const Layer> layer_;
        Look look_;
        Rect lookBounds_; // own coordinates
    };

    // The backend is borrowed.
    explicit RasterCache(RasterBackend& backend) : backend_(backend) {}

    // Device pixels a point; a change drops all pixels.
    void setScale(double scale);
    double scale() const { return scale_; }

    // The layer's entry with `pixels` up to date and, if its look changed, without a raster. Valid until the next call.
    Entry& find(const Layer& layer, const PresentedLayer& presented);
    // Makes the raster of an entry that has none; true when it did.
    bool rasterise(Entry& entry, const Layer& layer, const PresentedLayer& presented);
    // Drops the pixels of layers that are not below `root` (null: of all).
    void keepOnly(const Layer* root);

private:
    RasterBackend& backend_;
    double scale_ = 1;
    std::unordered_map<const Layer*, Entry> entries_;
};

} // namespace QVM_NAMESPACE
