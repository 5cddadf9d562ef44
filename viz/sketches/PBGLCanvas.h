// What a drawing object is told of the place it draws into. Built afresh for every call into it, passed by value.
#pragma once

#include "platform/surface/Color.h"
#include "viz/sketches/PBParameter.h"

#include <optional>

namespace QVM_NAMESPACE {

// How a place wants a meter drawn that stands in it: all channels in one ink, and apart.
struct MeterInk {
    Color bar;
    Color clip;    // of the bars while they clip
    float gap = 0; // between two channels, points
    bool operator==(const MeterInk&) const = default;
};

struct PBGLCanvas {
    std::uint32_t sid = 0; // of the sketch
    PBSketch sketch;
    PBParameter parameter; // the row of the sketch's parameter; without one it carries no meaning
    float width = 0;       // points
    float height = 0;      // points
    float scale = 1;       // device pixels a point
    std::optional<MeterInk> meterInk = std::nullopt; // without one each channel has its own colours
};

} // namespace QVM_NAMESPACE
