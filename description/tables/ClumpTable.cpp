#include "description/tables/ClumpTable.h"

#include "description/tables/Artwork.h"
#include "description/tables/Frames.h"

#include <array>

namespace QVM_NAMESPACE {
namespace tables {

namespace {

constexpr std::array<std::uint32_t, 1> kMasterPids = {0};
constexpr std::array<std::uint32_t, 5> kTiltPids = {1, 2, 3, 4, 5};
constexpr std::array<std::uint32_t, 3> kOutputPids = {6, 7, 8};
constexpr std::array<std::uint32_t, 6> kFilterPids = {9, 10, 11, 12, 13, 20};
constexpr std::array<std::uint32_t, 9> kAdvancedPids = {14, 15, 16, 17, 18, 19, 21, 22, 23};

constexpr std::array<TaggedLabelRow, 2> kTiltLabels = {{
    {"GAIN", {231, 8, 80, 14}, QVMLabelAlignment::right},
    {"RANGE", {231, 84, 80, 14}, QVMLabelAlignment::right},
}};
constexpr std::array<TaggedLabelRow, 1> kFilterLabels = {{
    {"RANGE", {66, 8, 60, 14}, QVMLabelAlignment::left},
}};
constexpr std::array<TaggedLabelRow, 2> kAdvancedLabels = {{
    {"LOW", {10, 38, 80, 16}, QVMLabelAlignment::center},
    {"HIGH", {110, 38, 80, 16}, QVMLabelAlignment::center},
}};

constexpr std::array<SketchRow, 1> kOutputSketches = {{{"InputOutputMeter", "OutputGain", "#938586"}}};

constexpr QVMRect kHeading = {11, 7, 100, 15};

constexpr std::array<ClumpRow, 5> kClumps = {{
    {0, "MasterOn/Off", "MasterOnOff", "MasterOn/Off", nullptr, QVMClumpTypeMaster, kMasterPids, kPowerBox, {}, {}, {}},
    {1,
     "Tilt",
     "Tilt",
     "TILT",
     &artwork::headingTilt,
     QVMClumpTypeOrdinary,
     kTiltPids,
     kTiltPanel,
     kHeading,
     kTiltLabels,
     {}},
    {2,
     "Output",
     "Output",
     "OUT",
     &artwork::headingOutput,
     QVMClumpTypeOrdinary,
     kOutputPids,
     kOutputPanel,
     kHeading,
     {},
     kOutputSketches},
    {3,
     "Filter",
     "Filter",
     "FILTER",
     &artwork::headingFilter,
     QVMClumpTypeOrdinary,
     kFilterPids,
     kFilterPanel,
     kHeading,
     kFilterLabels,
     {}},
    {4,
     "Adv Filter",
     "AdvFilter",
     "ADV FILTER",
     &artwork::headingAdvFilter,
     QVMClumpTypeAdvanced,
     kAdvancedPids,
     {0, 0, kAdvancedWidth, kEditorSize.height},
     {11, 8, 120, 15},
     kAdvancedLabels,
     {}},
}};

} // namespace

std::span<const ClumpRow> Clumps() {
    return kClumps;
}

} // namespace tables
} // namespace QVM_NAMESPACE
