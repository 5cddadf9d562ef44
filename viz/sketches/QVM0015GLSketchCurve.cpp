// The arithmetic of the response curve.
//
// It follows the curve's formulas but not their order of evaluation. Filters and tilt are computed as logarithms, and
// what would be a small difference of two large numbers is rewritten as a product, so that single precision is enough
// from the loudest to the faintest level: a filter that passes all but a millionth still has its audition curve right.
#include "platform/vector/VectorMath.h"
#include "response/ResponseModel.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr float kDecibelsPerNeper = 8.685889f;
// Hertz: a filter at its end of the band is off.
constexpr float kLowFilterOff = static_cast<float>(model::lowestHertz),
                kHighFilterOff = static_cast<float>(model::highestHertz);
constexpr float kDecibelsPerOctaveAndOrder = 6;
constexpr float kLargestExponent = 80; // its exponential is within a float's range
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr double kLeastResonanceOrder = 2;
constexpr int kLoudnessModes = 4;

} // namespace

QVM0015GLSketch::MaybeFilter QVM0015GLSketch::lowFilter() const {
    if (!(raw(pidFilterRangeLow) > kLowFilterOff)) return std::nullopt;
    return Filter{display(pidFilterRangeLow), display(pidFilterSlopeLow) / kDecibelsPerOctaveAndOrder,
                  display(pidFilterResonanceLow), -1};
}

QVM0015GLSketch::MaybeFilter QVM0015GLSketch::highFilter() const {
    if (!(raw(pidFilterRangeHigh) < kHighFilterOff)) return std::nullopt;
    return Filter{display(pidFilterRangeHigh), display(pidFilterSlopeHigh) / kDecibelsPerOctaveAndOrder,
                  display(pidFilterResonanceHigh), 1};
}

QVMTiltEQ_LoudnessMode QVM0015GLSketch::loudnessMode() const {
    const float mode = std::trunc(display(pidTiltLoudnessMode));
    const bool isKnown = mode >= 0 && mode < kLoudnessModes;
    return isKnown ? static_cast<QVMTiltEQ_LoudnessMode>(mode) : QVMTiltEQ_LoudnessWeighted;
}

void QVM0015GLSketch::calcRespWithFreqs(const float* freqs, bool listenLow, bool listenHigh, float* out) {
    const auto count = static_cast<std::size_t>(numPoints_);
    const MaybeFilter low = lowFilter(), high = highFilter();
    vectors::log(freqs, hpMag_.data(), count);
    calcFilters(low, high);
    if (listenLow || listenHigh) calcListenCurve(listenLow ? low : std::nullopt, listenHigh ? high : std::nullopt);

    const QVMTiltEQ_LoudnessMode mode = loudnessMode();
    const float gain = display(pidTiltGain);
    if (mode == QVMTiltEQ_LoudnessWeighted) { // the one that asks for the filters' magnitude, in resoCurve_
        vectors::scaleAndOffset(filterMag_.data(), -0.5f, 0.0f, resoCurve_.data(), count);
        vectors::exp(resoCurve_.data(), resoCurve_.data(), count);
    }
    const float compensation =
        QVMTiltEQ<float>::calcRespForParams(freqs, gain, display(pidTiltRangeLow), display(pidTiltRangeHigh), mode,
                                            loudnessWeights_.data(), resoCurve_.data(), hpMag_.data(), out, numPoints_);
    responseDisplay_.referenceLevel = -compensation - gain;
    vectors::scaleAndOffset(out, 1.0f, -gain, out, count);

    if (listenLow || listenHigh) { // the tilt belongs to what is auditioned, the filters do not
        vectors::log(listenCurve_.data(), listenCurve_.data(), count);
        vectors::multiplyAdd(listenCurve_.data(), kDecibelsPerNeper, out, listenCurve_.data(), count);
    }
    vectors::multiplyAdd(filterMag_.data(), -0.5f * kDecibelsPerNeper, out, out, count);
    addResonance(high, out);
    addResonance(low, out);
}

