// A group of parameters that stand together in one box on screen.
//
// Records are built once (Description.h), live as long as the process and are only read.
#pragma once

#include "description/Types.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class QVMParameter;

// Where a clump stands; the numbers also serve as bit flags in a mask of types, which type 0 never matches.
enum QVMClumpTypeCode : std::int32_t {
    QVMClumpTypeOrdinary = 0, // main panel
    QVMClumpTypeAdvanced = 1, // advanced drawer
    QVMClumpTypeMaster = 2,   // master power
};

// An extra text label inside a clump; frame in the clump's coordinates.
struct QVMTaggedLabel {
    QVMRect frame;
    QVMLabelAlignment alignment = QVMLabelAlignment::left;
};

// A visualisation placed in a clump, bound to one of its parameters.
struct QVMClumpSketch {
    std::string name;
    std::string parameter; // `codesafeName`
    QVMColor color;
};

// Positioning rules of a clump; unset in a product whose clumps have fixed frames.
struct QVMLayoutConstraints {
    std::optional<QVMRect> frame;
    std::optional<double> z;
};

struct QVMClump {
    std::uint32_t cid = 0;
    std::string name;
    std::string codesafeName;
    std::string label; // text, or "base64," and a PNG
    std::string labelString;
    std::int32_t clumpType = 0;            // QVMClumpTypeCode
    std::vector<QVMParameter*> parameters; // in display order; not owned
    std::map<std::string, double> inset;   // points, by edge
    bool showInteriorBorders = false;
    QVMLayoutConstraints layoutConstraints;
    std::map<std::string, QVMTaggedLabel> taggedLabels; // by their text
    QVMRect frame;                                      // points, in the coordinates of the view around the clumps
    QVMRect labelFrame;                                 // points, in the clump's coordinates
    std::vector<std::string> edges;                     // edges that are drawn
    std::vector<QVMClumpSketch> sketches;
};

} // namespace QVM_NAMESPACE
