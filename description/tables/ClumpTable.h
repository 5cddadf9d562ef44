// The clumps of this product: identity, frames, extra labels and visualisations. Which parameters stand in one, their
// rows say.
#pragma once

#include "description/ParameterIDs.h"
#include "description/QVMClump.h"

#include <span>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {
namespace tables {

// A further label, over a column of controls.
struct TaggedLabelRow {
    std::string_view text;
    QVMRect frame; // points with y downwards, in the clump, as all frames here but the clump's own
    QVMLabelAlignment alignment;
};

// A live picture in the clump, bound to one of its parameters.
struct SketchRow {
    std::string_view name;
    std::string_view parameter; // `codesafeName`
    std::string_view color;
};

struct ClumpRow {
    std::uint32_t cid;
    std::string_view name;
    std::string_view codesafeName;
    std::string_view labelString;
    const char* const* headingArtwork; // null: the heading is the label text
    std::int32_t clumpType;            // QVMClumpTypeCode
    QVMRect frame;                     // in the view around the clumps
    QVMRect labelFrame;                // of the heading
    std::span<const TaggedLabelRow> taggedLabels;
    std::span<const SketchRow> sketches;
};

// In cid order. The table lives as long as the process.
std::span<const ClumpRow> Clumps();

// The parameters whose row names the clump, in display order, which is that of the pids. Any thread.
std::vector<ParameterID> PidsOfClump(std::uint32_t cid);

} // namespace tables
} // namespace QVM_NAMESPACE
