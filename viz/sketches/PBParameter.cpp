#include "viz/sketches/PBParameter.h"

#include "description/tables/ParameterLayoutTable.h"
#include "description/tables/ParameterTable.h"

namespace QVM_NAMESPACE {

namespace {

struct TrackRow {
    std::uint32_t pid;
    PBRect track;
};

// The only slider that holds a meter. Its handle's centre goes from 26 to 191 points above the bottom, on a groove of
// 14 points around x = 48; two channels of 6 points fill the groove but for one point at either side.
constexpr std::array<TrackRow, 1> kTracks = {{{pidOutputGain, {45, 26, 6, 165}}}};

PBRect rectFrom(const QVMRect& rect) {
    return {static_cast<float>(rect.x), static_cast<float>(rect.y), static_cast<float>(rect.width),
            static_cast<float>(rect.height)};
}

std::array<PBParameter, QVMParameterCount> buildParameters() {
    std::array<PBParameter, QVMParameterCount> rows;
    for (const tables::ParameterIdentity& identity : tables::ParameterIdentities()) {
        PBParameter& row = rows.at(identity.pid);
        row.defaultValue = identity.initialValue;
        row.minValue = identity.minValue;
        row.maxValue = identity.maxValue;
        row.unit = identity.unit;
    }
    for (const tables::ParameterControlRow& control : tables::ParameterControls()) {
        PBParameter& row = rows.at(control.pid);
        row.flags =
            (control.horizontal ? PBParameterHorizontal : 0u) | (control.logarithmic ? PBParameterLogarithmic : 0u);
        row.color = ColorFromHexText(control.color).rgb();
        row.controlType = control.controlType;
    }
    for (const tables::ParameterLayout& layout : tables::ParameterLayouts())
        rows.at(layout.pid).frame = rectFrom(layout.frame);
    for (const TrackRow& track : kTracks)
        rows.at(track.pid).track = track.track;
    return rows;
}

} // namespace

const std::array<PBParameter, QVMParameterCount> PB_Parameters = buildParameters();

} // namespace QVM_NAMESPACE
