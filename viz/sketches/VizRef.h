// The drawing object of an editor's sketches as they hold it, and where it is made.
//
// Each layer that shows the object holds a share of it, so it lives as long as any of them, whichever goes first.
// Nobody else holds one. The audio unit borrows the object's shared state and is no owner: the editor's host view,
// which lends it, takes it back before it lets the editor and so the layers go. Main thread.
#pragma once

#include "viz/sketches/PBGLSketchAbstract.h"

#include <memory>

namespace QVM_NAMESPACE {

using VizRef = std::shared_ptr<PBGLSketchAbstract>;

// This product's drawing object, before anything is built for a canvas and with no parameters. `sampleRate` is in
// hertz.
VizRef makeVizRef(float sampleRate, unsigned chanIn, unsigned chanOut);

} // namespace QVM_NAMESPACE
