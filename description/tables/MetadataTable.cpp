#include "description/tables/Artwork.h"
#include "description/tables/ClumpTable.h"
#include "description/tables/Frames.h"
#include "description/tables/ParameterTable.h"
#include "description/tables/RecordBuilder.h"

namespace QVM_NAMESPACE {
namespace tables {

namespace {

// The order of the settings address and of the Tab walk: clump by clump, each in its own order.
std::vector<std::string> ParameterOrder() {
    std::vector<std::string> order;
    for (const ClumpRow& clump : Clumps())
        for (const ParameterID pid : PidsOfClump(clump.cid))
            order.emplace_back(kParameters[pid].codesafeName);
    return order;
}

// The dividers between the panels, with y upwards from the bottom of the panels, then the edge of the drawer.
std::vector<std::vector<QVMLineSegment>> LayoutEdges() {
    constexpr double right = kOutputPanel.x, middle = kFilterPanel.height, top = kOutputPanel.height;
    return {
        {{{right, 0}, {right, middle}}, {{0, middle}, {right, middle}}, {{right, middle}, {right, top}}},
        {{{0, kEditorSize.height}, {kAdvancedWidth, kEditorSize.height}}},
    };
}

} // namespace

void FillMetadata(QVMMetadata& metadata) {
    metadata.catalog = QVM_PRODUCT_CODE;
    metadata.pluginName = "Slantwise";
    metadata.pluginPackageName = "qvm2-Slantwise-SW2X";
    metadata.pluginURLSlug = "slantwise";
    metadata.version = QVM_VERSION_TEXT;
    metadata.versionHex = QVM_VERSION_HEX;
    metadata.versionInteger = QVM_VERSION_INTEGER;
    metadata.sha = QVM_BUILD_MARK;
    metadata.commits = "7804";
    metadata.logo = artwork::logo;
    metadata.width = static_cast<float>(kEditorSize.width);
    metadata.height = static_cast<float>(kEditorSize.height);
    metadata.color = ColorFromHexText("#A5666C");
    metadata.hasAdvancedControls = true;
    metadata.hasGenericHQMode = true;
    metadata.genericHQParameter = "HQMode";
    metadata.sketch = {true, ColorFromHexText("#FFFFFF"), {4, 0}};
    metadata.parameterOrder = ParameterOrder();
    metadata.tabOrder.assign(metadata.parameterOrder.begin() + 1,
                             metadata.parameterOrder.end()); // not the master switch
    metadata.advBanner = ImageText(artwork::advBanner);
    metadata.layoutEdges = LayoutEdges();
}

} // namespace tables
} // namespace QVM_NAMESPACE
