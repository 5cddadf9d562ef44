// The live pictures: when they are made, and what comes back from the unit through the object they share with it.
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "platform/view/Window.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <algorithm>

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

void QVMGenericUI::sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState* states) {
    if (!delegate_) return;
    SharedState* shared = &sketch.getVizRef()->sharedState;
    if (delegate_->interfaceWantsVizRef(*this) != shared) return delegate_->interfaceHasReadiedVizRef(*this, shared);
    const std::size_t count = std::min<std::size_t>(shared->glide.paramCount, session_.values().count());
    for (std::uint32_t pid = 0; pid < count; ++pid)
        session_.values().receiveIfNew(pid, states[pid].value);
    session_.values().frameWasReceived();
}

void QVMGenericUI::meterTapped() {
    if (delegate_) delegate_->interfaceWantsToResetMetering(*this);
}

} // namespace QVM_NAMESPACE
