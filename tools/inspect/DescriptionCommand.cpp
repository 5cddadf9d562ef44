#include "description/Description.h"
#include "tools/inspect/Command.h"
#include "tools/inspect/RecordJson.h"

#include <ostream>

namespace QVM_NAMESPACE {
namespace inspect {

int RunDescriptionCommand(Arguments arguments, const Streams& streams) {
    if (!BareArguments(arguments).empty()) return ReportUsageError(streams, "description takes no arguments");
    Json clumps = Json::array();
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid)
        clumps.push_back(ClumpJson(*GetClump(cid)));
    Json parameters = Json::array();
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        parameters.push_back(ParameterJson(*GetParameter(pid)));
    const Json description = {
        {"metadata", MetadataJson(*GetMetadata())},
        {"clumps", std::move(clumps)},
        {"parameters", std::move(parameters)},
        {"presets", PresetsJson()},
    };
    streams.out << description.dump(2) << '\n';
    return exitSuccess;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
