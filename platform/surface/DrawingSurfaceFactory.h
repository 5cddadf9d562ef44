// Chooses what sketches are drawn with.
#pragma once

#include "platform/surface/DrawingSurface.h"

#include <memory>

namespace QVM_NAMESPACE {

// OpenGL where there is a hardware renderer, else the processor. The environment's SLANTWISE_RENDERER forces one: `gl`
// (a renderer in software will do) or `cpu`. OpenGL that is wanted and fails is logged once a process, with the reason,
// and replaced by the processor. Never null. Main thread.
std::unique_ptr<DrawingSurface> makeDrawingSurface();

// For a surface whose finish() failed: logs that (once a process) and gives one that draws on the processor, as does
// makeDrawingSurface() from now on.
std::unique_ptr<DrawingSurface> makeSubstituteSurface();

} // namespace QVM_NAMESPACE
