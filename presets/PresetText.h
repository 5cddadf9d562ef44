// One preset of the user's as a small text, which can be read, mailed and kept in a repository:
//
//     Slantwise preset 1
//     Name: Warm voice
//     Note: for the large room
//     Settings: https://SITE/SLUG/VERSION/?tg:4.5/trl:120
//
// The number in the first line is that of this form; "Note" may be missing. What the settings do not name is at its
// initial value. Files come from anywhere, so the reader is strict: it takes a text as a whole or refuses it as a
// whole, and says why. Line ends of either kind, and empty lines at the end, do not count. No state: any thread.
#pragma once

#include "settings/SettingsAddress.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

inline constexpr std::size_t longestPresetText = 8192; // bytes
inline constexpr std::size_t longestPresetNote = 512;  // bytes

struct UserPreset {
    std::string name;                    // as isPresetName() has it
    std::string note;                    // one line of plain UTF-8; may be empty
    std::vector<SettingsEntry> settings; // each key once; it names a parameter

    bool operator==(const UserPreset&) const = default;
};

enum class PresetProblem : unsigned char {
    tooLong,
    notText,
    notAPreset,
    otherVersion,
    strangeLine,
    badName,
    badNote,
    incomplete,
    badSettings,
};

struct PresetRefusal {
    PresetProblem problem;
    std::string detail; // the line's number, or what is wrong with the settings; empty with any other problem

    // A few words for a list, without a full stop.
    std::string text() const;
};

[[nodiscard]] std::variant<UserPreset, PresetRefusal> readPresetText(std::string_view text, const QVMConfig& config);
// Reads back as the same preset. `base` is the settings address up to the "/?".
std::string writePresetText(const UserPreset& preset, std::string_view base);

} // namespace QVM_NAMESPACE
