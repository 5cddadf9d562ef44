// The reader of settings addresses. What it accepts is finite, in range, and reads back from what the writer makes of
// it.
#include "Fuzz.h"
#include "description/Description.h"
#include "settings/SettingsAddress.h"

#include <algorithm>
#include <cmath>
#include <string>

using namespace slantwise;
using slantwise_fuzz::require;

namespace {

void checkEntry(const SettingsEntry& entry, const QVMConfig& config) {
    const QVMParameter* parameter = config.parameterForCodename(entry.key);
    require(parameter && !entry.key.empty(), "a key names a parameter");
    if (!entry.value) return;
    require(std::isfinite(*entry.value), "a value is finite");
    const float value = settingsValueFor(*parameter, *entry.value);
    // The initial value of some lies below the range; the unit takes what is between.
    require(value >= std::min(parameter->minValue, parameter->initialValue) && value <= parameter->maxValue,
            "what is applied is in range");
    require(settingsValueFor(*parameter, value) == value, "what is applied applies to itself");
}

void checkWritten(const SettingsAddress& address, const QVMConfig& config) {
    const std::string text = writeSettingsAddress("https://maker.example/product/1", address.entries);
    const auto again = readSettingsAddress(text, config);
    const auto* read = std::get_if<SettingsAddress>(&again);
    require(read && read->entries.size() == address.entries.size(), "what is written can be read");
    require(writeSettingsAddress("https://maker.example/product/1", read->entries) == text, "and is written the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto config = QVMConfig::inlinedConfig();
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto result = readSettingsAddress(text, *config);
    if (const auto* refusal = std::get_if<SettingsRefusal>(&result)) {
        require(!refusal->text().empty(), "a refusal has a reason");
        return 0;
    }
    const auto& address = std::get<SettingsAddress>(result);
    for (const SettingsEntry& entry : address.entries) {
        checkEntry(entry, *config);
        require(address.entryFor(entry.key) == &entry, "each key is there once");
    }
    checkWritten(address, *config);
    return 0;
}
