// What the product is called and how its editor is arranged as a whole.
//
// One record, built once (Description.h), living as long as the process, only read.
#pragma once

#include "description/Types.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// The numeric readout of a product that meters in numbers.
struct QVMNumericMeterSettings {
    std::string tooltip;
};

// The visualisation behind the controls: whether it depicts parameters (rather than audio), its line colour, and how
// far it stands inside its box, in points.
struct QVMSketchSettings {
    bool parameterSketch = false;
    QVMColor color;
    QVMSize inset;
};

struct QVMMetadata {
    std::string catalog; // middle part of the host-facing class names
    std::string pluginName;
    std::string pluginPackageName;
    std::string pluginURLSlug;
    std::string version;
    std::string versionHex;
    std::uint32_t versionInteger = 0; // major in the high 16 bits, then minor and patch in a byte each
    std::string sha;
    std::string commits;
    std::string logo; // PNG of 120 by 120 pixels as base64, with no prefix
    float width = 0;  // points at scale 1
    float height = 0;
    QVMColor color;
    bool hasAdvancedControls = false;
    bool hasGenericHQMode = false;
    std::string genericHQParameter; // `codesafeName` of the quality switch
    bool canSidechain = false;
    std::optional<QVMNumericMeterSettings> numericMeter;
    QVMSketchSettings sketch;
    std::vector<std::string> parameterOrder; // `codesafeName`s in the order of the settings address
    std::vector<std::string> tabOrder;       // `codesafeName`s in the order of keyboard focus
    std::string advBanner;                   // "base64," and a PNG
    std::map<std::string, std::string> juniors;
    std::vector<std::vector<QVMLineSegment>> layoutEdges; // divider lines by panel group; y grows upwards here
};

} // namespace QVM_NAMESPACE
