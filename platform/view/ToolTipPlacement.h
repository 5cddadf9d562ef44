// Where a tooltip stands: beside what it is about and clear of what the user looks at or is about to use.
#pragma once

#include "geometry/Geometry.h"

namespace QVM_NAMESPACE {

class View;
class Window;

// The frame of a tooltip of a size for the view under the pointer, in window coordinates (points): above the view, or
// below it, or beside the pointer, whichever first covers no other view that has a tooltip of its own; else the first
// of them that is inside the window. On whole points. Main thread.
Rect toolTipFrame(const Window& window, Point pointer, Size size);
// The same with the middle of a view that stands in the window in the place of the pointer.
Rect toolTipFrame(const Window& window, const View& about, Size size);

} // namespace QVM_NAMESPACE
