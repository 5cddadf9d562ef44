#include "plugin/SlantwiseEditor.h"

#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/QVM0015_CocoaViewFactory2.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double gestureCheckSeconds = 1.0 / 60;

} // namespace

SlantwiseEditor::SlantwiseEditor(SlantwiseProcessor& owner, WindowComponent::Embedding embedding)
    : juce::AudioProcessorEditor(owner), processor_(owner), component_(embedding),
      restores_(owner.unit().restoreCount()) {
    // A host may open the editor on another thread than the one that served messages so far.
    RunLoop::main().becomeMainThread();
    view_ =
        &component_.window().setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&owner.unit(), {}));
    owner.setGestureHandler([this] { endGesturesSoon(); });
    addAndMakeVisible(component_);
    setSize(component_.getWidth(), component_.getHeight());
    setResizable(false, false);
}

SlantwiseEditor::~SlantwiseEditor() {
    processor_.setGestureHandler(nullptr);
    processor_.endOpenGestures();
    component_.window().takeContentView();
}

void SlantwiseEditor::followHost() {
    const std::uint32_t restores = processor_.unit().restoreCount();
    if (std::exchange(restores_, restores) != restores) view_->adoptRestoredState();
    const std::int32_t index = processor_.unit().presetIndex();
    const auto chosen = static_cast<std::uint32_t>(index);
    if (index >= 0 && chosen != view_->ui().currentPreset()) view_->ui().lastSavedPresetWasKeyed(chosen);
}

void SlantwiseEditor::resized() {
    component_.setTopLeftPosition(0, 0);
}

void SlantwiseEditor::childBoundsChanged(juce::Component* child) {
    if (child == &component_) setSize(component_.getWidth(), component_.getHeight());
}

void SlantwiseEditor::endGesturesSoon() {
    gestureEnd_.schedule(gestureCheckSeconds, [this] {
        if (component_.window().mouseCapture()) return endGesturesSoon();
        processor_.endOpenGestures();
    });
}

} // namespace QVM_NAMESPACE