// Adds up ln(1 + (f / corner)^(2 order)) of both filters, upside down for the low one, in filterMag_. The magnitude of
// a filter is the exponential of minus half of it. Written as max(t, 0) + ln(1 + e^-|t|), which has no range to leave.
void QVM0015GLSketch::calcFilters(const MaybeFilter& low, const MaybeFilter& high) {
    const auto count = static_cast<std::size_t>(numPoints_);
    std::fill(filterMag_.begin(), filterMag_.end(), 0.0f);
    for (const MaybeFilter& filter : {low, high}) {
        if (!filter) continue;
        float* const t = resoCurve_.data();
        float* const positive = response_.data();
        const float slope = 2 * filter->order * filter->direction;
        vectors::scaleAndOffset(hpMag_.data(), slope, -slope * std::log(filter->corner), t, count);
        vectors::clip(t, 0.0f, kInfinity, positive, count);
        vectors::multiplyAdd(positive, -2.0f, t, t, count);
        vectors::exp(t, t, count);
        vectors::scaleAndOffset(t, 1.0f, 1.0f, t, count);
        vectors::log(t, t, count);
        vectors::add(positive, t, t, count);
        vectors::add(filterMag_.data(), t, filterMag_.data(), count);
    }
}

// What a filter takes away, 1 - 1 / s with s = sqrt(1 + x), as x / (s (s + 1)).
void QVM0015GLSketch::calcRemoved(const MaybeFilter& filter, float* out) {
    const auto count = static_cast<std::size_t>(numPoints_);
    if (!filter) return void(std::fill_n(out, count, 0.0f));
    float* const s = response_.data();
    const float slope = 2 * filter->order * filter->direction;
    vectors::scaleAndOffset(hpMag_.data(), slope, -slope * std::log(filter->corner), out, count);
    vectors::clip(out, -kLargestExponent, kLargestExponent, out, count);
    vectors::exp(out, out, count);
    vectors::scaleAndOffset(out, 1.0f, 1.0f, s, count);
    vectors::sqrt(s, s, count);
    vectors::divide(out, s, out, count);
    vectors::scaleAndOffset(s, 1.0f, 1.0f, s, count);
    vectors::divide(out, s, out, count);
}

// What the auditioned filters take away together: u + v - u v, which is 1 - (1 - u)(1 - v).
void QVM0015GLSketch::calcListenCurve(const MaybeFilter& low, const MaybeFilter& high) {
    const auto count = static_cast<std::size_t>(numPoints_);
    float* const v = resoCurve_.data();
    calcRemoved(low, listenCurve_.data());
    calcRemoved(high, v);
    vectors::scaleAndOffset(v, -1.0f, 1.0f, response_.data(), count);
    vectors::multiply(listenCurve_.data(), response_.data(), listenCurve_.data(), count);
    vectors::add(listenCurve_.data(), v, listenCurve_.data(), count);
}

void QVM0015GLSketch::addResonance(const MaybeFilter& filter, float* out) {
    if (!filter || !(filter->resonance > 0)) return;
    calcReso(resoCurve_.data(), filter->corner, filter->resonance, filter->order);
    vectors::add(out, resoCurve_.data(), out, static_cast<std::size_t>(numPoints_));
}

// A peaking filter's squared magnitude over p = sin^2(w / 2), with its coefficients put in and collected:
// ((p - p0)^2 + (alpha A)^2 (p - p^2)) / ((p - p0)^2 + (alpha / A)^2 (p - p^2)).
void QVM0015GLSketch::calcReso(float* out, float freq, float reso, float order) {
    const auto count = static_cast<std::size_t>(numPoints_);
    const double quality = 1 + 2 / std::max(double{order}, kLeastResonanceOrder);
    const double amplitude = std::pow(10.0, reso / 40.0);
    const double angle = 2 * std::numbers::pi * std::min(double{freq}, model::highestPeakHertz) / model::peakRateHz;
    const double alpha = std::sin(angle) / (2 * quality);
    const double center = std::pow(std::sin(angle / 2), 2);
    const auto squared = [](double x) { return static_cast<float>(x * x); };

    float* const skirt = hpMag_.data();
    float* const boosted = filterMag_.data();
    vectors::multiplyAdd(sinQuad_.data(), -1.0f, sinSq_.data(), skirt, count);
    vectors::scaleAndOffset(sinSq_.data(), 1.0f, static_cast<float>(-center), out, count);
    vectors::multiply(out, out, out, count);
    vectors::multiplyAdd(skirt, squared(alpha * amplitude), out, boosted, count);
    vectors::multiplyAdd(skirt, squared(alpha / amplitude), out, out, count);
    vectors::divide(boosted, out, out, count);
    vectors::log(out, out, count);
    vectors::scaleAndOffset(out, kDecibelsPerNeper / 2, 0.0f, out, count);
}

} // namespace QVM_NAMESPACE
