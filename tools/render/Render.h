// The program behind main().
//
// It needs no display and no toolkit. Files are worked on by several threads, each of which has a file to itself; this
// thread alone speaks to the shell.
#pragma once

#include "program/Console.h"
#include "tools/render/RenderOptions.h"

namespace QVM_NAMESPACE {
namespace render {

// Tells what is wrong with the arguments, and answers the exit status.
[[nodiscard]] int refuseArguments(const RenderOptionsError& error, const Console& console);
// Does what the options say and answers the exit status. Main thread.
[[nodiscard]] int runRender(const RenderOptions& options, const Console& console);

} // namespace render
} // namespace QVM_NAMESPACE
