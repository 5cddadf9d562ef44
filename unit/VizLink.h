// The unit's end of the state that it shares with an editor: writes parameters and levels into it.
//
// Whoever changes a parameter posts it at once, so that an editor also follows a host that plays no audio; the render
// thread posts its levels, and what another thread had to leave behind. A flag says that a thread is inside the state.
// The one that finds it set goes on without waiting, and the one inside takes over what came meanwhile. Only who
// exchanges the state or resets its levels waits for the flag: so a state may be destroyed as soon as it was given up
// here. The signal, of which no stretch is to be missing, has a flag of its own that nobody but the render thread sets.
#pragma once

#include "description/ParameterIDs.h"
#include "link/SharedState.h"
#include "unit/SignalListener.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

namespace QVM_NAMESPACE {

class QVMParameter;
class UnitParameters;

class VizLink final : private SignalListener {
public:
    static constexpr std::size_t channels = SharedState::meterChannels;

    // The parameters are borrowed. Main thread: it reads the description.
    explicit VizLink(const UnitParameters& parameters);

    // Lets go of the state there was, then posts all parameters to the new one, which glides to them. Null: there is
    // none. Borrowed; who owns it calls this with another one, or with null, before it goes. When this returns no
    // thread is inside the earlier one. Any thread but the render thread.
    void exchange(SharedState* state);
    // Any thread; what it refers to is for the owner to use.
    SharedState* state() const { return state_.load(); }

    // After a parameter was stored: posts it in the shown domain, as the editor reads the unit. Any thread, the render
    // thread too; never waits. A value that is posted already starts no glide; a frame is asked for all the same.
    void parameterChanged(std::uint32_t pid) { post(std::uint32_t{1} << pid); }
    void allParametersChanged() { post(everyPid); }
    // The peaks of one block that lasts `seconds`, an amplitude for each output; a single one stands for both channels
    // of the meter. Levels that find the state in use are kept for the next block. Render thread, or who prepares the
    // unit while nothing renders; never waits.
    void postLevels(std::span<const float> peaks, double seconds);
    // Who is to hear the block that is rendered next: null unless an editor wants the signal. `sampleRateHz` is the
    // signal's. Render thread; never waits.
    SignalListener* listener(double sampleRateHz);
    // Has the meter forget what it shows, and what is kept for it. Any thread but the render thread.
    void resetLevels();

private:
    static constexpr std::uint32_t everyPid = (std::uint32_t{1} << QVMParameterCount) - 1;

    void hear(std::span<const TapFrame> frames) override;
    template <class Use>
    void useTap(Use use);

    void post(std::uint32_t changed);
    void writeStates();
    bool writeState(SharedState& state, std::uint32_t pid) const;
    void dropWaitingPeaks();
    void enter();
    bool tryEnter() { return !isInside_.exchange(true); }
    void leave() { isInside_ = false; }

    const UnitParameters& parameters_;
    std::array<const QVMParameter*, QVMParameterCount> descriptions_; // constant once constructed

    // In one order that all threads agree on: who leaves looks for changes afterwards, who changes something tries to
    // enter afterwards, so that none is left behind.
    std::atomic<std::uint32_t> changed_ = 0;    // a bit a pid: stored, and not posted yet
    std::atomic<bool> isInside_ = false;        // a thread uses the state
    std::atomic<bool> isTapping_ = false;       // the render thread uses the state's tap
    std::atomic<SharedState*> state_ = nullptr; // written only from inside
    bool isNew_ = false;                        // nothing was posted to it yet; used only from inside

    std::array<SharedWord<float>, channels> waitingPeaks_; // amplitudes that found the state in use
};

} // namespace QVM_NAMESPACE
