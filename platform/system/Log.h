// Diagnostics: one line a call, to the process's error stream unless a sink is installed. Main thread, or any thread
// but the render thread.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <functional>
#include <string>

namespace QVM_NAMESPACE {

using LogSink = std::function<void(const std::string& line)>;

// Writes a line (a missing newline is added).
void logLine(const std::string& line);
// The line for a failed host call: "%s:%d: %s result %d %08X %4.4s\n" with the source name, the line, the tag, the
// status as a decimal, as eight hexadecimal digits and as four characters. Nothing for status 0.
void logStatus(const char* source, int line, const char* tag, std::int32_t status);

// While it lives, lines go to the sink instead; the latest one wins. For tests.
class ScopedLogSink {
public:
    explicit ScopedLogSink(LogSink sink);
    ~ScopedLogSink();
    ScopedLogSink(const ScopedLogSink&) = delete;
    ScopedLogSink& operator=(const ScopedLogSink&) = delete;

private:
    LogSink outer_;
};

} // namespace QVM_NAMESPACE
