// Tells when the toolkit marks a component, or one inside it, as to be painted. Painting goes on as without it.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <utility>

namespace QVM_NAMESPACE {

// Belongs to the component (setCachedComponentImage), which has no other picture of itself. Main thread.
class RepaintWatch final : public juce::CachedComponentImage {
public:
    // `wasMarked` is called while the toolkit deals with its components: it may look at none of them.
    RepaintWatch(juce::Component& component, std::function<void()> wasMarked)
        : component_(component), wasMarked_(std::move(wasMarked)) {}

    // The toolkit's callbacks. What is marked is handed on to the window.
    void paint(juce::Graphics& g) override { component_.paintEntireComponent(g, false); }
    bool invalidateAll() override { return invalidate({}); }
    bool invalidate(const juce::Rectangle<int>&) override {
        wasMarked_();
        return true;
    }
    void releaseResources() override {}

private:
    juce::Component& component_;
    std::function<void()> wasMarked_;
};

} // namespace QVM_NAMESPACE
