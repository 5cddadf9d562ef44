// Entry point of the stand-alone program.
#include "plugin/standalone/StandaloneApp.h"
#include "program/Console.h"

// An exception that nobody catches, such as want of memory, has to end the program in any case.
int main(int argumentCount, char* arguments[]) { // NOLINT(bugprone-exception-escape)
    const slantwise::Console console(argumentCount, arguments, "slantwise");
    auto parsed = slantwise::parseOptions({arguments + 1, arguments + argumentCount});
    if (const auto* error = std::get_if<slantwise::OptionsError>(&parsed)) return console.refuse(error->message);
    auto& options = std::get<slantwise::Options>(parsed);
    if (options.showHelp) return console.print(slantwise::helpText(console.program()));
    if (options.showVersion) return console.print(slantwise::versionText() + "\n");
    options.program = console.program();
    return slantwise::ToolkitProgram::run<slantwise::StandaloneApp>(argumentCount, arguments, std::move(options));
}
