#include "tools/gallery/Pages.h"

#include "resources/IconGlyphs.h"
#include "tools/gallery/Displays.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace QVM_NAMESPACE {

namespace {

using Kind = ExhibitKind;
constexpr ExhibitSurface kAccent = ExhibitSurface::accent;

constexpr std::array<ExhibitStateName, 11> kStates = {{{ExhibitState::normal, "normal"},
                                                       {ExhibitState::hovered, "hovered"},
                                                       {ExhibitState::focused, "focused"},
                                                       {ExhibitState::typing, "typing"},
                                                       {ExhibitState::inaccurate, "inaccurate"},
                                                       {ExhibitState::selected, "selected"},
                                                       {ExhibitState::warning, "warning"},
                                                       {ExhibitState::dimmed, "dimmed"},
                                                       {ExhibitState::disabled, "disabled"},
                                                       {ExhibitState::lowest, "lowest"},
                                                       {ExhibitState::highest, "highest"}}};

constexpr Size kLying = {244, 54}, kUpright = {92, 217}, kBand = {244, 68};
constexpr Size kWord = {112, 26}, kWordAndMarks = {148, 26}, kShortWord = {73, 26}, kNarrowWord = {62, 26};
constexpr Size kIcon = {44, 26}, kSmallIcon = {29, 21}, kDisc = {54, 62}, kNumber = {80, 44};
constexpr Size kTwo = {130, 26}, kTwoIcons = {84, 26}, kFour = {216, 26}, kNotes = {172, 38};
constexpr Size kField = {104, 124}, kWideField = {130, 92}, kButton = {44, 44}, kSmallButton = {30, 30},
               kReading = {92, 32};

std::vector<GalleryPage> makePages() {
    std::vector<GalleryPage> pages = {
        {"Sliders",
         {{"QVMVerticalSlider, lying, decibels", Kind::parameter, "Gain", kLying},
          {"QVMVerticalSlider, lying, logarithmic", Kind::parameter, "Cutoff", kLying},
          {"QVMVerticalSlider, lying, symbols", Kind::parameter, "Curve", kLying}}},
        {"Ranges",
         {{"QVMRangeControl and QVMRangeSlider", Kind::range, "RangeLow", kBand, "RangeHigh"},
          {"QVMVerticalSlider, upright", Kind::parameter, "Level", kUpright}}},
        {"Cycles",
         {{"QVMCycleControl", Kind::parameter, "Mode", kWord},
          {"QVMCycleControl, marks beside", Kind::parameter, "ModeMarks", kWordAndMarks},
          {"QVMCycleControl, a number", Kind::parameter, "Mix", kShortWord},
          {"QVMCycleControl, icons", Kind::parameter, "Quality", kIcon},
          {"QVMItemizedControl, a nested menu", Kind::parameter, "Filter", kWordAndMarks},
          {"QVMItemizedControl, marks inside", Kind::parameter, "Slope", kNarrowWord}}},
        {"Switches",
         {{"QVMBooleanControl, plain", Kind::parameter, "SwitchPlain", kIcon},
          {"QVMBooleanControl, style 1", Kind::parameter, "SwitchTinted", kIcon},
          {"QVMBooleanControl, style 2", Kind::parameter, "SwitchOnClear", kIcon},
          {"QVMBooleanControl, style 3", Kind::parameter, "SwitchOnBox", kIcon},
          {"QVMBooleanControl, style 4", Kind::parameter, "SwitchOutlined", kSmallIcon},
          {"QVMGlowingBooleanControl", Kind::parameter, "MasterOnOff", kDisc, "", kAccent}}},
        {"Numbers",
         {{"QVMNumberControl, decibels", Kind::parameter, "Resonance", kNumber},
          {"QVMNumberControl, logarithmic", Kind::parameter, "Center", kNumber},
          {"QVMNumberControl, sideways", Kind::parameter, "Width", kNumber},
          {"QVMNoteSlider", Kind::parameter, "Note", kNotes}}},
        {"Choices",
         {{"QVMToggleControl, two states", Kind::parameter, "Phase", kTwo},
          {"QVMToggleControl, icons", Kind::parameter, "Shape", kTwoIcons},
          {"QVMToggleControl, four states", Kind::parameter, "Loudness", kFour},
          {"QVMGridControl", Kind::parameter, "Steps", kField},
          {"QVMGridControl, wide", Kind::parameter, "Bits", kWideField}}},
        {"Buttons",
         {{"QVMSymbolButton", Kind::symbolButton, "Gear", kButton, icons::gear, kAccent},
          {"QVMSymbolButton, smaller", Kind::symbolButton, "Undo", kSmallButton, icons::undo, kAccent},
          {"QVMMeterButton", Kind::meterButton, "Reading", kReading, "dB", kAccent}}},
        {"Displays", {}, PageFlow::tiles},
    };
    for (const GalleryDisplay& display : galleryDisplays())
        pages.back().rows.push_back(
            {display.title, Kind::display, display.key, display.size, {}, ExhibitSurface::panel, display.caption});
    return pages;
}

bool isSameWord(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b,
                              [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

} // namespace

std::span<const ExhibitStateName> exhibitStates() {
    return kStates;
}

const std::vector<GalleryPage>& galleryPages() {
    static const std::vector<GalleryPage> pages = makePages();
    return pages;
}

std::optional<std::size_t> galleryPageNamed(std::string_view name) {
    const auto found =
        std::ranges::find_if(galleryPages(), [name](const GalleryPage& page) { return isSameWord(page.name, name); });
    if (found == galleryPages().end()) return std::nullopt;
    return static_cast<std::size_t>(found - galleryPages().begin());
}

} // namespace QVM_NAMESPACE
