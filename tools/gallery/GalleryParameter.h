// A parameter that belongs to no product: its curve and its texts follow from its fields alone, so that a control can
// be shown on any range, unit and set of names.
#pragma once

#include "description/QVMParameter.h"

namespace QVM_NAMESPACE {

class GalleryParameter final : public QVMParameter {
public:
    // Logarithmic where the field says so, else linear.
    float percentageFromFloatValue(float shownValue) const override;
    float normalizedFloatValueFromPercent(float percent, std::uint32_t type) const override;
    // The value's name, or the number with `decimals`; frequencies as the product shows them.
    std::string stringForValue(float value) const override;
    std::optional<std::string> suffixForValue(float value) const override;

    int decimals = 0;
};

} // namespace QVM_NAMESPACE
