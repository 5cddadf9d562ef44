#include "tools/inspect/Command.h"
#include "tools/inspect/ValueOperations.h"

#include <cerrno>
#include <istream>
#include <ostream>
#include <string>
#include <system_error>

namespace QVM_NAMESPACE {
namespace inspect {

int RunValuesCommand(Arguments arguments, const Streams& streams) {
    if (!BareArguments(arguments).empty())
        return ReportUsageError(streams, "values takes no arguments; it reads standard input");
    int status = exitSuccess;
    std::string line;
    while (std::getline(streams.in, line)) {
        const OperationAnswer answer = AnswerOperation(line);
        streams.out << (answer.succeeded ? "" : "error: ") << answer.text << '\n';
        if (!answer.succeeded) status = exitFailure;
    }
    if (streams.in.bad()) { // as where it is a directory
        streams.err << "slantwise-inspect: cannot read the input: " << std::generic_category().message(errno) << '\n';
        return exitFailure;
    }
    return status;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
