#include "description/tables/ParameterLayoutTable.h"

#include <array>

namespace QVM_NAMESPACE {
namespace tables {

namespace {

// Points of drag for the whole range: fine, normal, coarse. A drag of one and a half times the number sweeps it.
constexpr std::array<double, 3> kNumberPoints = {240, 120, 90};

constexpr QVMRect kBandSlider = {30, 0, 260, 34};
constexpr QVMRect kNumberControl = {0, 16, 80, 44};
constexpr QVMRect kNumberLabel = {0, 0, 80, 13};

constexpr std::array<ParameterLayout, 15> kLayouts = {{
    {.pid = 0, .frame = {4, 116, 54, 62}, .controlFrame = {0, 0, 54, 62}},
    {.pid = 1, .frame = {0, 26, 321, 56}, .controlFrame = {30, 2, 260, 54}},
    {.pid = 2, .frame = {0, 98, 321, 34}, .controlFrame = kBandSlider},
    {.pid = 3, .frame = {0, 132, 321, 34}, .controlFrame = kBandSlider},
    {.pid = 6, .frame = {12, 232, 73, 44}, .controlFrame = {0, 16, 73, 26}, .labelFrame = {0, 0, 73, 13}},
    {.pid = 7, .frame = {0, 0, 97, 217}, .controlFrame = {0, 0, 97, 217}},
    {.pid = 9, .frame = {0, 37, 321, 34}, .controlFrame = kBandSlider},
    {.pid = 10, .frame = {0, 71, 321, 34}, .controlFrame = kBandSlider},
    {.pid = 13, .frame = {245, 179, 29, 21}, .controlFrame = {0, 0, 29, 21}},
    {.pid = 14,
     .frame = {10, 64, 80, 60},
     .controlFrame = kNumberControl,
     .labelFrame = kNumberLabel,
     .numberOnlyPixelConstants = kNumberPoints},
    {.pid = 15,
     .frame = {10, 150, 80, 60},
     .controlFrame = kNumberControl,
     .labelFrame = kNumberLabel,
     .numberOnlyPixelConstants = kNumberPoints},
    {.pid = 20, .frame = {281, 179, 29, 21}, .controlFrame = {0, 0, 29, 21}},
    {.pid = 21,
     .frame = {110, 64, 80, 60},
     .controlFrame = kNumberControl,
     .labelFrame = kNumberLabel,
     .numberOnlyPixelConstants = kNumberPoints},
    {.pid = 22,
     .frame = {110, 150, 80, 60},
     .controlFrame = kNumberControl,
     .labelFrame = kNumberLabel,
     .numberOnlyPixelConstants = kNumberPoints},
    {.pid = 23, .frame = {65, 258, 70, 36}, .controlFrame = {0, 0, 70, 36}},
}};

} // namespace

std::span<const ParameterLayout> ParameterLayouts() {
    return kLayouts;
}

} // namespace tables
} // namespace QVM_NAMESPACE
