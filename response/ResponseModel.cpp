#include "response/ResponseModel.h"

#include <cmath>

namespace QVM_NAMESPACE::model {

double loudnessWeight(double hertz) {
    const auto slope = [](double ratio, double power) { return 1 / std::sqrt(1 + std::pow(ratio, power)); };
    return slope(500 / hertz, 2) * slope(63 / hertz, 2.7) * slope(hertz / 5000, 4.8) * slope(hertz / 20, 2);
}

} // namespace QVM_NAMESPACE::model
