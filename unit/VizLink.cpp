#include "unit/VizLink.h"

#include "description/Description.h"
#include "unit/UnitParameters.h"
#include "viz/QVM0015GLSketch.h"

#include <algorithm>
#include <bit>
#include <thread>

namespace QVM_NAMESPACE {

namespace {

constexpr QVMFloat32Range meterRange = {-96, 12}; // dB

} // namespace

VizLink::VizLink(const UnitParameters& parameters) : parameters_(parameters) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        descriptions_[pid] = GetParameter(pid);
}

void VizLink::exchange(PBGLSketchAbstract* vizRef) {
    while (!tryEnter())
        std::this_thread::yield();
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

void VizLink::postLevels(std::span<const float> peaks) {
    if (peaks.empty()) return;
    if (!vizRef_) {
        waitingPeaks_.fill(0);
        return;
    }
    for (std::size_t channel = 0; channel < channels; ++channel) {
        const float peak = peaks[std::min(channel, peaks.size() - 1)];
        waitingPeaks_[channel] = std::max(waitingPeaks_[channel], peak);
    }
    if (!tryEnter()) return;
    PBGLSketchAbstract* vizRef = vizRef_;
    // This product knows one kind of drawing object only.
    if (QVMLevelMeter* meter = vizRef ? static_cast<QVM0015GLSketch*>(vizRef)->levelMeter() : nullptr) {
        for (std::size_t channel = 0; channel < channels; ++channel)
            meter->processAudio(&waitingPeaks_[channel], 1, meterRange, static_cast<int>(channel));
    }
    waitingPeaks_.fill(0);
    leave();
    post(0); // what was stored while this thread was inside
}

} // namespace QVM_NAMESPACE
