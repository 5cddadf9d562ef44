#include "description/tables/ClumpTable.h"

#include "description/tables/Artwork.h"
#include "description/tables/Frames.h"
#include "description/tables/ParameterTable.h"

#include <array>

namespace QVM_NAMESPACE {
namespace tables {

namespace {

// What heads a row of a panel stands above the row, in one column right of the panels' headings.
constexpr QVMRect captionAt(double y) {
    return {66, y, 60, 14};
}
constexpr std::array<TaggedLabelRow, 2> kTiltLabels = {{
    {"GAIN", captionAt(8), QVMLabelAlignment::left},
    {"RANGE", captionAt(77), QVMLabelAlignment::left},
}};
constexpr std::array<TaggedLabelRow, 1> kFilterLabels = {{
    {"RANGE", captionAt(8), QVMLabelAlignment::left},
}};
constexpr std::array<TaggedLabelRow, 2> kAdvancedLabels = {{
    {"LOW", {10, 38, 80, 16}, QVMLabelAlignment::center},
    {"HIGH", {110, 38, 80, 16}, QVMLabelAlignment::center},
}};

constexpr std::array<SketchRow, 1> kOutputSketches = {{{"InputOutputMeter", "OutputGain", "#938586"}}};

constexpr QVMRect kHeading = {11, 7, 100, 15};

constexpr std::array<ClumpRow, 5> kClumps = {{
    {0, "MasterOn/Off", "MasterOnOff", "MasterOn/Off", nullptr, QVMClumpTypeMaster, kPowerBox, {}, {}, {}},
    {1, "Tilt", "Tilt", "TILT", &artwork::headingTilt, QVMClumpTypeOrdinary, kTiltPanel, kHeading, kTiltLabels, {}},
    {2,
     "Output",
     "Output",
     "OUT",
     &artwork::headingOutput,
     QVMClumpTypeOrdinary,
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
     {0, 0, kAdvancedWidth, kEditorSize.height},
     {11, 8, 120, 15},
     kAdvancedLabels,
     {}},
}};

} // namespace

std::span<const ClumpRow> Clumps() {
    return kClumps;
}

std::vector<ParameterID> PidsOfClump(std::uint32_t cid) {
    std::vector<ParameterID> pids;
    for (const ParameterRow& row : kParameters)
        if (row.cid == cid) pids.push_back(row.pid);
    return pids;
}

} // namespace tables
} // namespace QVM_NAMESPACE
