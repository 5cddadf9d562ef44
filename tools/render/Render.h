// The program behind main().
//
// It needs no display and no toolkit. Files are worked on by several threads, each of which has a file to itself; this
// thread alone speaks to the shell.
#pragma once

#include "program/Console.h"
#include "tools/render/RenderOptions.h"

namespace QVM_NAMESPACE {
namespace render {

// Does what the options say and answers the exit status. Main thread.
[[nodiscard]] int runRender(const RenderOptions& options, const Console& console);

} // namespace render
} // namespace QVM_NAMESPACE
