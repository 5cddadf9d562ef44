// The toolkit's tooltips in a window that leaves the keyboard with its host, placed where the platform wants them.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace QVM_NAMESPACE {

// Shows the tips of the component that it is in, and of what that holds, when the pointer has rested for 0.7 seconds,
// but none exactly where it was pressed last. Main thread.
class ToolTipWindow final : public juce::TooltipWindow {
public:
    // Where a tip of a size goes, in the parent's coordinates (points, all of them).
    using Placement = std::function<juce::Point<int>(int width, int height)>;

    // `parent` outlives it.
    ToolTipWindow(juce::Component& parent, Placement placement);

    // The toolkit's callbacks. It shows tips only in a window that has the keyboard, and puts them beside the pointer.
    void moved() override { setTopLeftPosition(placement_(getWidth(), getHeight())); }
    void resized() override { moved(); }
    juce::String getTipFor(juce::Component& component) override;

private:
    Placement placement_;
};

} // namespace QVM_NAMESPACE
