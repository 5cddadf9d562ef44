// A unit in which every stage has something to do, and sound to send through it.
#pragma once

#include "unit/Signals.h"
#include "unit/dsp/Response.h"

#include <algorithm>
#include <vector>

namespace QVM_NAMESPACE {

constexpr double rateHz = 48000;

// Initial values but for tilt, both filters and both resonances.
inline ShownValues busyValues() {
    ShownValues values = initialValues();
    for (const auto& [pid, value] : {std::pair{pidTiltGain, 9.0F},
                                     {pidFilterRangeLow, 60.0F},
                                     {pidFilterRangeHigh, 9000.0F},
                                     {pidFilterSlopeLow, 48.0F},
                                     {pidFilterResonanceLow, 12.0F},
                                     {pidFilterSlopeHigh, 33.0F},
                                     {pidFilterResonanceHigh, 6.0F}})
        values[pid] = value;
    return values;
}

// One channel at `rateHz`, standing at the values from the first sample on.
inline void makeMono(QVM0015_AudioUnit& unit, const ShownValues& values) {
    setAll(unit, values);
    unit.prepare(rateHz, 512, 1, 1);
}

// Sends one channel through the unit in place, a block of so many samples at a time.
template <class Sample>
void render(QVM0015_AudioUnit& unit, std::vector<Sample>& signal, std::size_t block = 512) {
    for (std::size_t at = 0; at < signal.size(); at += block) {
        Sample* const here[] = {signal.data() + at};
        unit.process(here, here, static_cast<std::uint32_t>(std::min(block, signal.size() - at)));
    }
}

// The same sound to both channels; they are as long as it is.
inline void refill(std::vector<float>& left, std::vector<float>& right, const std::vector<float>& with) {
    std::ranges::copy(with, left.begin());
    std::ranges::copy(with, right.begin());
}

} // namespace QVM_NAMESPACE
