// The console tool behind main(): chooses the command that the arguments name.
//
// It needs no display and no toolkit, so that what the editor would show can be looked at, and tested, anywhere.
#pragma once

#include "tools/inspect/Command.h"

namespace QVM_NAMESPACE {
namespace inspect {

// Runs the tool with the arguments that follow the program's name and returns its exit status.
int RunInspect(Arguments arguments, const Streams& streams);

} // namespace inspect
} // namespace QVM_NAMESPACE
