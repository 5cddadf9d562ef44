// How round corners are, points: what is not a capsule has one of these.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {
namespace radii {

inline constexpr double box = 8;  // of what holds something: boxes, notices, outlines
inline constexpr double mark = 4; // of what lies in a box or under a sign: marks, lights, pictures

} // namespace radii
} // namespace QVM_NAMESPACE
