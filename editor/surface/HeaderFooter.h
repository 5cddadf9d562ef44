// The strips at the head and the foot of a group of controls.
#pragma once

#include "editor/surface/BorderRect.h"
#include "platform/layer/Layer.h"

namespace QVM_NAMESPACE {

// Lays `strip` along an edge of `area`, `depth` points deep, in the theme's present colours, and a divider where it
// ends. To be called again when the theme changes. The strip's first sublayer is the divider, which is made here. Main
// thread.
void QVMFillGenericHeaderFooterOnEdge(Layer& strip, const Rect& area, QVMEdge edge, double depth);

} // namespace QVM_NAMESPACE
