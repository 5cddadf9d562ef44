// What a sketch is: which picture, where it sits, in which colour, and when it is drawn anew.
//
// Plain records, copied by value. Coordinates are points with y downwards.
#pragma once

#include "description/ParameterIDs.h"
#include "description/Types.h"
#include "description/tables/Frames.h"

#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

struct PBRect {
    float x = 0;
    float y = 0;
    float w = 0;
    float h = 0;
    bool operator==(const PBRect&) const = default;
};

constexpr PBRect PBRectFrom(const Rect& rect) {
    return {static_cast<float>(rect.x), static_cast<float>(rect.y), static_cast<float>(rect.width),
            static_cast<float>(rect.height)};
}

// The pictures that the drawing object knows; a sketch with another id stays empty.
enum PBSketchID : std::uint32_t {
    PBSketchResponseCurve = 0,
    PBSketchLevelMeter = 1,
};

struct PBSketch {
    std::uint32_t sid = 0;        // PBSketchID: what the drawing object draws
    std::int32_t pid = -1;        // the parameter that it belongs to, -1 for none
    PBRect outer;                 // in the view that holds it
    bool parameterSketch = false; // true: shows parameters, drawn while they glide; false: shows audio, drawn always
    QVMRGBColor color;
    bool advanced = false; // belongs to the controls that are hidden at first
    bool operator==(const PBSketch&) const = default;
};

// This product's sketches: the response curve in the power box, and the meter that stands exactly over the output
// gain's slider in the view around the clumps.
inline constexpr std::array<PBSketch, 2> PB_Sketches = {{
    {PBSketchResponseCurve, -1, PBRectFrom(tables::kCurvePlace), true, {1.0f, 1.0f, 1.0f}, false},
    {PBSketchLevelMeter,
     pidOutputGain,
     PBRectFrom(tables::kMeterPlace),
     false,
     {0.5764706f, 0.5215687f, 0.5254902f},
     false},
}};

} // namespace QVM_NAMESPACE
