#include "settings/SettingsAddress.h"

#include "description/Blanks.h"
#include "description/NumberText.h"
#include "settings/AddressParts.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

constexpr std::string_view leaveAsItIs = "x";
constexpr int significantDigits = 7;
constexpr std::size_t slugSegment = 0, versionSegment = 1;

// The two forms of a query.
struct QueryForm {
    char betweenEntries, behindKey;
};
constexpr QueryForm currentForm{'/', ':'}, olderForm{'&', '='};

std::string numberText(float value, AddressDigits digits) {
    if (digits == AddressDigits::seven) return SignificantText(double{value}, significantDigits);
    return ShortestFloatText(value);
}

// All of the text as a number. Beyond single precision it is the largest there is, which no range reaches.
std::optional<float> finiteNumber(std::string_view text) {
    const std::optional<double> number = NumberFromText<double>(text);
    if (!number || !std::isfinite(*number)) return std::nullopt; // written out, as "nan"
    constexpr double largest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(*number, -largest, largest));
}

void put(std::vector<SettingsEntry>& entries, SettingsEntry entry) {
    const auto same = std::find_if(entries.begin(), entries.end(), [&](const auto& e) { return e.key == entry.key; });
    if (same == entries.end())
        entries.push_back(std::move(entry));
    else
        *same = std::move(entry);
}

// Adds what one piece of the query says. Returns the key whose number cannot be read, or nothing.
std::optional<std::string> readEntry(std::string_view piece, char behindKey, const QVMConfig& config,
                                     std::vector<SettingsEntry>& entries) {
    const std::size_t separator = piece.find(behindKey);
    if (separator == std::string_view::npos) return std::nullopt; // a key alone says nothing
    SettingsEntry entry{std::string(piece.substr(0, separator)), std::nullopt};
    if (entry.key.empty() || !config.parameterForCodename(entry.key)) return std::nullopt;
    std::string_view value = piece.substr(separator + 1);
    value = value.substr(0, value.find(behindKey)); // what comes after a second separator says nothing
    if (value != leaveAsItIs) {
        entry.value = finiteNumber(value);
        if (!entry.value) return entry.key;
    }
    put(entries, std::move(entry));
    return std::nullopt;
}

} // namespace

const SettingsEntry* SettingsAddress::entryFor(std::string_view key) const {
    const auto found = std::find_if(entries.begin(), entries.end(), [key](const auto& e) { return e.key == key; });
    return found == entries.end() ? nullptr : &*found;
}

std::string SettingsRefusal::text() const {
    switch (problem) {
    case SettingsProblem::tooLong:
        return "it is longer than " + std::to_string(longestSettingsAddress) + " bytes";
    case SettingsProblem::notAnAddress:
        return "it is not a web address";
    case SettingsProblem::noProductInPath:
        return "it names no product and version";
    case SettingsProblem::notANumber:
        return "\"" + key + "\" has no number";
    }
    return {};
}

std::variant<SettingsAddress, SettingsRefusal> readSettingsAddress(std::string_view text, const QVMConfig& config) {
    const auto refused = [](SettingsProblem problem, std::string key = {}) {
        return SettingsRefusal{problem, std::move(key)};
    };
    text = withoutBlanks(text);
    if (text.size() > longestSettingsAddress) return refused(SettingsProblem::tooLong);
    const std::optional<AddressParts> parts = addressParts(text);
    if (!parts) return refused(SettingsProblem::notAnAddress);
    if (parts->pathSegments.size() <= versionSegment) return refused(SettingsProblem::noProductInPath);

    SettingsAddress address{parts->pathSegments[slugSegment], parts->pathSegments[versionSegment], {}};
    const std::string query = parts->query.value_or(std::string()); // without one, nothing is off its initial value
    const bool isCurrent = query.find(currentForm.behindKey) != std::string::npos;
    const QueryForm form = isCurrent ? currentForm : olderForm;
    for (std::string_view rest = query; !rest.empty();) {
        const std::size_t length = std::min(rest.find(form.betweenEntries), rest.size());
        const auto wrong = readEntry(rest.substr(0, length), form.behindKey, config, address.entries);
        if (wrong) return refused(SettingsProblem::notANumber, *wrong);
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return address;
}

float settingsValueFor(const QVMParameter& parameter, float value) {
    // Some links begin below the range that they share with what they link.
    return std::clamp(parameter.restrictValue(value), std::min(parameter.minValue, parameter.initialValue),
                      std::max(parameter.maxValue, parameter.initialValue));
}

std::string settingsBaseAddress(std::string_view site, const QVMMetadata& metadata) {
    return std::string(site) + "/" + metadata.pluginURLSlug + "/" + metadata.version;
}

const std::string& settingsKeyFor(const QVMParameter& parameter) {
    return parameter.minimalName.empty() ? parameter.codesafeName : parameter.minimalName;
}

std::string writeSettingsAddress(std::string_view base, const std::vector<SettingsEntry>& entries,
                                 AddressDigits digits) {
    std::string address = std::string(base) + "/?";
    const char* separator = "";
    for (const SettingsEntry& entry : entries) {
        address += separator + entry.key + currentForm.behindKey;
        address += entry.value ? numberText(*entry.value, digits) : std::string(leaveAsItIs);
        separator = "/";
    }
    return address;
}

} // namespace QVM_NAMESPACE
