// What the sound is to be: a preset, a settings address, or the initial values.
#pragma once

#include "presets/PresetText.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class QVM0015_AudioUnit;

namespace render {

struct ChosenSettings {
    std::optional<int> presetIndex; // into the factory presets
    std::optional<UserPreset> own;  // one of the user's in its place
    std::string address;            // one that can be read, empty for none

    // Takes a preset by its name, or one of the factory's by its place in the list, counted from 1. Answers what is
    // wrong, or nothing.
    [[nodiscard]] std::string choosePreset(const std::string& nameOrNumber);
    // Takes an address, which may be cut down to what stands from "/?" on. Answers what is wrong, or nothing.
    [[nodiscard]] std::string chooseAddress(const std::string& text);

    // Empty for none.
    std::string presetName() const;

    // Sets them in a unit that stands at its initial values. Any thread but a render thread.
    void applyTo(QVM0015_AudioUnit& unit) const;
};

// A line for each preset: number and name of the factory's, then the names of the user's, with what is wrong where one
// cannot be read.
std::string presetList();

} // namespace render
} // namespace QVM_NAMESPACE
