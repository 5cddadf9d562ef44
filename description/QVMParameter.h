// One parameter of the audio unit: identity, range, presentation, and the only arithmetic allowed on its values.
//
// Two value domains exist. The host domain is the number that the audio unit stores and automates, the shown domain is
// what the user sees, and every field and operation here that does not say otherwise is in the shown domain. They
// differ for the frequency parameters alone. No control rounds or clamps by itself; all go through these operations, so
// that a value reads the same wherever it was entered.
//
// Records are built once (Description.h), live as long as the process and are used on the main thread; the mappings
// between the domains are for any thread, and never wait. Only `chanIn` and `chanOut` are written later, by the editor.
#pragma once

#include "description/ParameterTypes.h"
#include "description/QVMRangeSettings.h"
#include "description/Types.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

struct QVMClump;

class QVMParameter {
public:
    virtual ~QVMParameter() = default;

    // Restricts a value to what the channel configuration allows. A hook: this product allows every value everywhere.
    virtual float restrictValue(float value) const;

    // Host domain to shown domain. Switches become 0 or 1 and modes whole numbers on the way.
    float castValue(float hostValue) const;
    // Shown domain to host domain; only the frequency parameters change.
    float reverseCastValue(float shownValue) const;
    // Host domain to shown domain, rounded to the fine step.
    float coerceValue(float hostValue) const;
    // How a value of the audio unit is read, in one place for all that read it: cast, rounded to the fine step and
    // clamped. Unlike the other roundings its step does not grow from 1 kHz up. NaN ends at the least value.
    float shownValueFromHostValue(float hostValue) const;
    // The same as the unit holds it: its range is widened to an initial value outside the parameter's own (the range
    // links start at 0, below their range). Bit-equal to the other for all that lies in the parameter's range.
    float heldValueFromHostValue(float hostValue) const;
    // That widened range, inside which the unit keeps whatever it is sent. The same numbers in both domains.
    QVMFloat32Range heldRange() const;

    // The step size for a granularity code at a value; logarithmic frequencies step coarser from 1 kHz up.
    float granularityValueForType(std::uint32_t type, float value) const;
    // The nearest multiple of the step, halves away from zero. Modes and switches round to whole numbers.
    float roundFloatValue(float value, std::uint32_t type) const;
    // The nearest entry of `coarseGranularityOptions`, the first of equally near ones (and of none at all, for a value
    // that is not finite), and its index if asked for. With no options both are 0.
    float closestCoarseGranularityOptionToValue(float value, std::size_t* index = nullptr) const;
    // Snapped, rounded and clamped: never outside `minValue` to `maxValue`. NaN ends at `minValue`, or at the first
    // option where there are options to snap to.
    float normalizeFloatValue(float value, std::uint32_t type) const;

    // Slider position 0 to 1 of a value, and the normalised value at a position. Values beyond the range have positions
    // beyond 0 to 1. The curve is that of `pid`; hooks for a description whose parameters bring their own.
    virtual float percentageFromFloatValue(float shownValue) const;
    virtual float normalizedFloatValueFromPercent(float percent, std::uint32_t type) const;

    // Whether a whole value may be chosen: its channel restrictions have the present configuration, and
    // `restrictValue` leaves it as it is.
    bool allowsValue(float value) const;
    // The next or previous value for cycling controls, wrapping at the ends and stepping over values that are not
    // allowed. Does not end if no value at all is. NaN counts as `minValue`.
    float floatValueAfter(float value, bool cyclingForward) const;

    float valueRange() const { return maxValue - minValue; }
    // `name` as NUL-terminated text; lives until `name` changes.
    const char* C_codename() const { return name.c_str(); }

    // Number or name text, and unit text or none at all, without the cue symbols. By `pid`, and hooks, like the above.
    virtual std::string stringForValue(float value) const;
    virtual std::optional<std::string> suffixForValue(float value) const;
    // What a control shows: both texts at once, either pointer may be null. A parameter with one cue symbol for each
    // of its named values shows the symbol.
    void valueString(std::string* string, std::optional<std::string>* suffix, float value) const;
    // The text of a scale mark: whole kilohertz from 1 kHz up, and a plus sign on scales that reach below zero.
    std::string displayStringFromCueValue(double number) const;

