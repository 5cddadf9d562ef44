#include "presets/PresetText.h"

#include "description/Blanks.h"
#include "platform/system/Utf8.h"
#include "presets/PresetName.h"

#include <optional>

namespace QVM_NAMESPACE {

namespace {

constexpr std::string_view firstWords = "Slantwise preset ", version = "1";
constexpr std::string_view nameKey = "Name: ", noteKey = "Note: ", settingsKey = "Settings: ";

// The lines in order, and how many were taken.
class Lines {
public:
    explicit Lines(std::string_view text) : rest_(text) {}

    std::optional<std::string_view> next() {
        if (rest_.empty()) return std::nullopt;
        const std::size_t end = rest_.find('\n');
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        ++number_;
        return line;
    }
    int number() const { return number_; }

private:
    std::string_view rest_;
    int number_ = 0;
};

std::optional<std::string_view> behind(std::string_view key, std::string_view line) {
    return line.starts_with(key) ? std::optional(line.substr(key.size())) : std::nullopt;
}

bool isNote(std::string_view note) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    for (const char c : note)
        if (isControl(c)) return false;
    return note.size() <= longestPresetNote;
}

// What the lines say, each at most once.
struct Said {
    std::optional<std::string_view> name, note, settings;
};

// False for a line that is none of the three, or comes a second time.
bool take(std::string_view line, Said& said) {
    for (const auto& [key, place] :
         {std::pair(nameKey, &said.name), std::pair(noteKey, &said.note), std::pair(settingsKey, &said.settings)}) {
        const auto value = behind(key, line);
        if (!value) continue;
        if (*place) return false;
        *place = withoutBlanks(*value);
        return true;
    }
    return false;
}

std::variant<UserPreset, PresetRefusal> presetFrom(const Said& said, const QVMConfig& config) {
    if (!said.name || !said.settings) return PresetRefusal{PresetProblem::incomplete, {}};
    if (!isPresetName(*said.name)) return PresetRefusal{PresetProblem::badName, {}};
    const std::string_view note = said.note.value_or(std::string_view());
    if (!isNote(note)) return PresetRefusal{PresetProblem::badNote, {}};
    auto settings = readSettingsAddress(*said.settings, config);
    if (const auto* refusal = std::get_if<SettingsRefusal>(&settings))
        return PresetRefusal{PresetProblem::badSettings, refusal->text()};
    return UserPreset{std::string(*said.name), std::string(note),
                      std::move(std::get<SettingsAddress>(settings).entries)};
}

} // namespace

std::string PresetRefusal::text() const {
    switch (problem) {
    case PresetProblem::tooLong:
        return "too long for a preset";
    case PresetProblem::notText:
        return "not a text";
    case PresetProblem::notAPreset:
        return "not a preset";
    case PresetProblem::otherVersion:
        return "of another version";
    case PresetProblem::strangeLine:
        return "line " + detail + " is not understood";
    case PresetProblem::badName:
        return "its name cannot be used";
    case PresetProblem::badNote:
        return "its note cannot be used";
    case PresetProblem::incomplete:
        return "name or settings are missing";
    case PresetProblem::badSettings:
        return "settings: " + detail;
    }
    return {};
}

std::variant<UserPreset, PresetRefusal> readPresetText(std::string_view text, const QVMConfig& config) {
    if (text.size() > longestPresetText) return PresetRefusal{PresetProblem::tooLong, {}};
    if (!isPlainUtf8(text)) return PresetRefusal{PresetProblem::notText, {}};
    Lines lines(text);
    const auto form = behind(firstWords, lines.next().value_or(std::string_view()));
    if (!form) return PresetRefusal{PresetProblem::notAPreset, {}};
    if (withoutBlanks(*form) != version) return PresetRefusal{PresetProblem::otherVersion, {}};
    Said said;
    bool hasEnded = false; // nothing but empty lines from here on
    while (const auto line = lines.next()) {
        const bool isEmpty = withoutBlanks(*line).empty();
        if (!isEmpty && (hasEnded || !take(*line, said)))
            return PresetRefusal{PresetProblem::strangeLine, std::to_string(lines.number())};
        hasEnded = hasEnded || isEmpty;
    }
    return presetFrom(said, config);
}

std::string writePresetText(const UserPreset& preset, std::string_view base) {
    std::string text =
        std::string(firstWords) + std::string(version) + "\n" + std::string(nameKey) + preset.name + "\n";
    if (!preset.note.empty()) text += std::string(noteKey) + preset.note + "\n";
    return text + std::string(settingsKey) + writeSettingsAddress(base, preset.settings, AddressDigits::all) + "\n";
}

} // namespace QVM_NAMESPACE
