// The parameters of this product: one row each, and everything about a parameter in its row.
//
// Identity, range, steps, curve, text, control, marks, consequences and place. What follows from these is worked out by
// who needs it: the record (RecordBuilder.h), the mappings (ValueMapping.h), the texts (ValueText.h).
#pragma once

#include "description/ParameterIDs.h"
#include "description/ParameterTypes.h"
#include "description/Types.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {
namespace tables {

// How a value is spread over its slider. A range of frequencies has a curve with constants of its own.
enum class Scale : std::uint8_t { linear, fader, tiltFrequency, filterFrequency };

// The ends of a low and high pair, which keep an octave apart.
enum class RangeEnd : std::uint8_t { none, low, high };
inline constexpr float kOctave = 2;

// A value that shows a word of its own and goes without its unit.
struct Exception {
    float value;
    std::string_view text;
};

// The parameters that are dimmed while this one has a value.
struct Dimming {
    float value = 0;
    std::span<const std::string_view> codesafeNames;
};

struct Steps {
    float normal, fine, coarse;
};

struct ParameterRow {
    ParameterID pid = pidMasterOnOff;
    const char* name = "";
    const char* codesafeName = "";
    const char* minimalName = "";
    std::uint32_t cid = 0;    // of the clump that it stands in
    const char* purpose = ""; // what it does, in a sentence for whoever sees it without the editor

    QVMUnitCode unit = QVMUnitIndexed;
    const char* unitSymbol = ""; // empty: goes without
    float minValue = 0;
    float maxValue = 0;
    float initialValue = 0;
    Steps steps = {1, 1, 1};
    int decimals = 0;
    Scale scale = Scale::linear;
    std::span<const float> coarseGranularityOptions = {};
    RangeEnd end = RangeEnd::none;
    std::optional<ParameterID> partner = std::nullopt; // the other end

    QVMControlTypeCode controlType = QVMControlTypeSlider;
    std::int32_t controlStyle = 0;
    float controlScale = 1;
    std::int32_t labelDisplay = 0;
    std::int32_t cueSymbolDisplay = 0;
    bool horizontal = false;
    bool isDisplaced = false;
    bool includeCrementers = false;
    bool hidden = false;
    bool presetWildcard = false;
    bool hasEffect = true; // false: kept for the sessions that have it, but neither heard nor seen, and hosts hide it
    const char* color = "";
    std::string_view label = {};
    const char* const* labelArtwork = nullptr; // a picture in place of the label text
    std::string_view labelString = {};

    std::span<const std::string_view> stringValues = {}; // by whole value from 0 up
    std::span<const std::string_view> cueSymbols = {};   // glyphs shown in place of the names, or the texts of marks
    std::span<const float> cueSymbolPositions = {};
    std::span<const float> cueSymbolValues = {};
    std::span<const Exception> exceptions = {};
    std::span<const float> tickmarks = {};
    std::span<const float> minorTickmarks = {};
    std::span<const float> displayTickmarks = {};
    std::span<const Dimming> dims = {};
    std::int32_t scope = 0;

    // Points with y downwards. Without a frame no control is laid out.
    QVMRect frame = {};        // in the clump; for a displaced parameter, in the view around the clumps
    QVMRect controlFrame = {}; // in the parameter control
    QVMRect labelFrame = {};   // in the parameter control
    std::span<const double> numberOnlyPixelConstants = {};

    // Frequencies alone have a curve that is not their range; links and ratios beside them count in other units.
    constexpr bool logarithmic() const { return scale == Scale::tiltFrequency || scale == Scale::filterFrequency; }
};

// In pid order, one row for every pid. A constant that lives as long as the process; any thread. It stands here by name
// because every value that is mapped or written out looks up its row: a call for it would cost as much as the mapping.
extern const std::array<ParameterRow, QVMParameterCount> kParameters;
// Null for a parameter that does not exist.
inline const ParameterRow* ParameterRowFor(std::uint32_t pid) {
    return pid < kParameters.size() ? &kParameters[pid] : nullptr;
}

} // namespace tables
} // namespace QVM_NAMESPACE
