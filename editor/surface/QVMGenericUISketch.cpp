// The live pictures: when they are made, and how the unit comes to the object that they share with it.
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "platform/view/Window.h"
#include "viz/sketches/QVMParameterSketch.h"

namespace QVM_NAMESPACE {

void QVMGenericUI::addSketch() {
    if (sketch() || !powerBox()) return;
    EditorSketches::Settings settings;
    settings.chanIn = chanIn_;
    settings.chanOut = chanOut_;
    if (window()) settings.scale = static_cast<float>(window()->backingScaleFactor());
    if (delegate_) delegate_->interfaceWantsSampleRateMaxFrames(*this, settings.sampleRate, settings.maxFrames);
    sketches_.add(*powerBox(), EditorLayoutForAltFrame(altFrame_), *this, settings);
    sketches_.setFocusedPid(focusedPid());
    session_.values().setComesBack();
}

void QVMGenericUI::sketchDidChangeVisibility(QVMParameterSketch&) {
    sketches_.visibilityDidChange(*powerBox());
}

StatesAre QVMGenericUI::sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState*) {
    if (!delegate_) return StatesAre::drawnOnly;
    SharedState* shared = &sketch.getVizRef()->sharedState;
    if (delegate_->interfaceWantsVizRef(*this) == shared) return StatesAre::theUnits;
    delegate_->interfaceHasReadiedVizRef(*this, shared);
    return StatesAre::drawnOnly;
}

void QVMGenericUI::meterTapped() {
    if (delegate_) delegate_->interfaceWantsToResetMetering(*this);
}

} // namespace QVM_NAMESPACE
