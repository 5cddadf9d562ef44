// Entry point of the stand-alone program.
#include "plugin/standalone/StandaloneApp.h"

#include <cstdio>

namespace {

constexpr int exitUsage = 2;

} // namespace

// An exception that nobody catches, such as want of memory, has to end the program in any case.
int main(int argumentCount, char* arguments[]) { // NOLINT(bugprone-exception-escape)
    auto parsed = slantwise::parseOptions({arguments + 1, arguments + argumentCount});
    if (const auto* error = std::get_if<slantwise::OptionsError>(&parsed)) {
        std::fprintf(stderr, "Slantwise: %s\n", error->message.c_str());
        return exitUsage;
    }
    auto& options = std::get<slantwise::Options>(parsed);
    if (options.showHelp) return std::fputs(slantwise::helpText().c_str(), stdout) < 0;
    if (options.showVersion) return std::printf("%s\n", slantwise::versionText().c_str()) < 0;
    return slantwise::ToolkitProgram::run<slantwise::StandaloneApp>(argumentCount, arguments, std::move(options));
}
