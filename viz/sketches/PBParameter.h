// What drawing code needs of a parameter, as seventeen 4-byte values: a row can be copied into a canvas and read on any
// thread, with no parameter record at hand.
#pragma once

#include "description/ParameterIDs.h"
#include "viz/sketches/PBSketch.h"

#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

enum PBParameterFlag : std::uint32_t {
    PBParameterHorizontal = 1 << 0, // the slider lies
    PBParameterLogarithmic = 1 << 1,
};

struct PBParameter {
    float defaultValue = 0; // shown domain, as are the next two
    float minValue = 0;
    float maxValue = 0;
    std::uint32_t flags = 0; // PBParameterFlag
    QVMRGBColor color;
    PBRect frame; // of the control, points with y downwards, in its clump
    // Where a meter stands over the control: points with y upwards, in the control's own box. The length is the way of
    // the handle's centre, so that meter and handle show a value at the same height. The width is that of one channel.
    PBRect track;
    std::int32_t unit = 0;        // QVMUnitCode
    std::int32_t controlType = 0; // QVMControlTypeCode
    bool operator==(const PBParameter&) const = default;
};
static_assert(sizeof(PBParameter) == 17 * sizeof(float));

// One row a parameter, by pid. Built before main() from the parameter tables, never changed.
extern const std::array<PBParameter, QVMParameterCount> PB_Parameters;

} // namespace QVM_NAMESPACE
