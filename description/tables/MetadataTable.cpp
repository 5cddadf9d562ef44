#include "description/tables/Artwork.h"
#include "description/tables/RecordBuilder.h"

namespace QVM_NAMESPACE {
namespace tables {

namespace {

// The order of the settings address, which is not that of the pids: the listen switches stand together, and the
// advanced clump follows in its own order.
const std::vector<std::string>& ParameterOrder() {
    static const std::vector<std::string> order = {
        "MasterOnOff",
        "TiltGain",
        "TiltRangeLow",
        "TiltRangeHigh",
        "TiltRangeLink",
        "TiltRangeLinkRatio",
        "TiltLoudnessMode",
        "OutputGain",
        "MeterMode",
        "FilterRangeLow",
        "FilterRangeHigh",
        "FilterRangeLink",
        "FilterRangeLinkRatio",
        "FilterListenLow",
        "FilterListenHigh",
        "FilterSlopeLow",
        "FilterResonanceLow",
        "FilterSlopeLink",
        "FilterSlopeLinkRatio",
        "FilterResonanceLink",
        "FilterResonanceLinkRatio",
        "FilterSlopeHigh",
        "FilterResonanceHigh",
        "HQMode",
    };
    return order;
}

// The dividers between the panels, with y upwards from the bottom of the panels, then the edge of the drawer.
std::vector<std::vector<QVMLineSegment>> LayoutEdges() {
    return {
        {{{321, 0}, {321, 116}}, {{0, 116}, {321, 116}}, {{321, 116}, {321, 290}}},
        {{{0, 320}, {200, 320}}},
    };
}

} // namespace

void FillMetadata(QVMMetadata& metadata) {
    metadata.catalog = QVM_PRODUCT_CODE;
    metadata.pluginName = "Slantwise";
    metadata.pluginPackageName = "qvm2-Slantwise-SW2X";
    metadata.pluginURLSlug = "slantwise";
    metadata.version = QVM_VERSION_TEXT;
    metadata.versionHex = "0x00020001";
    metadata.versionInteger = QVM_VERSION_INTEGER;
    metadata.sha = QVM_BUILD_MARK;
    metadata.commits = "7804";
    metadata.logo = artwork::logo;
    metadata.width = 480;
    metadata.height = 320;
    metadata.color = ColorFromHexText("#A5666C");
    metadata.hasAdvancedControls = true;
    metadata.hasGenericHQMode = true;
    metadata.genericHQParameter = "HQMode";
    metadata.sketch = {true, ColorFromHexText("#FFFFFF"), {4, 0}};
    metadata.parameterOrder = ParameterOrder();
    metadata.tabOrder.assign(ParameterOrder().begin() + 1, ParameterOrder().end()); // all but the master switch
    metadata.advBanner = ImageText(artwork::advBanner);
    metadata.layoutEdges = LayoutEdges();
}

} // namespace tables
} // namespace QVM_NAMESPACE
