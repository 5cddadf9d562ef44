// Content of a program's window: as large as what it holds is on screen, at whatever scale, and following it. A window
// of the toolkit would take the held component's own size, which its scale does not change. Where the window gets
// another size from elsewhere, what it holds fills that.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <utility>

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
        if (std::exchange(isFollowing_, true)) return;
        const juce::Rectangle<int> occupied = content->getBoundsInParent();
        setSize(occupied.getWidth(), occupied.getHeight());
        isFollowing_ = false;
        // A window that was given another size at once, as one that fills the screen is.
        if (getWidth() != occupied.getWidth() || getHeight() != occupied.getHeight()) resized();
    }
    void resized() override {
        if (getNumChildComponents() == 0 || std::exchange(isFollowing_, true)) return;
        juce::Component& content = *getChildComponent(0);
        content.setBounds(content.getLocalArea(this, getLocalBounds()).withPosition(0, 0));
        isFollowing_ = false;
    }

    bool isFollowing_ = false; // one that follows the other is not followed in turn
};

} // namespace QVM_NAMESPACE
