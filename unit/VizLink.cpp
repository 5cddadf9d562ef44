#include "unit/VizLink.h"

#include "description/Description.h"
#include "link/PeakLevel.h"
#include "unit/UnitParameters.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <thread>

namespace QVM_NAMESPACE {

namespace {

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

void VizLink::exchange(SharedState* state) {
    enter();
    if (SharedState* const earlier = state_) earlier->frameRequest.ask(); // its editor may want to know
    state_ = state;
    isNew_ = true;
    leave();
    while (isTapping_) // a stretch of the signal
        std::this_thread::yield();
    allParametersChanged();
}

void VizLink::post(std::uint32_t changed) {
    changed_.fetch_or(changed);
    while (changed_ != 0 && state_ && tryEnter()) {
        writeStates();
        leave();
    }
}

// From inside.
void VizLink::writeStates() {
    SharedState* state = state_;
    if (!state) return;
    bool glides = isNew_;
    isNew_ = false;
    // The bits go before the values are read, so that a value which is stored meanwhile is posted again.
    const std::uint32_t stored = changed_.exchange(0);
    for (std::uint32_t rest = stored; rest != 0; rest &= rest - 1)
        glides |= writeState(*state, static_cast<std::uint32_t>(std::countr_zero(rest)));
    state->storedParameters.setBits(stored);
    if (glides) state->restartGlide();
    state->frameRequest.ask(); // also for a value that came back as it was: an editor may have sent another one
}

// True when the value is another one than before.
bool VizLink::writeState(SharedState& state, std::uint32_t pid) const {
    return state.glide.post(pid, descriptions_[pid]->heldValueFromHostValue(parameters_.value(pid)));
}

void VizLink::postLevels(std::span<const float> peaks, double seconds) {
    if (peaks.empty()) return;
    if (!state_) return dropWaitingPeaks();
    for (std::size_t channel = 0; channel < channels; ++channel)
        waitingPeaks_[channel].raiseTo(peaks[std::min(channel, peaks.size() - 1)]);
    if (!tryEnter()) return;
    if (SharedState* const state = state_) {
        state->levels.setStandingSeconds(static_cast<float>(seconds + hostPatience));
        for (std::size_t channel = 0; channel < channels; ++channel) {
            const float peak = waitingPeaks_[channel].exchange(0);
            state->levels.post(channel, peakLevel(peak, SharedState::meterRange));
            if (isAboveSilence(peak)) state->frameRequest.ask();
        }
    }
    leave();
    post(0); // what was stored while this thread was inside
}

// A state that is given up is not looked at afterwards: who gives it up waits for the flag, which goes up before the
// state is looked for.
template <class Use>
void VizLink::useTap(Use use) {
    isTapping_ = true;
    if (SharedState* const state = state_; state && state->tap.isWanted()) use(*state);
    isTapping_ = false;
}

SignalListener* VizLink::listener(double sampleRateHz) {
    if (!state_.load(std::memory_order_relaxed)) return nullptr;
    SignalListener* listener = nullptr;
    useTap([&](SharedState& state) {
        state.tap.setSampleRateHz(sampleRateHz);
        listener = this;
    });
    return listener;
}

void VizLink::hear(std::span<const TapFrame> frames) {
    useTap([frames](SharedState& state) {
        state.tap.append(frames);
        const auto isHeard = [](const TapFrame& f) {
            return isAboveSilence(
                std::max({std::abs(f.input[0]), std::abs(f.input[1]), std::abs(f.output[0]), std::abs(f.output[1])}));
        };
        if (std::ranges::any_of(frames, isHeard)) state.frameRequest.ask();
    });
}

void VizLink::dropWaitingPeaks() {
    for (SharedWord<float>& peak : waitingPeaks_)
        peak = 0;
}

void VizLink::resetLevels() {
    dropWaitingPeaks();
    enter();
    if (SharedState* const state = state_) {
        state->levels.reset();
        state->frameRequest.ask();
    }
    leave();
    post(0);
}

} // namespace QVM_NAMESPACE
