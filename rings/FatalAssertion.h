// What a broken invariant of the audio buffers does: says where, and ends the process. Going on would hand a reader
// memory that the writer is changing.
#pragma once

#include "BuildNamespace.h"

#include <cstdio>
#include <cstdlib>

namespace QVM_NAMESPACE {

// Prints "path:line: function: expression" to the error stream and aborts. Any thread.
[[noreturn]] inline void failAssertion(const char* path, int line, const char* function, const char* expression) {
    std::fprintf(stderr, "%s:%d: %s: %s\n", path, line, function, expression);
    std::abort();
}

} // namespace QVM_NAMESPACE
