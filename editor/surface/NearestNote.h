// The note of the tempered scale that a frequency is nearest to, with A4 at 440 Hz.
#pragma once

#include "BuildNamespace.h"

#include <string>

namespace QVM_NAMESPACE {

struct NearestNote {
    std::string name; // with its octave, "C#4"; middle C is C4
    int cents = 0;    // that the frequency lies above it, -50 to 50
    bool operator==(const NearestNote&) const = default;
};

// Hertz, above 0. Any thread.
NearestNote nearestNote(double hertz);

} // namespace QVM_NAMESPACE
