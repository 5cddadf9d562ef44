#include "unit/VizLink.h"

#include "description/Description.h"
#include "unit/UnitParameters.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <algorithm>
#include <bit>
#include <thread>

namespace QVM_NAMESPACE {

namespace {

constexpr QVMFloat32Range meterRange = {-96, 12}; // dB
// A host may be so much late with the next block, or work some of them off at once, before it counts as stopped.
constexpr double hostPatience = 0.25; // seconds

// Whether a meter at rest has something to show for it.
bool isAboveSilence(float peak) {
    constexpr float silence = 1.6e-5f; // amplitude, the lower end of the range
    return peak > silence;
}

} // namespace

VizLink::VizLink(const UnitParameters& parameters) : parameters_(parameters) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        descriptions_[pid] = GetParameter(pid);
}

void VizLink::enter() {
    while (!tryEnter())
        std::this_thread::yield();
}

void VizLink::exchange(PBGLSketchAbstract* vizRef) {
    enter();
    if (PBGLSketchAbstract* const earlier = vizRef_) earlier->requestFrame(); // its editor may want to know
    vizRef_ = vizRef;
    isNew_ = true;
    leave();
    allParametersChanged();
}

void VizLink::post(std::uint32_t changed) {
    changed_.fetch_or(changed);
    while (changed_ != 0 && vizRef_ && tryEnter()) {
        writeStates();
        leave();
    }
}

// From inside.
void VizLink::writeStates() {
    PBGLSketchAbstract* vizRef = vizRef_;
    if (!vizRef) return;
    bool glides = isNew_;
    isNew_ = false;
    // The bits go before the values are read, so that a value which is stored meanwhile is posted again.
    for (std::uint32_t rest = changed_.exchange(0); rest != 0; rest &= rest - 1)
        glides |= writeState(*vizRef, static_cast<std::uint32_t>(std::countr_zero(rest)));
    if (glides) vizRef->restartGlide();
    vizRef->requestFrame(); // also for a value that came back as it was: an editor may have sent another one
}

// True when the value is another one than before.
bool VizLink::writeState(PBGLSketchAbstract& vizRef, std::uint32_t pid) const {
    if (pid >= vizRef.paramCount) return false;
    const float value = descriptions_[pid]->heldValueFromHostValue(parameters_.value(pid));
    QVMParameterState& state = vizRef.parameterStates[pid];
    if (state.value == value && vizRef.interpTargets[pid] == value) return false;
    state.value = value;
    state.interpolating = true;
    vizRef.interpTargets[pid] = value;
    return true;
}

// This product knows one kind of drawing object only.
QVMLevelMeter* VizLink::meter() const {
    PBGLSketchAbstract* vizRef = vizRef_;
    return vizRef ? static_cast<QVM0015GLSketch*>(vizRef)->levelMeter() : nullptr;
}

void VizLink::postLevels(std::span<const float> peaks, double seconds) {
    if (peaks.empty()) return;
    if (!vizRef_) return dropWaitingPeaks();
    for (std::size_t channel = 0; channel < channels; ++channel)
        waitingPeaks_[channel].raiseTo(peaks[std::min(channel, peaks.size() - 1)]);
    if (!tryEnter()) return;
    if (QVMLevelMeter* shown = meter()) {
        shown->setLevelSeconds(static_cast<float>(seconds + hostPatience));
        for (std::size_t channel = 0; channel < channels; ++channel) {
            const float peak = waitingPeaks_[channel].exchange(0);
            shown->processAudio(&peak, 1, meterRange, static_cast<int>(channel));
            if (isAboveSilence(peak)) vizRef()->requestFrame();
        }
    }
    leave();
    post(0); // what was stored while this thread was inside
}

void VizLink::dropWaitingPeaks() {
    for (SharedWord<float>& peak : waitingPeaks_)
        peak = 0;
}

void VizLink::resetLevels() {
    dropWaitingPeaks();
    enter();
    if (QVMLevelMeter* shown = meter()) {
        shown->reset();
        vizRef()->requestFrame();
    }
    leave();
    post(0);
}

} // namespace QVM_NAMESPACE
