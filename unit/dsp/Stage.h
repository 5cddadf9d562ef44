// The parts that the equaliser is made of, each a few second-order sections.
//
// Render thread; nothing allocates.
#pragma once

#include "unit/dsp/BothRemoved.h"
#include "unit/dsp/Corrector.h"
#include "unit/dsp/EqSettings.h"
#include "unit/dsp/SvfCascade.h"

#include <array>
#include <cstddef>

namespace QVM_NAMESPACE::dsp {

enum class StageKind : unsigned char { tilt, low, high, lowPeak, highPeak, lowRemoved, highRemoved, bothRemoved };
constexpr std::size_t stageKinds = 8;
constexpr std::size_t stageMaxSections = BothRemoved::sections;

// How many sections a stage has.
std::size_t sectionsOf(StageKind kind);

class Stage {
public:
    // What the stage is now. False when the settings that matter to it are those of the last call.
    bool design(StageKind kind, const EqSettings& settings, double sampleRateHz, const Corrector& corrector);
    // The next design() computes everything anew.
    void forget() { isKnown_ = false; }

    const vectors::SvfCoefficients& section(std::size_t index) const { return sections_[index]; }
    // What the digital sections lack, at the corrector's frequencies.
    const Corrector::Rest& rest() const { return rest_; }
    // It passes its input as it is.
    bool isFlat() const { return isFlat_; }

private:
    using Inputs = std::array<double, 4>;

    void designTilt(const EqSettings& settings, double sampleRateHz, const Corrector& corrector);
    void designFilter(StageKind kind, const EqSettings& settings, double sampleRateHz, const Corrector& corrector);
    void designBoth(const EqSettings& settings, double sampleRateHz, const Corrector& corrector);
    void designPeak(const FilterSettings& filter, double sampleRateHz, const Corrector& corrector);

    Inputs inputs_{};
    bool isKnown_ = false;
    bool isFlat_ = true;
    std::array<vectors::SvfCoefficients, stageMaxSections> sections_{};
    Corrector::Rest rest_{}; // 1 where nothing lacks
};

} // namespace QVM_NAMESPACE::dsp
