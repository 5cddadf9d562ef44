#include "tools/gallery/Parameters.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

// Codes of `controlType`.
enum Type : std::int32_t { kSlider, kBoolean, kCycle, kItemized, kNumber, kToggle, kNote, kGrid };

using Names = std::vector<std::string>;

// One row of the description. What a row leaves out keeps the value that most parameters have.
struct Row {
    const char* key;
    const char* name;
    Type type = kSlider;
    std::int32_t style = 0;
    std::int32_t unit = QVMUnitIndexed;
    const char* symbol = "";
    float min = 0, max = 1, initial = 0;
    float step = 1, fine = 1, coarse = 1;
    int decimals = 0;
    bool logarithmic = false, horizontal = true, crementers = false;
    const char* color = "#A54D55";
    Names names = {};
    Names symbols = {};
    std::vector<float> scale = {}; // marks with a text
    std::vector<double> dragPoints = {};
    std::vector<QVMHierarchyItem> tree = {};
    std::vector<QVMRangeSettings::Entry> range = {};
};

const Names kSlopes = {"6", "12", "18", "24", "36", "48"};
const Names kFilters = {"Low Pass", "High Pass", "Band", "Notch", "Low Shelf", "High Shelf"};
const Names kOffOn = {"Off", "On"};
const Names kNotes = {"Whole", "Half", "Quarter", "Eighth", "Sixteenth"};
const Names kNoteSymbols = {"\uE301", "\uE302", "\uE303", "\uE304", "\uE305"};
const Names kPower = {"\uE101", "\uE101"}, kListen = {"\uE219", "\uE219"}, kQuality = {"\uE205", "\uE206"};
const std::vector<double> kDrag = {240, 120, 90};

