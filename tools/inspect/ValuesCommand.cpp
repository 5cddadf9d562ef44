#include "tools/inspect/Command.h"
#include "tools/inspect/ValueOperations.h"

#include <istream>
#include <ostream>
#include <string>

namespace QVM_NAMESPACE {
namespace inspect {

int RunValuesCommand(Arguments arguments, const Streams& streams) {
    if (!arguments.empty()) return ReportUsageError(streams, "values takes no arguments; it reads standard input");
    int status = exitSuccess;
    std::string line;
    while (std::getline(streams.in, line)) {
        const OperationAnswer answer = AnswerOperation(line);
        streams.out << (answer.succeeded ? "" : "error: ") << answer.text << '\n';
        if (!answer.succeeded) status = exitBadInput;
    }
    return status;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
