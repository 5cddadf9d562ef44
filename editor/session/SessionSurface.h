// What the session asks of whatever shows it, beside the values themselves (EditorValues). It sees no more of it than
// this.
//
// All calls come on the main thread. Values are in the shown domain.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// What a parameter's control shows; the control may show less than the editor keeps.
struct ShownValue {
    std::uint32_t pid = 0;
    float value = 0;
};

// How the sign of the active side comes to its place.
enum class SideMove : bool { jumps, glides };

class SessionSurface {
public:
    virtual ~SessionSurface() = default;

    // The user is setting a control to another value than the editor has: it is moved past what was being typed.
    virtual void controlWillChangeValue() = 0;
    // The editor has another value for the parameter: for what shows it beside its control.
    virtual void valueDidChange(std::uint32_t pid) = 0;
    // A value came from the unit and is shown: what it means for other controls follows. `was` is what had come before.
    virtual void valueWasReceived(std::uint32_t pid, float value, float was) = 0;
    // The controls' values in the order in which they were made.
    virtual std::vector<ShownValue> shownValues() const = 0;

    // Whether anything is held down that may still change values.
    virtual bool isGestureUnderWay() const = 0;
    // There may be something else to undo or redo.
    virtual void historyDidChange() = 0;
    // The other side of the comparison is the active one: 0 is A, 1 is B.
    virtual void sideDidChange(std::uint32_t side, SideMove move) = 0;

    // The preset's name shows as the current one; an index that no preset has is shown as such.
    virtual void showPreset(std::uint32_t index) = 0;
    // Whether the values differ from those of the current preset.
    virtual void showPresetDirty(bool dirty) = 0;
    // The values of the preset that was chosen are sent, and nobody has heard of it yet: the keyboard goes there.
    virtual void presetWasApplied() = 0;
    // A preset became the current one by being chosen; the name is the one to keep it under.
    virtual void presetDidBecomeCurrent(const std::string& savedName, std::uint32_t index) = 0;
    // The user's presets are others than they were.
    virtual void presetListDidChange() = 0;
    // Something was to be done with a preset of the user's and was not, and why: one line each.
    virtual void presetWasRefused(const std::string& what, const std::string& why) = 0;

    // Settings were offered and not taken, and why: one line in plain words.
    virtual void settingsWereRefused(const std::string& why) = 0;
};

} // namespace QVM_NAMESPACE
