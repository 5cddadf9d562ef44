#include "toolkit/ToolkitRasterBackend.h"

#include "toolkit/LookPainter.h"

namespace QVM_NAMESPACE {

std::shared_ptr<Raster> ToolkitRasterBackend::rasterise(const Layer& layer, const PresentedLayer& presented,
                                                        const Rect& lookBounds, double scale) {
    return std::make_shared<ToolkitRaster>(LookPainter(layer, presented, lookBounds, scale, faces_).paint());
}

} // namespace QVM_NAMESPACE
