#include "editor/surface/CurveReading.h"

#include "viz/sketches/QVM0015GLSketch.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace QVM_NAMESPACE {

namespace {

// Between two points the curve is a line over the logarithm of the frequency, as on screen.
double interpolated(std::span<const float> values, double index) {
    const auto below = static_cast<std::size_t>(index);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    const double share = index - static_cast<double>(below), low = values[below], high = values[above];
    return low + share * (high - low);
}

} // namespace

CurveReading readCurve(const QVM0015GLSketch& sketch, double hertz) {
    const QVMFreqResp& display = sketch.responseDisplay();
    constexpr int response = 0, audition = 1;
    const bool listens = display.numCurves() > audition && !display.curve(audition).hidden;
    const std::span<const float> levels = listens ? sketch.listenCurve() : sketch.response();
    const std::size_t count = levels.size();
    if (count < 2) return {};
    const double lowest = std::log(double{display.freqs().front()}), highest = std::log(double{display.freqs().back()});
    const double share = (std::log(hertz) - lowest) / (highest - lowest);
    const double index = std::clamp(share, 0.0, 1.0) * static_cast<double>(count - 1);
    const std::span<const float> ys = display.curve(listens ? audition : response).ys;
    return {static_cast<float>(interpolated(levels, index)) - display.referenceLevel,
            (interpolated(ys, index) + 1) / 2};
}

} // namespace QVM_NAMESPACE
