#include "plugin/SlantwiseEditor.h"

#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/QVM0015_CocoaViewFactory2.h"

#include <utility>

namespace QVM_NAMESPACE {

SlantwiseEditor::SlantwiseEditor(SlantwiseProcessor& owner, WindowComponent::Embedding embedding)
    : juce::AudioProcessorEditor(owner), processor_(owner), component_(embedding),
      restores_(owner.unit().restoreCount()) {
    // A host may open the editor on another thread than the one that served messages so far.
    RunLoop::main().becomeMainThread();
    view_ =
        &component_.window().setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&owner.unit(), {}));
    presses_ = owner.gestures().follow(component_.window());
    addAndMakeVisible(component_);
    followScale();
    childBoundsChanged(&component_);
    setResizable(false, false);
}

SlantwiseEditor::~SlantwiseEditor() {
    presses_.reset();
    component_.window().takeContentView();
}

void SlantwiseEditor::setScaleFactor(float factor) {
    if (std::exchange(hasFactor_, true) || factor != 1) processor_.setScaledByHost();
    juce::AudioProcessorEditor::setScaleFactor(factor);
}

void SlantwiseEditor::followScale() {
    const double scale = processor_.isScaledByHost() ? 1 : desktopScale_.value();
    if (std::exchange(scale_, scale) != scale)
        component_.setTransform(juce::AffineTransform::scale(static_cast<float>(scale)));
}

void SlantwiseEditor::followHost() {
    followScale();
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
    if (child != &component_) return;
    const juce::Rectangle<int> occupied = component_.getBoundsInParent();
    setSize(occupied.getWidth(), occupied.getHeight());
}

} // namespace QVM_NAMESPACE
