#include "editor/session/SideEffects.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

SideEffects::Scope scopeOf(const QVMParameter& cause) {
    constexpr std::int32_t everything = 1, ownClump = 2;
    if (cause.scope == everything) return SideEffects::Scope::editor;
    return cause.scope == ownClump ? SideEffects::Scope::clump : SideEffects::Scope::none;
}

// The description lists by value which controls that value holds; every other value lets them go.
std::vector<SideEffects::OnControl> byValue(const std::vector<std::vector<std::string>>& lists, float value) {
    std::vector<SideEffects::OnControl> effects;
    for (std::size_t index = 0; index < lists.size(); ++index)
        for (const std::string& codename : lists[index])
            effects.push_back({codename, static_cast<float>(index) == value});
    return effects;
}

} // namespace

bool SideEffects::dims(const std::string& codename) const {
    return std::find(dimmed.begin(), dimmed.end(), codename) != dimmed.end();
}

SideEffects sideEffectsOf(const QVMParameter& cause, float value) {
    SideEffects effects;
    effects.scope = scopeOf(cause);
    effects.dimsScope = static_cast<std::int32_t>(value) == 0;
    effects.dimsControls = !cause.dims.empty();
    if (const auto named = cause.dims.find(value); named != cause.dims.end()) effects.dimmed = named->second;
    effects.prevented = byValue(cause.disables, value);
    effects.hidden = byValue(cause.hides, value);
    return effects;
}

} // namespace QVM_NAMESPACE
