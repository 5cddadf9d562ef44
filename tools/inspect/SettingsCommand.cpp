// What a settings address would set.
#include "description/NumberText.h"
#include "settings/SettingsAddress.h"
#include "tools/inspect/Command.h"

#include <ostream>

namespace QVM_NAMESPACE {
namespace inspect {

namespace {

constexpr int kSignificantDigits = 9; // enough to tell every 32-bit number from its neighbours

} // namespace

int RunSettingsCommand(Arguments arguments, const Streams& streams) {
    const Arguments addresses = BareArguments(arguments);
    if (addresses.size() != 1) return ReportUsageError(streams, "settings takes one address");
    const auto config = QVMConfig::inlinedConfig();
    const auto result = readSettingsAddress(addresses.front(), *config);
    if (const auto* refusal = std::get_if<SettingsRefusal>(&result))
        return ReportUnreadableSettings(streams, refusal->text());
    for (const SettingsEntry& entry : std::get<SettingsAddress>(result).entries) {
        if (!entry.value) continue; // it would stay as it is
        const float value = settingsValueFor(*config->parameterForCodename(entry.key), *entry.value);
        streams.out << entry.key << ' ' << SignificantText(double{value}, kSignificantDigits) << '\n';
    }
    return exitSuccess;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
