#include "editor/session/ABComparison.h"

#include "description/NumberText.h"
#include "description/ValueMapping.h"
#include "editor/session/PresetSession.h"
#include "presets/PresetName.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// A leading number; 0 where there is none.
float numberFrom(std::string_view text) {
    const auto read = NumberAtStart<float>(text);
    return read && std::isfinite(read->value) ? read->value : 0;
}

// What ends an element of the text, and so cannot stand in a name there.
constexpr std::string_view kElementEnd = ";";

} // namespace

ABComparison::ABComparison(EditorValues& values, PresetSession& presets, SessionSurface& surface)
    : values_(values), presets_(presets), surface_(surface) {}

void ABComparison::reset(std::span<const float> values) {
    setActive(0);
    for (std::vector<float>& slot : slots_) {
        slot.assign(values.begin(), values.end());
        slot.resize(values_.count());
        slot.push_back(static_cast<float>(presets_.current()));
    }
}

ABComparison::SideLeft ABComparison::flip(Copy copy) {
    const std::uint32_t left = active_, entered = 1 - active_;
    slots_[left] = presentSlot();
    if (copy == Copy::yes) slots_[entered] = slots_[left];
    active_ = entered;
    surface_.sideDidChange(active_, copy == Copy::yes ? SideMove::glides : SideMove::jumps);

    const std::vector<float> slotLeft = slots_[left], slotEntered = slots_[entered]; // whatever is called in between
    for (std::uint32_t pid = 0; pid < values_.count(); ++pid)
        if (slotEntered[pid] != values_.memoized(pid)) values_.send(pid, slotEntered[pid]);
    presets_.switchTo(presetIn(slotEntered));
    return {left, settingsText(slotLeft)};
}

void ABComparison::setActive(std::uint32_t side) {
    if (side == active_ || side >= slots_.size()) return;
    active_ = side;
    surface_.sideDidChange(active_, SideMove::jumps);
}

bool ABComparison::restore(std::uint32_t side, std::string_view settings) {
    if (side == nothingSaved || side >= slots_.size()) return false;
    for (float& value : slots_[side]) {
        const std::size_t end = settings.find(';');
        const std::string_view element = settings.substr(0, end);
        value = &value == &slots_[side].back() ? static_cast<float>(presetFrom(element)) : numberFrom(element);
        if (end == std::string_view::npos) break;
        settings.remove_prefix(end + 1);
    }
    active_ = 1 - side;
    surface_.sideDidChange(active_, SideMove::jumps);
    return true;
}

std::uint32_t ABComparison::presetIn(const std::vector<float>& slot) {
    return static_cast<std::uint32_t>(std::max(IntegerPart(slot.back()), 0));
}

// The index of one of the user's means something in this list alone: its name goes along.
std::string ABComparison::settingsText(const std::vector<float>& slot) const {
    std::string text;
    for (std::uint32_t pid = 0; pid < values_.count(); ++pid)
        text += ShortestFloatText(slot[pid]) + ';';
    const PresetList& list = presets_.list();
    const std::uint32_t preset = presetIn(slot);
    if (!list.isUsers(preset)) return text + ShortestFloatText(slot.back());
    return text + std::to_string(list.noPreset()) + ' ' + withEscapes(list.savedName(preset), kElementEnd);
}

std::uint32_t ABComparison::presetFrom(std::string_view element) {
    PresetList& list = presets_.list();
    const std::size_t blank = element.find(' ');
    if (blank != std::string_view::npos) return list.indexOfSaved(withoutEscapes(element.substr(blank + 1)));
    const auto index = static_cast<std::uint32_t>(std::max(IntegerPart(numberFrom(element)), 0));
    return std::min(index, list.noPreset());
}

void ABComparison::replaceValue(std::uint32_t pid, float was, float is) {
    for (std::vector<float>& slot : slots_)
        if (pid < slot.size() && slot[pid] == was) slot[pid] = is;
}

std::vector<float> ABComparison::presentSlot() const {
    std::vector<float> slot = values_.memoized();
    slot.push_back(static_cast<float>(presets_.current()));
    return slot;
}

} // namespace QVM_NAMESPACE
