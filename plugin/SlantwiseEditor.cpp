#include "plugin/SlantwiseEditor.h"

#include "description/Description.h"
#include "editor/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/QVM0015_CocoaViewFactory2.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

constexpr double programWatchSeconds = 0.25;

} // namespace

SlantwiseEditor::SlantwiseEditor(SlantwiseProcessor& owner, WindowComponent::Embedding embedding)
    : juce::AudioProcessorEditor(owner), processor_(owner), component_(embedding) {
    // A host may open the editor on another thread than the one that served messages so far.
    RunLoop::main().becomeMainThread();
    view_ =
        &component_.window().setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&owner.unit(), {}));
    addAndMakeVisible(component_);
    setSize(component_.getWidth(), component_.getHeight());
    setResizable(false, false);
}

SlantwiseEditor::~SlantwiseEditor() {
    displayTick_ = {};
    processor_.endOpenGestures();
    component_.window().takeContentView();
}

void SlantwiseEditor::parentHierarchyChanged() {
    juce::AudioProcessorEditor::parentHierarchyChanged();
    if (getPeer())
        watchProgram();
    else
        programWatch_.cancel();
}

void SlantwiseEditor::watchProgram() {
    const std::int32_t index = processor_.unit().presetIndex();
    const auto chosen = static_cast<std::uint32_t>(index);
    if (index >= 0 && chosen != view_->ui().currentPreset()) view_->ui().lastSavedPresetWasKeyed(chosen);
    programWatch_.schedule(programWatchSeconds, [this] { watchProgram(); });
}

void SlantwiseEditor::resized() {
    component_.setTopLeftPosition(0, 0);
}

void SlantwiseEditor::childBoundsChanged(juce::Component* child) {
    if (child == &component_) setSize(component_.getWidth(), component_.getHeight());
}

void SlantwiseEditor::refresh() {
    std::array<float, QVMParameterCount> values{};
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        values[pid] = view_->valueForParameterID(pid);
    view_->ui().sketchHasUpdatedParameterStates(values);
    if (!component_.window().mouseCapture()) processor_.endOpenGestures();
}

} // namespace QVM_NAMESPACE
