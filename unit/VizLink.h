// The unit's end of the drawing object that it shares with an editor: writes parameters and levels into it.
//
// Whoever changes a parameter posts it at once, so that an editor also follows a host that plays no audio; the render
// thread posts its levels, and what another thread had to leave behind. A flag says that a thread is inside the object.
// The one that finds it set goes on without waiting, and the one inside takes over what came meanwhile. Only who
// exchanges the object waits for the flag, so that the object may be destroyed as soon as it was given up here.
#pragma once

#include "description/ParameterIDs.h"
#include "link/SharedWord.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

namespace QVM_NAMESPACE {

class PBGLSketchAbstract;
class QVMLevelMeter;
class QVMParameter;
class UnitParameters;

class VizLink {
public:
    static constexpr std::size_t channels = 2; // of the level meter

    // The parameters are borrowed. Main thread: it reads the description.
    explicit VizLink(const UnitParameters& parameters);

    // Lets go of the object there was, then posts all parameters to the new one, which glides to them. Null: there is
    // none. Borrowed; who owns it calls this with another one, or with null, before it goes. When this returns no
    // thread is inside the earlier object. Any thread but the render thread.
    void exchange(PBGLSketchAbstract* vizRef);
    // Any thread; what it refers to is for the owner to use.
    PBGLSketchAbstract* vizRef() const { return vizRef_.load(); }

    // After a parameter was stored: posts it in the shown domain, as the editor reads the unit. Any thread, the render
    // thread too; never waits. Nothing happens for a value that is posted already.
    void parameterChanged(std::uint32_t pid) { post(std::uint32_t{1} << pid); }
    void allParametersChanged() { post(everyPid); }
    // The peaks of one block that lasts `seconds`, an amplitude for each output; a single one stands for both channels
    // of the meter. Levels that find the object in use are kept for the next block. Render thread; never waits.
    void postLevels(std::span<const float> peaks, double seconds);
    // Has the meter forget what it shows, and what is kept for it. Any thread but the render thread.
    void resetLevels();

private:
    static constexpr std::uint32_t everyPid = (std::uint32_t{1} << QVMParameterCount) - 1;

    void post(std::uint32_t changed);
    void writeStates();
    bool writeState(PBGLSketchAbstract& vizRef, std::uint32_t pid) const;
    void dropWaitingPeaks();
    QVMLevelMeter* meter() const; // from inside; null for none
    void enter();
    bool tryEnter() { return !isInside_.exchange(true); }
    void leave() { isInside_ = false; }

    const UnitParameters& parameters_;
    std::array<const QVMParameter*, QVMParameterCount> descriptions_; // constant once constructed

    // In one order that all threads agree on: who leaves looks for changes afterwards, who changes something tries to
    // enter afterwards, so that none is left behind.
    std::atomic<std::uint32_t> changed_ = 0;            // a bit a pid: stored, and not posted yet
    std::atomic<bool> isInside_ = false;                // a thread uses the object
    std::atomic<PBGLSketchAbstract*> vizRef_ = nullptr; // written only from inside
    bool isNew_ = false;                                // nothing was posted to it yet; used only from inside

    std::array<SharedWord<float>, channels> waitingPeaks_; // amplitudes that found the object in use
};

} // namespace QVM_NAMESPACE