const std::vector<Row>& rows() {
    static const std::vector<Row> table = {
        // Sliders
        {.key = "Gain",
         .name = "Gain",
         .unit = QVMUnitDecibels,
         .symbol = "dB",
         .min = -18,
         .max = 18,
         .initial = 4.5f,
         .step = 0.5f,
         .fine = 0.1f,
         .coarse = 3,
         .decimals = 1,
         .scale = {-18, -12, -6, 0, 6, 12, 18}},
        {.key = "Cutoff",
         .name = "Cutoff",
         .unit = QVMUnitHertz,
         .symbol = "Hz",
         .min = 20,
         .max = 20000,
         .initial = 440,
         .step = 1,
         .fine = 0.1f,
         .coarse = 10,
         .logarithmic = true,
         .color = "#5B6F8C",
         .scale = {20, 100, 1000, 10000, 20000}},
        {.key = "Curve",
         .name = "Curve",
         .min = 0,
         .max = 4,
         .initial = 1,
         .color = "#877879",
         .names = {"A", "B", "C", "D", "E"},
         .symbols = {"\uE10C", "\uE109", "\uE113", "\uE108", "\uE10B"}},
        {.key = "Level",
         .name = "Level",
         .unit = QVMUnitDecibels,
         .symbol = "dB",
         .min = -48,
         .max = 12,
         .initial = -6,
         .step = 0.5f,
         .fine = 0.1f,
         .coarse = 3,
         .decimals = 1,
         .horizontal = false,
         .color = "#938586",
         .scale = {-48, -36, -24, -12, 0, 6, 12}},
        // Ranges
        {.key = "RangeLow",
         .name = "Range Low",
         .unit = QVMUnitHertz,
         .symbol = "Hz",
         .min = 20,
         .max = 20000,
         .initial = 125,
         .step = 1,
         .fine = 0.1f,
         .coarse = 10,
         .logarithmic = true,
         .color = "#B25962",
         .range = {{"low", true}, {"limit", 10000.0f}}},
        {.key = "RangeHigh",
         .name = "Range High",
         .unit = QVMUnitHertz,
         .symbol = "Hz",
         .min = 20,
         .max = 20000,
         .initial = 4000,
         .step = 1,
         .fine = 0.1f,
         .coarse = 10,
         .logarithmic = true,
         .color = "#B25962",
         .range = {{"high", true}, {"limit", 40.0f}}},
        // Cycle controls
        {.key = "Mode",
         .name = "Mode",
         .type = kCycle,
         .style = 1,
         .max = 5,
         .initial = 1,
         .color = "#71343A",
         .names = kFilters},
        {.key = "ModeMarks",
         .name = "Mode with marks",
         .type = kCycle,
         .style = 1,
         .max = 5,
         .crementers = true,
         .color = "#71343A",
         .names = kFilters},
        {.key = "Mix",
         .name = "Mix",
         .type = kCycle,
         .unit = QVMUnitPercent,
         .symbol = "%",
         .max = 100,
         .initial = 50,
         .step = 25,
         .crementers = true,
         .color = "#5B6F8C"},
        {.key = "Quality",
         .name = "Quality",
         .type = kCycle,
         .style = 1,
         .color = "#B8868B",
         .names = kOffOn,
         .symbols = kQuality},
        // Itemized controls
        {.key = "Filter",
         .name = "Filter",
         .type = kItemized,
         .style = 1,
         .max = 5,
         .crementers = true,
         .color = "#71343A",
         .names = kFilters,
         .tree = {{"Passes", {{"Low Pass", {}}, {"High Pass", {}}}},
                  {"Band", {}},
                  {"Notch", {}},
                  {"Shelves", {{"Low Shelf", {}}, {"High Shelf", {}}}}}},
        {.key = "Slope",
         .name = "Slope",
         .type = kItemized,
         .max = 5,
         .initial = 1,
         .crementers = true,
         .color = "#796C6D",
         .names = kSlopes},
        // Switches
        {.key = "SwitchPlain",
         .name = "Switch",
         .type = kBoolean,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .names = kOffOn,
         .symbols = kListen},
        {.key = "SwitchTinted",
         .name = "Tinted",
         .type = kBoolean,
         .style = 1,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .names = kOffOn,
         .symbols = kListen},
        {.key = "SwitchOnClear",
         .name = "On clear",
         .type = kBoolean,
         .style = 2,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .names = kOffOn,
         .symbols = kListen},
        {.key = "SwitchOnBox",
         .name = "On a box",
         .type = kBoolean,
         .style = 3,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .color = "#B8868B",
         .names = kOffOn,
         .symbols = kQuality},
        {.key = "SwitchOutlined",
         .name = "Outlined",
         .type = kBoolean,
         .style = 4,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .color = "#5E5454",
         .names = kOffOn,
         .symbols = kListen},
        {.key = "MasterOnOff",
         .name = "Power",
         .type = kBoolean,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .color = "#FFFFFF",
         .names = kOffOn,
         .symbols = kPower},
        // Numbers
        {.key = "Resonance",
         .name = "Resonance",
         .type = kNumber,
         .unit = QVMUnitDecibels,
         .symbol = "dB",
         .max = 18,
         .initial = 3,
         .step = 0.5f,
         .fine = 0.1f,
         .coarse = 3,
         .decimals = 1,
         .horizontal = false,
         .color = "#796C6D",
         .dragPoints = kDrag},
        {.key = "Center",
         .name = "Center",
         .type = kNumber,
         .unit = QVMUnitHertz,
         .symbol = "Hz",
         .min = 20,
         .max = 20000,
         .initial = 1250,
         .step = 1,
         .fine = 0.1f,
         .coarse = 10,
         .logarithmic = true,
         .horizontal = false,
         .color = "#5B6F8C",
         .dragPoints = {600, 200, 50}},
        {.key = "Width",
         .name = "Width",
         .type = kNumber,
         .unit = QVMUnitPercent,
         .symbol = "%",
         .max = 100,
         .initial = 40,
         .coarse = 10,
         .color = "#B25962",
         .dragPoints = kDrag},
        // Choices
        {.key = "Phase",
         .name = "Phase",
         .type = kToggle,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .names = {"Normal", "Inverted"}},
        {.key = "Shape",
         .name = "Shape",
         .type = kToggle,
         .unit = QVMUnitSwitch,
         .initial = 1,
         .color = "#5E5454",
         .names = {"Low", "High"},
         .symbols = {"\uE219", "\uE20B"}},
        {.key = "Loudness",
         .name = "Loudness",
         .type = kToggle,
         .max = 3,
         .initial = 2,
         .color = "#71343A",
         .names = {"Auto", "Norm", "Treble", "Bass"}},
        {.key = "Note",
         .name = "Note",
         .type = kNote,
         .max = 4,
         .initial = 2,
         .coarse = 2,
         .color = "#A5666C",
         .names = kNotes,
         .symbols = kNoteSymbols},
        {.key = "Steps", .name = "Steps", .type = kGrid, .max = 15, .initial = 6, .color = "#B25962"},
        {.key = "Bits", .name = "Bits", .type = kGrid, .symbol = "bit", .max = 31, .initial = 19, .color = "#5B6F8C"},
        // What the gallery's own window is operated with
        {.key = "Page",
         .name = "Page",
         .type = kToggle,
         .max = 7,
         .color = "#A5666C",
         .names = {"Sliders", "Ranges", "Cycles", "Switches", "Numbers", "Choices", "Buttons", "Displays"}},
        {.key = "Theme",
         .name = "Theme",
         .type = kToggle,
         .unit = QVMUnitSwitch,
         .color = "#5E5454",
         .names = {"Light", "Dark"}},
    };
    return table;
}

GalleryParameter parameterFrom(const Row& row, std::uint32_t pid) {
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
        for (const Row& row : rows())
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
