// What the sound is to be: a factory preset, a settings address, or the initial values.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class QVM0015_AudioUnit;

namespace render {

struct ChosenSettings {
    std::optional<int> presetIndex; // into the factory presets
    std::string address;            // one that can be read, empty for none

    // Takes a preset by its name, or by its place in the list of presets, counted from 1. Answers what is wrong, or
    // nothing.
    [[nodiscard]] std::string choosePreset(const std::string& nameOrNumber);
    // Takes an address, which may be cut down to what stands from "/?" on. Answers what is wrong, or nothing.
    [[nodiscard]] std::string chooseAddress(const std::string& text);

    // Sets them in a unit that stands at its initial values. Any thread but a render thread.
    void applyTo(QVM0015_AudioUnit& unit) const;
};

// A line for each factory preset: number and name.
std::string presetList();

} // namespace render
} // namespace QVM_NAMESPACE
