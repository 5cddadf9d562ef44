#include "unit/dsp/Loudness.h"

#include "platform/vector/VectorMath.h"
#include "response/QVMTiltEQ.h"
#include "response/ResponseModel.h"

#include <cmath>
#include <limits>

namespace QVM_NAMESPACE::dsp {

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

} // namespace

Loudness::Loudness() {
    for (std::size_t i = 0; i < points; ++i) {
        const double at = static_cast<double>(i) / (points - 1);
        const double hertz = model::lowestHertz * std::pow(model::highestHertz / model::lowestHertz, at);
        hertz_[i] = static_cast<float>(hertz);
        logs_[i] = static_cast<float>(std::log(hertz));
        weights_[i] = static_cast<float>(model::loudnessWeight(hertz));
    }
}

double Loudness::compensation(const EqSettings& settings) {
    if (settings.tiltGain == 0) return 0;
    filters_.fill(0);
    if (settings.loudness == QVMTiltEQ_LoudnessWeighted) {
        addFilter(settings.low, -1);
        addFilter(settings.high, 1);
        vectors::scaleAndOffset(filters_.data(), -0.5F, 0, filters_.data(), points);
        vectors::exp(filters_.data(), filters_.data(), points);
    }
    return static_cast<double>(QVMTiltEQ<float>::calcRespForParams(
        hertz_.data(), static_cast<float>(settings.tiltGain), static_cast<float>(settings.tiltLow),
        static_cast<float>(settings.tiltHigh), settings.loudness, weights_.data(), filters_.data(), scratch_.data(),
        tilt_.data(), static_cast<int>(points)));
}

// Adds ln(1 + (f / corner)^(2 order)), upside down for the low filter, as max(t, 0) + ln(1 + e^-|t|).
void Loudness::addFilter(const FilterSettings& filter, float direction) {
    if (filter.state == Switch::off) return;
    const float slope = 2 * static_cast<float>(filter.order) * direction;
    const float offset = -slope * static_cast<float>(std::log(filter.corner));
    vectors::scaleAndOffset(logs_.data(), slope, offset, work_.data(), points);
    vectors::clip(work_.data(), 0, kInfinity, scratch_.data(), points);
    vectors::add(filters_.data(), scratch_.data(), filters_.data(), points);
    vectors::multiplyAdd(scratch_.data(), -2, work_.data(), work_.data(), points);
    vectors::exp(work_.data(), work_.data(), points);
    vectors::scaleAndOffset(work_.data(), 1, 1, work_.data(), points);
    vectors::log(work_.data(), work_.data(), points);
    vectors::add(filters_.data(), work_.data(), filters_.data(), points);
}

} // namespace QVM_NAMESPACE::dsp
