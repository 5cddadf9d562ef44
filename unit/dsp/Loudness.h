// The gain that makes up for the loudness which the tilt adds or takes, as the response curve shows it.
//
// Render thread; the tables are filled by the constructor.
#pragma once

#include "unit/dsp/EqSettings.h"

#include <array>
#include <cstddef>

namespace QVM_NAMESPACE::dsp {

class Loudness {
public:
    Loudness();
    // dB, for these settings. Filters that are off count for nothing.
    double compensation(const EqSettings& settings);

private:
    static constexpr std::size_t points = 96; // over the band of the curve, even on a logarithmic scale
    using Values = std::array<float, points>;

    void addFilter(const FilterSettings& filter, float direction);

    Values hertz_{}, logs_{}, weights_{};
    Values filters_{}, scratch_{}, tilt_{}, work_{};
};

} // namespace QVM_NAMESPACE::dsp
