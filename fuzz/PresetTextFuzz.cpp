// The reader of the user's presets. What it accepts has a name and a file of its own, and reads back from what the
// writer makes of it.
#include "Fuzz.h"
#include "description/Description.h"
#include "platform/system/Utf8.h"
#include "presets/PresetName.h"
#include "presets/PresetText.h"

#include <string>

using namespace slantwise;
using slantwise_fuzz::require;

namespace {

void checkName(const std::string& text) {
    const std::string name = presetNameFrom(text);
    require(name.empty() || isPresetName(name), "what is made of a text is a name");
    if (name.empty()) return;
    const std::string file = presetFileName(name);
    require(file.size() <= 255 && file.find('/') == std::string::npos && file[0] != '.', "its file can be made");
    require(nameFromPresetFile(file) == name, "its file tells its name");
}

void checkPreset(const UserPreset& preset, const QVMConfig& config) {
    require(isPresetName(preset.name), "a preset has a name");
    require(isPlainUtf8(preset.note) && preset.note.size() <= longestPresetNote, "a note is a line of text");
    const std::string text = writePresetText(preset, "https://maker.example/product/1");
    const auto again = readPresetText(text, config);
    const auto* read = std::get_if<UserPreset>(&again);
    require(read && *read == preset, "what is written reads back as the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto config = QVMConfig::inlinedConfig();
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkName(text);
    const auto result = readPresetText(text, *config);
    if (const auto* refusal = std::get_if<PresetRefusal>(&result))
        require(!refusal->text().empty(), "a refusal has a reason");
    else
        checkPreset(std::get<UserPreset>(result), *config);
    return 0;
}
