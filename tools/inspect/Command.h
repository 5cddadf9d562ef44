// What a subcommand of the console tool is. A new one is a file of its own and a row in Commands.cpp.
#pragma once

#include "BuildNamespace.h"

#include <iosfwd>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {
namespace inspect {

// Exit statuses of the program, as of the others.
enum ExitStatus : int {
    exitSuccess = 0,
    exitFailure = 1, // the command ran, but something could not be read, answered or written
    exitUsage = 2,   // the arguments make no sense; nothing was done
};

// Where a command reads and writes; owned by the caller.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

using Arguments = std::span<const std::string_view>;

struct Command {
    std::string_view name;
    std::string_view arguments; // as shown in the help
    std::string_view summary;
    // Gets what follows the command's name and returns the exit status.
    int (*run)(Arguments arguments, const Streams& streams);
};

// All commands, in the order of the help text.
std::span<const Command> Commands();

int RunCurveCommand(Arguments arguments, const Streams& streams);
int RunDescriptionCommand(Arguments arguments, const Streams& streams);
int RunSettingsCommand(Arguments arguments, const Streams& streams);
int RunValuesCommand(Arguments arguments, const Streams& streams);

// What follows the mark "--" that may stand before arguments which are no options.
Arguments BareArguments(Arguments arguments);

// Says why an address among the arguments cannot be read and returns the status to exit with.
int ReportUnreadableSettings(const Streams& streams, std::string_view reason);

// Writes a message about a wrong command line and returns the status to exit with.
int ReportUsageError(const Streams& streams, std::string_view message);

} // namespace inspect
} // namespace QVM_NAMESPACE
