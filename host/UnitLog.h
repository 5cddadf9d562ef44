// One line in the log for a failed call to the unit, which is all that ever happens about it.
#pragma once

#include "platform/system/Log.h"

#include <string_view>

namespace QVM_NAMESPACE {

// Names the calling file without its folder, and the line (the last two arguments are for the compiler to fill in);
// nothing for status 0.
inline void logIfFailed(const char* tag, std::int32_t status, std::string_view path = __builtin_FILE(),
                        int line = __builtin_LINE()) {
    logStatus(path.substr(path.rfind('/') + 1).data(), line, tag, status);
}

} // namespace QVM_NAMESPACE
