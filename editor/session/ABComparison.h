// The comparison of two complete settings, between which the user flips: sides A (0) and B (1).
//
// A side keeps the values and the preset that were there when it was left. Main thread only.
#pragma once

#include "editor/session/EditorValues.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

class PresetSession;

class ABComparison {
public:
    // Stands for no side where a record of one is read.
    static constexpr std::uint32_t nothingSaved = 2;

    // A side that was left, and its values in pid order and its preset as they were then, joined by ";": the preset's
    // index, and where it is one of the user's a blank and the name to keep it under.
    struct SideLeft {
        std::uint32_t side = 0;
        std::string settings;
    };
    enum class Copy : bool { no, yes };

    // All borrowed. Both sides are empty until reset() is called.
    ABComparison(EditorValues& values, PresetSession& presets, SessionSurface& surface);

    std::uint32_t active() const { return active_; }
    // Both sides have these values, by pid, and the current preset; A is the active one.
    void reset(std::span<const float> values);
    // To the other side, whose values are sent; with a copy they are those of the side that is left.
    SideLeft flip(Copy copy);
    // Another side counts as the active one. Nothing is copied or sent. Unknown sides are ignored.
    void setActive(std::uint32_t side);
    // A side gets the values of a text, 0 where an element is empty or no number, and the other one becomes the active
    // one. False, and nothing happens, for what is no side.
    bool restore(std::uint32_t side, std::string_view settings);
    // On both sides: where the parameter is `was`, it is `is` from now on.
    void replaceValue(std::uint32_t pid, float was, float is);

private:
    std::vector<float> presentSlot() const;
    static std::uint32_t presetIn(const std::vector<float>& slot);
    std::uint32_t presetFrom(std::string_view element);
    std::string settingsText(const std::vector<float>& slot) const;

    EditorValues& values_;
    PresetSession& presets_;
    SessionSurface& surface_;
    std::uint32_t active_ = 0;
    std::array<std::vector<float>, 2> slots_; // each parameter by pid, then the preset's index
};

} // namespace QVM_NAMESPACE
