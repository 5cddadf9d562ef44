// One line in the log for a failed call to the unit, which is all that ever happens about it.
#pragma once

#include "platform/Log.h"

#include <source_location>
#include <string_view>

namespace QVM_NAMESPACE {

// Names the calling file without its folder, and the line; nothing for status 0.
inline void logIfFailed(const char* tag, std::int32_t status,
                        std::source_location where = std::source_location::current()) {
    const std::string_view path = where.file_name();
    logStatus(path.substr(path.rfind('/') + 1).data(), static_cast<int>(where.line()), tag, status);
}

} // namespace QVM_NAMESPACE
