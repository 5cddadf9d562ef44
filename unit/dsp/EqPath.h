// One way through the equaliser: a few stages in a row, and the corrector's filter behind them.
//
// Time runs in steps: the coefficients that a step starts with move in a straight line to those it ends with. Render
// thread; nothing allocates.
#pragma once

#include "unit/dsp/Corrector.h"
#include "unit/dsp/Stage.h"
#include "unit/dsp/SvfCascade.h"

#include <array>
#include <cstddef>
#include <span>

namespace QVM_NAMESPACE::dsp {

constexpr std::size_t maxStepFrames = BothRemoved::mostFrames;
using StageSet = std::array<Stage, stageKinds>; // by kind

class EqPath {
public:
    // Which stages it has. All start at rest.
    void reshape(std::span<const StageKind> kinds, std::size_t tapCount);
    // A new step, to the stages as they are designed now. `frames` is its length; 0: be there at once.
    void begin(const StageSet& stages, const Corrector& corrector, std::size_t frames);
    // A new step in which nothing moves.
    void hold();
    // Filters in place. Calls within a step add up to no more than its length.
    void process(double* samples, std::size_t frames);
    // Forgets the past of the signal.
    void reset();
    // Small remains become 0, so that silence costs no more than sound. False when the state is not finite.
    bool settle();
    // It passes everything as it is, and rests.
    bool isFlat() const;

private:
    static constexpr std::size_t maxStages = 5, maxSections = tiltSections + stageMaxSections;
    struct Slot {
        StageKind kind = StageKind::tilt;
        std::size_t first = 0, count = 0; // sections
        bool isFlat = true;               // all through the step
        bool endsFlat = true;
    };

    void processSections(double* samples, std::size_t frames);
    void processTaps(double* samples, std::size_t frames);

    std::array<Slot, maxStages> slots_{};
    std::size_t slotCount_ = 0, sectionCount_ = 0;
    std::array<vectors::SvfCoefficients, maxSections> now_{}, steps_{}, ends_{};
    std::array<vectors::SvfState, maxSections> states_{};
    bool isMoving_ = false;
    std::size_t length_ = 1, done_ = 0; // of the step, frames

    std::size_t tapCount_ = 1;
    Corrector::Taps taps_{1}, tapEnds_{1};
    bool hasTaps_ = false;
    std::array<double, 2 * (Corrector::maxTaps + maxStepFrames)> past_{}; // the end of the signal before, then this one
};

} // namespace QVM_NAMESPACE::dsp
