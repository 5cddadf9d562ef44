#include "tools/inspect/Command.h"

#include <array>

namespace QVM_NAMESPACE {
namespace inspect {

namespace {

constexpr std::array kCommands = {
    Command{"curve", "[--settings ADDRESS] [--points N]", "print the response curve of some settings as a table",
            RunCurveCommand},
    Command{"description", "", "print the plug-in's description as one JSON object", RunDescriptionCommand},
    Command{"settings", "ADDRESS", "print what a settings address would set, a key and a value a line",
            RunSettingsCommand},
    Command{"values", "", "read value operations from standard input and answer each with a line", RunValuesCommand},
};

} // namespace

std::span<const Command> Commands() {
    return kCommands;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
