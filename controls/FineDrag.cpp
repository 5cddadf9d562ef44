#include "controls/FineDrag.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kLeastHertz = 10, kLeastHertzFromTenKilohertz = 100;
constexpr float kTenKilohertz = 10000;
constexpr double kPointsAFineStep = 6;

} // namespace

// A fine step about every six points, or a sixth of the way where steps are wider than points. On a logarithmic
// parameter it is even in values rather than in octaves; frequencies go in steps that their text shows.
double fineDragMultiplier(const QVMParameter& parameter, float value, double points) {
    const double step = parameter.granularityValueForType(QVMGranularityFine, value);
    const double range = parameter.valueRange();
    double multiplier = std::min(points / (range / step), 1.0) / kPointsAFineStep;
    if (parameter.logarithmic) {
        const double octaves = std::log(parameter.maxValue) - std::log(parameter.minValue);
        multiplier *= range / (octaves * static_cast<double>(value));
    }
    if (parameter.unit == QVMUnitHertz)
        multiplier *= std::max(step, value < kTenKilohertz ? kLeastHertz : kLeastHertzFromTenKilohertz) / step;
    return std::isfinite(multiplier) ? multiplier : 1;
}

} // namespace QVM_NAMESPACE
