// Content of a program's window: as large as what it holds is on screen, at whatever scale, and following it. A window
// of the toolkit would take the held component's own size, which its scale does not change.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

class ContentHolder final : public juce::Component {
public:
    // The content is borrowed and outlives the holder. Main thread.
    explicit ContentHolder(juce::Component& content) {
        addAndMakeVisible(content);
        childBoundsChanged(&content);
    }

private:
    void childBoundsChanged(juce::Component* content) override {
        const juce::Rectangle<int> occupied = content->getBoundsInParent();
        setSize(occupied.getWidth(), occupied.getHeight());
    }
};

} // namespace QVM_NAMESPACE
