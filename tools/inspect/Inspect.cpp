#include "tools/inspect/Inspect.h"

#include "tools/inspect/ValueOperations.h"

#include <algorithm>
#include <ostream>
#include <string>

namespace QVM_NAMESPACE {
namespace inspect {

namespace {

void PrintHelp(std::ostream& out) {
    out << "Usage: slantwise-inspect COMMAND\n"
           "Looks into the plug-in without opening its editor.\n\n"
           "Commands:\n";
    for (const Command& command : Commands()) {
        std::string call(command.name);
        if (!command.arguments.empty()) call.append(" ").append(command.arguments);
        call.resize(std::max<std::size_t>(call.size(), 12), ' ');
        out << "  " << call << "  " << command.summary << '\n';
    }
    out << "  -h,--help     print this text\n\n"
           "Operations that `values` reads, one a line:\n";
    for (const ValueOperation& operation : ValueOperations())
        out << "  " << OperationUsage(operation) << '\n';
    out << "PID is a parameter number, V a value, P a position from 0 to 1, TYPE 0 (normal), 1 (fine) or 2 (coarse).\n"
           "A line that cannot be answered is answered with `error: ...`, and the exit status is then 1.\n\n"
           "Exit status:\n"
           "  0             all went well\n"
           "  1             something could not be read, answered or written\n"
           "  2             the arguments make no sense; nothing was done\n";
}

} // namespace

int ReportUsageError(const Streams& streams, std::string_view message) {
    streams.err << "slantwise-inspect: " << message << "\nTry `slantwise-inspect --help`.\n";
    return exitUsage;
}

Arguments BareArguments(Arguments arguments) {
    return !arguments.empty() && arguments.front() == "--" ? arguments.subspan(1) : arguments;
}

int ReportUnreadableSettings(const Streams& streams, std::string_view reason) {
    streams.err << "slantwise-inspect: cannot read the settings: " << reason << '\n';
    return exitUsage;
}

int RunInspect(Arguments arguments, const Streams& streams) {
    if (arguments.empty()) return ReportUsageError(streams, "no command given");
    const std::string_view name = arguments.front();
    if (name == "--help" || name == "-h") {
        if (arguments.size() > 1) return ReportUsageError(streams, std::string(name) + " takes no arguments");
        PrintHelp(streams.out);
        return exitSuccess;
    }
    for (const Command& command : Commands()) {
        if (command.name == name) return command.run(arguments.subspan(1), streams);
    }
    return ReportUsageError(streams, "unknown command '" + std::string(name) + "'");
}

} // namespace inspect
} // namespace QVM_NAMESPACE
