// What the response curve says at a frequency: read from the points that it is drawn from, so that nobody is told
// anything else than he sees. Main thread only.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

class QVM0015GLSketch;

struct CurveReading {
    float gainDb = 0;  // over the reference line, which is where the audio passes at its own level
    double height = 0; // of the line that is drawn there: 0 at the bottom of its box, 1 at the top; may lie outside
};

// While a filter is listened to, it is read from the curve of what is heard. Frequencies outside the curve read as its
// nearest end; a curve that was not prepared yet reads as 0 dB.
CurveReading readCurve(const QVM0015GLSketch& sketch, double hertz);

} // namespace QVM_NAMESPACE
