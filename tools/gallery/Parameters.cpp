#include "tools/gallery/Parameters.h"

#include "tools/gallery/ParameterRows.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

GalleryParameter parameterFrom(const GalleryRow& row, std::uint32_t pid) {
    GalleryParameter p;
    p.pid = pid;
    p.codesafeName = row.key;
    p.name = p.labelString = row.name;
    p.controlType = row.type;
    p.controlStyle = row.style;
    p.controlScale = 1;
    p.unit = row.unit;
    p.unitSymbol = row.symbol;
    p.minValue = row.min;
    p.maxValue = row.max;
    p.initialValue = row.initial;
    p.granularity = row.step;
    p.fineGranularity = row.fine;
    p.coarseGranularity = row.coarse;
    p.coarseGranularityShouldPreround = true;
    p.decimals = row.decimals;
    p.logarithmic = row.logarithmic;
    p.horizontal = row.horizontal;
    p.includeCrementers = row.crementers;
    p.color = ColorFromHexText(row.color);
    p.stringValues = row.names;
    p.cueSymbols = row.symbols;
    p.displayTickmarks = row.scale;
    p.numberOnlyPixelConstants = row.dragPoints;
    p.hierarchy = row.tree;
    if (!row.tree.empty()) p.flatHierarchy = row.names;
    p.range = QVMRangeSettings(row.range);
    return p;
}

} // namespace

const std::vector<GalleryParameter>& galleryParameters() {
    // Numbers that no product has: nothing here may depend on a product's tables.
    static const std::vector<GalleryParameter> all = [] {
        constexpr std::uint32_t firstPid = 1000;
        std::vector<GalleryParameter> made;
        for (const auto* rows : {&galleryValueRows(), &galleryChoiceRows()})
            for (const GalleryRow& row : *rows)
                made.push_back(parameterFrom(row, firstPid + static_cast<std::uint32_t>(made.size())));
        return made;
    }();
    return all;
}

const GalleryParameter* galleryParameter(std::string_view key) {
    const auto found = std::ranges::find(galleryParameters(), key, &GalleryParameter::codesafeName);
    return found == galleryParameters().end() ? nullptr : &*found;
}

} // namespace QVM_NAMESPACE
