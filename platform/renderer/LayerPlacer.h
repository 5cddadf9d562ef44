// Flattens a layer tree to the steps of its composition, back to front, in whole device pixels.
//
// What is hidden, flat or transparent has no step; a layer's raster is made only when some of it can be seen; a clip or
// a group is there only for as much as is in it. Made for one placing, on the main thread.
#pragma once

#include "platform/layer/Layer.h"
#include "platform/renderer/Placement.h"
#include "platform/renderer/RasterCache.h"

#include <cstddef>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class LayerPlacer {
public:
    // All are borrowed for the placer's life. The steps are added to `placements`, which is empty; the names (or kinds)
    // of the layers that were rasterised for them to `rasterised`. The cache's scale is the one that is placed at.
    LayerPlacer(RasterCache& cache, std::vector<Placement>& placements, std::vector<std::string>& rasterised);
    ~LayerPlacer();

    // Places the tree as it is presented at `time` (run loop seconds), once, and returns the device pixels that the
    // root's box touches. Nothing is placed beyond them.
    Rect place(const Layer& root, double time);

private:
    struct Space;   // what a layer hands down to its sublayers
    struct Legible; // a layer that is placed above the faint group that it is in

    Rect visit(const Layer& layer, const Space& outer);
    Rect visitShown(const Layer& layer, PresentedLayer presented, const Space& outer, double opacity);
    Rect placeLegible();
    Rect placeLook(const Layer& layer, const PresentedLayer& presented, const Space& own, double opacity);
    void pushClip(const Layer& layer, const PresentedLayer& presented, const Space& own);
    void closePush(std::size_t push, std::size_t leavesBefore, const Rect& touched);
    void linkPushes();

    RasterCache& cache_;
    std::vector<Placement>& placements_;
    std::vector<std::string>& rasterised_;
    double time_ = 0;
    double groupOpacity_ = 1;      // of all the groups that are open
    std::vector<Legible> legible_; // in the open group
    std::size_t leaves_ = 0;       // draws and fills among placements_
};

} // namespace QVM_NAMESPACE