    // Named by the contract and not used in this product: the edge of the control on which its label sits.
    std::int32_t labelEdge() const { return 1; }

    // Identity and grouping.
    std::uint32_t pid = 0; // the audio unit's parameter number
    std::string name;
    std::string codesafeName; // key of name look-ups, links and the settings address
    std::string minimalName;
    std::string label; // text, or "base64," and a PNG
    std::string labelString;
    std::string clumpName; // the clump's `codesafeName`
    QVMClump* clump = nullptr;
    std::uint32_t chanIn = 0; // channel counts of the running instance
    std::uint32_t chanOut = 0;

    // Range, unit and behaviour.
    float minValue = 0;
    float maxValue = 0;
    float initialValue = 0;
    std::int32_t unit = 0; // QVMUnitCode
    std::string unitSymbol;
    bool logarithmic = false;
    bool automatesSmoothly = false; // the host may ramp the value
    bool presetWildcard = false;    // factory presets leave it alone
    bool hidden = false;            // no control is built
    bool meteringOnly = false;
    float granularity = 0;
    float fineGranularity = 0;
    float coarseGranularity = 0;
    std::vector<float> coarseGranularityOptions; // empty: none
    bool coarseGranularityShouldPreround = false;
    std::map<std::string, std::vector<QVMChannelPair>> channelRestrictions; // by whole value as decimal text
    std::vector<QVMStaticConversion> staticConversions;                     // by value

    // Control and presentation.
    std::int32_t controlType = 0; // QVMControlTypeCode
    std::int32_t controlStyle = 0;
    float controlScale = 0;
    std::int32_t controlFocusShape = 0;
    std::int32_t scope = 0; // 1 for the master switch
    std::int32_t labelDisplay = 0;
    bool isDisplaced = false; // stands outside its clump: its frame is in the coordinates of the view around the clumps
    bool horizontal = false;
    float highlightInsetX = 0; // points
    bool includeCrementers = false;
    std::string formatString;
    std::vector<std::string> stringValues; // names of the whole values from `minValue` up
    std::map<std::string, std::string> substituteStringsForValues;
    std::optional<std::vector<double>> textEntryNumbers;
    std::vector<QVMHierarchyItem> hierarchy;
    std::vector<std::string> flatHierarchy;
    std::vector<float> tickmarks;
    std::vector<float> minorTickmarks;
    std::vector<float> displayTickmarks; // the marks that carry a text
    std::vector<std::string> cueSymbols;
    std::vector<float> cueSymbolPositions; // values at which a mark stands on the scale
    std::vector<float> cueSymbolValues;
    std::int32_t cueSymbolDisplay = 0;
    std::vector<double> numberOnlyPixelConstants; // points for the whole range: fine, normal, coarse
    QVMColor color;
    std::vector<QVMChannelLayoutRule> channelLayoutRules;
    std::map<float, std::vector<std::string>> dims; // by value, `codesafeName`s
    std::vector<std::vector<std::string>> disables; // by whole value
    std::vector<std::vector<std::string>> hides;    // by whole value
    std::string tap;
    std::string rangeWith; // `codesafeName` of the low end, on the high end of a range
    QVMRangeSettings range;
    std::vector<std::vector<std::string>> links; // each starts with a `codesafeName`
    QVMRect frame;                               // points, in the clump's coordinates
    QVMRect labelFrame;                          // points, in the parameter control's coordinates
    QVMRect controlFrame;                        // points, in the parameter control's coordinates

private:
    float finelyRoundedValue(float shownValue) const;
    float clampedValue(float value) const; // NaN ends at the minimum
    bool hasChannelsFor(float value) const;
};

} // namespace QVM_NAMESPACE
