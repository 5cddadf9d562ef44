// What a host may make of an editor's frame, as the wrappers ask for it: the sizes between which it can be dragged, and
// that it keeps its shape. A frame that comes all the same is let through as it is.
#pragma once

#include "geometry/Geometry.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// Main thread.
class FrameLimits final : public juce::ComponentBoundsConstrainer {
public:
    // Of a content of this size at its plain scale, in the editor's units.
    void setContent(Size plain);

    void checkBounds(juce::Rectangle<int>&, const juce::Rectangle<int>&, const juce::Rectangle<int>&, bool, bool, bool,
                     bool) override {}
};

} // namespace QVM_NAMESPACE
