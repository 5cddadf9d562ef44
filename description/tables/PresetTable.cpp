#include "description/tables/PresetTable.h"

namespace QVM_NAMESPACE {
namespace tables {

namespace {

// name, section, note, then: tilt gain (dB), tilt range low and high (Hz), filter range low and high (Hz), low slope
// (dB/Oct) and resonance (dB), high slope and resonance
// clang-format off
constexpr std::array<PresetRow, 23> kPresets = {{
    {"Default", "General", {}, {0, 20, 20000, 4, 24000, 12, 0, 12, 0}},
    {"Brighter", "General", {}, {6, 20, 20000, 4, 24000, 12, 0, 12, 0}},
    {"Darker", "General", {}, {-6, 20, 20000, 4, 24000, 12, 0, 12, 0}},
    {"Thinner", "General", {}, {6, 10, 1000, 4, 24000, 12, 0, 12, 0}},
    {"Warmer", "General", {}, {-6, 20, 500, 4, 24000, 12, 0, 12, 0}},
    {"Dull", "General", {}, {-7.5f, 4000, 24000, 4, 24000, 12, 0, 12, 0}},
    {"Sharp", "General", {}, {4.5f, 2000, 24000, 4, 24000, 12, 0, 12, 0}},
    {"Sub Love", "General", {}, {-6, 50, 130, 4, 24000, 12, 0, 12, 0}},
    {"Air", "General", {}, {7.5f, 10000, 24000, 4, 24000, 12, 0, 12, 0}},
    {"White Noise -> Pink", "General", {}, {-16.5f, 10, 24000, 4, 24000, 12, 0, 12, 0}},
    {"Pink Noise -> White", "General", {}, {16.5f, 10, 24000, 4, 24000, 12, 0, 12, 0}},
    {"Vox Rumble Filter (M)", "Filter Only", {}, {0, 20, 20000, 60, 24000, 24, 0, 12, 0}},
    {"Vox Rumble Filter (F)", "Filter Only", {}, {0, 20, 20000, 80, 24000, 24, 0, 12, 0}},
    {"DC Blocker", "Filter Only", {}, {0, 20, 20000, 5, 24000, 6, 0, 12, 0}},
    {"Berlin Condenser", "Mics", "Typical large diaphragm condenser", {2.5f, 1600, 3200, 30, 15000, 12, 0, 12, 0}},
    {"Pasadena Ribbon", "Mics", "Ribbon mic with a large diaphragm", {-7.5f, 125, 24000, 20, 24000, 12, 0, 12, 0}},
    {"Burbank Ribbon", "Mics", "Ribbon mic with a smaller diaphragm", {4, 400, 4500, 4, 6300, 6, 0, 9, 0}},
    {"Chicago Dynamic", "Mics", "Cheap dynamic microphone", {4, 2000, 5000, 130, 9000, 6, 0, 6, 0}},
    {"Guitar Cab", "Speakers", "Vintage 12” guitar cab", {4.5f, 1250, 3150, 100, 3150, 12, 0, 12, 0}},
    {"Bass Cab (Ported)", "Speakers", "Vented 15” bass guitar cab", {-4.5f, 75, 500, 75, 1800, 18, 3, 12, 9}},
    {"Bass Cab (Sealed)", "Speakers", "Sealed 15” bass guitar cab", {-4.5f, 75, 500, 94, 1800, 12, 0, 12, 9}},
    {"Grotbox", "Speakers", "Small, low-quality “studio monitor”", {2.5f, 20, 3150, 200, 10000, 18, 0, 12, 0}},
    {"Cellphone", "Speakers", "Tiny, modern cellphone loudspeaker", {7, 2750, 5500, 850, 5500, 12, 9, 9, 3}},
}};
// clang-format on

} // namespace

std::span<const PresetRow> Presets() {
    return kPresets;
}

} // namespace tables
} // namespace QVM_NAMESPACE
