#include "viz/sketches/PBParameter.h"

#include "description/tables/ParameterTable.h"

namespace QVM_NAMESPACE {

namespace {

struct TrackRow {
    std::uint32_t pid;
    PBRect track;
};

// The only slider that holds a meter. Its handle's centre goes from 38 to 179 points above the bottom, on a groove of
// 15 points around x = 36.5; two channels of 6 points and a point between them fill the groove but for one point at
// either side.
constexpr std::array<TrackRow, 1> kTracks = {{{pidOutputGain, {33.5f, 38, 6, 141}}}};

std::array<PBParameter, QVMParameterCount> buildParameters() {
    std::array<PBParameter, QVMParameterCount> rows;
    for (const tables::ParameterRow& parameter : tables::kParameters) {
        PBParameter& row = rows.at(parameter.pid);
        row.defaultValue = parameter.initialValue;
        row.minValue = parameter.minValue;
        row.maxValue = parameter.maxValue;
        row.unit = parameter.unit;
        row.flags = (parameter.horizontal ? PBParameterHorizontal : 0u) |
                    (parameter.logarithmic() ? PBParameterLogarithmic : 0u);
        row.color = ColorFromHexText(parameter.color).rgb();
        row.controlType = parameter.controlType;
        row.frame = PBRectFrom(parameter.frame);
    }
    for (const TrackRow& track : kTracks)
        rows.at(track.pid).track = track.track;
    return rows;
}

} // namespace

const std::array<PBParameter, QVMParameterCount> PB_Parameters = buildParameters();

} // namespace QVM_NAMESPACE
