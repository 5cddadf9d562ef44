// The description's pictures of labels: where they stand and the layer that shows them.
#pragma once

#include "description/Types.h"
#include "platform/layer/Layer.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

// The largest rectangle of the proportions of an image of so many pixels that fits into `rect`: standing at the side
// that the alignment names and in the middle of the height, never larger than `imageScale` pixels a point make it.
Rect SituatedRectInsideRectForImage(const Rect& rect, Size pixels, double imageScale, QVMLabelAlignment alignment);

// A layer that shows a label's picture in `rect` (coordinates of the layer that it is to be added to), to be tinted by
// its owner. `label` is "base64," and a PNG; null for anything else. Main thread.
std::shared_ptr<Layer> DrawLabelImage(std::string label, const Rect& rect, QVMLabelAlignment alignment);

} // namespace QVM_NAMESPACE
