#include "editor/surface/SketchHandover.h"

#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "platform/view/Window.h"
#include "viz/sketches/QVMParameterSketch.h"

namespace QVM_NAMESPACE {

void SketchHandover::addSketches() {
    if (ui_.sketch() || !ui_.powerBox()) return;
    EditorSketches::Settings settings;
    settings.chanIn = channels_[0];
    settings.chanOut = channels_[1];
    if (ui_.window()) settings.scale = static_cast<float>(ui_.window()->backingScaleFactor());
    if (QVMGenericUIDelegate* delegate = ui_.delegate())
        delegate->interfaceWantsSampleRateMaxFrames(ui_, settings.sampleRate, settings.maxFrames);
    ui_.sketches().add(*ui_.powerBox(), EditorLayoutForAltFrame(ui_.altFrame()), *this, settings);
    for (QVMParameterControl* corner : ui_.controls().standIns())
        ui_.focus().addStandIn(*corner);
    ui_.session().values().setComesBack();
}

void SketchHandover::sketchDidChangeVisibility(QVMParameterSketch&) {
    ui_.sketches().visibilityDidChange(*ui_.powerBox());
    ui_.focus().dropIfHidden(); // a corner of the curve that is not there any more
}

StatesAre SketchHandover::sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState*) {
    ui_.sketches().curveDidChange();
    QVMGenericUIDelegate* const delegate = ui_.delegate();
    if (!delegate) return StatesAre::drawnOnly;
    SharedState* shared = &sketch.getVizRef()->sharedState;
    if (delegate->interfaceWantsVizRef(ui_) == shared) return StatesAre::theUnits;
    delegate->interfaceHasReadiedVizRef(ui_, shared);
    return StatesAre::drawnOnly;
}

} // namespace QVM_NAMESPACE
