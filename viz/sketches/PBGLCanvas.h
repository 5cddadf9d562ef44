// What a drawing object is told of the place it draws into. Built afresh for every call into it, passed by value.
#pragma once

#include "viz/sketches/PBParameter.h"

namespace QVM_NAMESPACE {

struct PBGLCanvas {
    std::uint32_t sid = 0; // of the sketch
    PBSketch sketch;
    PBParameter parameter; // the row of the sketch's parameter; without one it carries no meaning
    float width = 0;       // points
    float height = 0;      // points
    float scale = 1;       // device pixels a point
};

} // namespace QVM_NAMESPACE
