#include "unit/GainRamp.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

double amplitudeFromDecibels(float decibels) {
    constexpr float silent = -96, loudest = 12;
    if (!(decibels > silent)) return 0;
    return std::pow(10.0, static_cast<double>(std::min(decibels, loudest)) / 20);
}

void GainRamp::prepare(double sampleRateHz, double gain) {
    length_ = static_cast<std::uint32_t>(std::max(1.0, std::round(sampleRateHz * seconds)));
    target_ = gain;
    snap();
}

void GainRamp::setTarget(double gain) {
    if (gain == target_) return;
    target_ = gain;
    step_ = (target_ - current_) / length_;
    remaining_ = length_;
}

void GainRamp::snap() {
    current_ = target_;
    remaining_ = 0;
}

double GainRamp::next() {
    if (remaining_ == 0) return target_;
    current_ = --remaining_ == 0 ? target_ : current_ + step_;
    return current_;
}

} // namespace QVM_NAMESPACE
