// Content of a window: as large as the editor is on screen, at whatever scale, and following it. A window of the
// toolkit would take the editor's own size, which its scale does not change.
#pragma once

#include "description/BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

class EditorHolder final : public juce::Component {
public:
    // The editor is borrowed and outlives the holder. Main thread.
    explicit EditorHolder(juce::Component& editor) {
        addAndMakeVisible(editor);
        childBoundsChanged(&editor);
    }

private:
    void childBoundsChanged(juce::Component* editor) override {
        const juce::Rectangle<int> occupied = editor->getBoundsInParent();
        setSize(occupied.getWidth(), occupied.getHeight());
    }
};

} // namespace QVM_NAMESPACE
