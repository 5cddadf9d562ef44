// The parameters as the audio unit holds them, and the glide in which an editor's picture follows them.
//
// The unit's side writes targets and starts the glide anew; the main thread takes a step of it in each display frame.
// Neither waits for the other: what both touch are single words, and the two flags are kept in such an order that no
// target is left behind, whatever the two are in the middle of.
#pragma once

#include "link/QVMParameterState.h"

#include <cstdint>
#include <vector>

namespace QVM_NAMESPACE {

class ParameterGlide {
public:
    ParameterGlide() = default;
    ParameterGlide(const ParameterGlide&) = delete;
    ParameterGlide& operator=(const ParameterGlide&) = delete;

    // Gives every parameter a state and a place in the glide, all 0. Main thread, before the object is shared.
    void sizeStates(std::uint32_t count);

    // A parameter is held and shown at a value (shown domain), with nothing to glide; nothing happens for a pid that
    // has no state. Main thread, while nobody else has the object.
    void standAt(std::uint32_t pid, float value);

    // The unit's side, one thread at a time, which may be the render thread; never waits. Posts a value in the shown
    // domain; false, and nothing happens, for one that is posted already and for a pid that has no state.
    bool post(std::uint32_t pid, float value);
    // As above: starts the glide anew towards the targets, which are written before.
    void restart();

    // One step of the glide: an exponential approach that ends exactly at the targets with the seventh step. Main
    // thread, once a display frame. A target that is posted meanwhile is taken up by this step or by the next one.
    void performInterp();

    // Written while nobody else has the object, constant afterwards.
    std::uint32_t paramCount = 0;
    // By pid. Who writes which word is said at QVMParameterState.
    std::vector<QVMParameterState> parameterStates;
    // Written by the unit's side, read by the main thread.
    std::vector<SharedWord<float>> interpTargets;
    // Written by both, in restart() and in performInterp().
    SharedWord<float> interpAmount = 0;       // 0 at a glide's start, 1 at its end
    SharedWord<bool> isInterpolating = false; // a glide runs
    SharedWord<bool> interpPending = false;   // it has not reached its targets yet
    // The main thread's alone.
    std::vector<float> interpValues;
    std::vector<float> interpScratch;
};

} // namespace QVM_NAMESPACE
