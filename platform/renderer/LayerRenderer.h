// Turns a layer tree into pixels with as little work as possible.
//
// Each layer's look is rasterised once at device scale and kept until it changes; each update compares what would be
// presented with what was, and only the rectangles that differ are composed again. Nothing changed: nothing drawn.
// The rasterising and blitting is behind RasterBackend, so the decisions can be tested with no toolkit. Main thread
// only.
#pragma once

#include "platform/layer/Layer.h"
#include "platform/renderer/DamageRegion.h"
#include "platform/renderer/Placement.h"
#include "platform/renderer/RasterBackend.h"
#include "platform/renderer/RasterCache.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// What the last update did, for tests, dumps and the benchmark.
struct RenderStatistics {
    std::vector<std::string> rasterised; // names (or kinds) of the layers that were rasterised again
    std::vector<Rect> damage;            // device pixels, whole numbers, none overlapping another
};

class LayerRenderer : private LayerTreeObserver {
public:
    // The backend is borrowed and outlives the renderer.
    explicit LayerRenderer(RasterBackend& backend);
    ~LayerRenderer() override;
    LayerRenderer(const LayerRenderer&) = delete;
    LayerRenderer& operator=(const LayerRenderer&) = delete;

    // Everything is drawn anew after either. The renderer becomes the root's tree observer. What lies beyond the root's
    // box is not drawn.
    void setRootLayer(std::shared_ptr<Layer> root);
    void setScale(double devicePixelsPerPoint);
    double scale() const { return cache_.scale(); }

    // Called at the first change after an update (not for running animations: ask isAnimating()). It should ask for a
    // frame, not draw one.
    void setChangeHandler(std::function<void()> handler) { changeHandler_ = std::move(handler); }

    // Brings rasters and placements up to `time` (run loop seconds) and returns the damage, merged to few rectangles.
    // Runs the completions of animations that are over. The result is valid until the next update.
    const RenderStatistics& update(double time);
    // Draws what the last update placed, back to front, where it meets `deviceClip`. The target clips, if it must.
    void compose(RasterTarget& target, const Rect& deviceClip) const;
    // Whether any layer of the tree is being animated (the next frame will differ).
    bool isAnimating() const { return animating_; }

private:
    void layerTreeDidChange() override;
    void layerTreeDidLoseLayer() override { lostLayers_ = true; }
    void finishAnimations(double time);

    RasterCache cache_;
    std::shared_ptr<Layer> root_;
    std::function<void()> changeHandler_;
    bool changed_ = true, lostLayers_ = false, everythingDamaged_ = true, animating_ = false;
    Rect rootPixels_; // where the root lay at the last update
    std::vector<Placement> placements_, previous_;
    RenderStatistics statistics_;
};

} // namespace QVM_NAMESPACE
