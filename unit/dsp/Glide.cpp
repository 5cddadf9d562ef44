#include "unit/dsp/Glide.h"

#include <cmath>

namespace QVM_NAMESPACE::dsp {

double Glide::follow(double target) {
    first_ += (target - first_) * share_;
    value_ += (first_ - value_) * share_;
    if (std::abs(first_ - target) < nearness_ && std::abs(value_ - target) < nearness_) snap(target);
    return value_;
}

} // namespace QVM_NAMESPACE::dsp
