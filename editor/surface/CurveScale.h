// Where a frequency and a level stand on the response curve. Points of the view that shows it, y downwards. A plain
// value.
#pragma once

#include "geometry/Geometry.h"
#include "viz/sketches/QVMFreqResp.h"

#include <cmath>

namespace QVM_NAMESPACE {

struct CurveScale {
    Size size; // points
    double lowestHertz = 1, highestHertz = 1;
    double lowestDb = 0, highestDb = 0;

    CurveScale() = default;
    // As the display is built and drawn at this moment; empty where it has no points.
    explicit CurveScale(const QVMFreqResp& display) {
        if (display.numPoints() < 2) return;
        size = {display.canvas().width, display.canvas().height};
        lowestHertz = display.freqs().front();
        highestHertz = display.freqs().back();
        lowestDb = display.dbRange.min;
        highestDb = display.dbRange.max;
    }

    bool isEmpty() const { return !(size.width > 0 && size.height > 0 && highestDb > lowestDb); }
    double naturalOctaves() const { return std::log(highestHertz / lowestHertz); } // of the width, as a logarithm
    double xOf(double hertz) const { return size.width * std::log(hertz / lowestHertz) / naturalOctaves(); }
    double hertzAt(double x) const { return lowestHertz * std::exp(x / size.width * naturalOctaves()); }
    double yOf(double db) const { return size.height * (highestDb - db) / (highestDb - lowestDb); }
    bool operator==(const CurveScale&) const = default;
};

} // namespace QVM_NAMESPACE
