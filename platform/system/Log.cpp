#include "platform/system/Log.h"

#include <array>
#include <cstdio>
#include <mutex>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

std::mutex sinkMutex;
LogSink currentSink; // guarded by sinkMutex; empty: the error stream

LogSink exchangeSink(LogSink sink) {
    const std::lock_guard lock(sinkMutex);
    return std::exchange(currentSink, std::move(sink));
}

} // namespace

void logLine(const std::string& line) {
    const std::string ended = !line.empty() && line.back() == '\n' ? line : line + '\n';
    LogSink sink;
    {
        const std::lock_guard lock(sinkMutex);
        sink = currentSink;
    }
    if (sink) {
        sink(ended);
    } else {
        std::fwrite(ended.data(), 1, ended.size(), stderr); // one call, so that lines of two threads don't mix
    }
}

void logStatus(const char* source, int line, const char* tag, std::int32_t status) {
    if (status == 0) return;
    const auto bits = static_cast<std::uint32_t>(status);
    const std::array<char, 5> characters = {static_cast<char>(bits >> 24), static_cast<char>(bits >> 16),
                                            static_cast<char>(bits >> 8), static_cast<char>(bits), '\0'};
    constexpr const char* format = "%s:%d: %s result %d %08X %4.4s\n";
    const int length = std::snprintf(nullptr, 0, format, source, line, tag, status, bits, characters.data());
    if (length < 0) return;
    std::string text(static_cast<std::size_t>(length), '\0');
    std::snprintf(text.data(), text.size() + 1, format, source, line, tag, status, bits, characters.data());
    logLine(text);
}

ScopedLogSink::ScopedLogSink(LogSink sink) : outer_(exchangeSink(std::move(sink))) {}

ScopedLogSink::~ScopedLogSink() {
    exchangeSink(std::move(outer_));
}

} // namespace QVM_NAMESPACE
