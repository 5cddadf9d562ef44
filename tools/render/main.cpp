// Entry point of slantwise-render.
#include "tools/render/Render.h"

#include <signal.h>

// An exception that nobody catches, such as want of memory, has to end the program in any case.
int main(int argumentCount, char* arguments[]) { // NOLINT(bugprone-exception-escape)
    const slantwise::Console console(argumentCount, arguments, "slantwise-render");
    // A reader that has gone away and a file that may grow no more are mistakes like others, and no end without a word.
    for (const int failure : {SIGPIPE, SIGXFSZ})
        signal(failure, SIG_IGN);
    const auto parsed = slantwise::render::parseRenderOptions({arguments + 1, arguments + argumentCount});
    if (const auto* error = std::get_if<slantwise::render::RenderOptionsError>(&parsed))
        return slantwise::render::refuseArguments(*error, console);
    return slantwise::render::runRender(std::get<slantwise::render::RenderOptions>(parsed), console);
}
