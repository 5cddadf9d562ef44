#include "editor/session/ABComparison.h"

#include "description/NumberText.h"
#include "description/ValueMapping.h"
#include "editor/session/PresetSession.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// A leading number; 0 where there is none.
float numberFrom(std::string_view text) {
    const auto read = NumberAtStart<float>(text);
    return read && std::isfinite(read->value) ? read->value : 0;
}

// Decimal numbers that read back as the same values.
std::string settingsText(const std::vector<float>& values) {
    std::string text;
    for (const float value : values) {
        std::array<char, 64> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
        if (!text.empty()) text += ';';
        text.append(digits.data(), end.ptr);
    }
    return text;
}

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
    presets_.switchTo(static_cast<std::uint32_t>(std::max(IntegerPart(slotEntered.back()), 0)));
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
        value = numberFrom(settings.substr(0, end));
        if (end == std::string_view::npos) break;
        settings.remove_prefix(end + 1);
    }
    active_ = 1 - side;
    surface_.sideDidChange(active_, SideMove::jumps);
    return true;
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
