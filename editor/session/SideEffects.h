// What a value of one parameter means for the controls of others: which are dimmed, cannot be changed, or are not seen.
//
// Decided here from the description alone; whoever has the controls applies it. Main thread only.
#pragma once

#include "description/QVMParameter.h"

#include <cstdint>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

struct SideEffects {
    // What is dimmed as a whole while the parameter's whole part is 0.
    enum class Scope : std::uint8_t { none, editor, clump };
    // A control by its parameter's codename, and whether the effect holds it or lets it go.
    struct OnControl {
        std::string codename;
        bool holds = false;
        bool operator==(const OnControl&) const = default;
    };

    Scope scope = Scope::none;
    bool dimsScope = false;
    // Whether every control that `dimmed` does not name is let go.
    bool dimsControls = false;
    std::vector<std::string> dimmed; // codenames
    // In this order; where a control comes twice, the last counts.
    std::vector<OnControl> prevented, hidden;

    bool dims(const std::string& codename) const;
};

// The effects of a parameter's value.
SideEffects sideEffectsOf(const QVMParameter& cause, float value);

} // namespace QVM_NAMESPACE
