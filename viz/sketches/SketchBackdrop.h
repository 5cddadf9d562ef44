// What lies behind the main sketch, fills its view and moves with its frames. Main thread only.
#pragma once

#include "platform/layer/Layer.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <memory>

namespace QVM_NAMESPACE {

// Whether frames are delivered and shown.
enum class Watched : bool { no, yes };

class SketchBackdrop {
public:
    virtual ~SketchBackdrop() = default;
    // The same for as long as the backdrop lives. The view gives it its frame and its scale.
    virtual const std::shared_ptr<Layer>& layer() const = 0;
    virtual void setWatched(Watched watched) = 0;
    // Computes the next frame, `seconds` after the last one, and asks to be drawn when that looks different.
    virtual Redraw prepareForDrawing(float seconds) = 0;
};

} // namespace QVM_NAMESPACE
