// In which format a file is written: its own, or the nearest to that which the request leaves.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>
#include <string_view>

#include <sndfile.h>

namespace QVM_NAMESPACE {
namespace render {

// What stands for a container on the command line, and which endings of file names mean it.
struct Container {
    std::string_view name;   // also the ending of files that are written
    std::string_view others; // more endings, each with a blank around it
    int format;              // the library's major format, with a subtype where the name means one
};

// Null for a name, or an ending without its point, that means none. Capitals count for nothing.
const Container* containerNamed(std::string_view name);
const Container* containerOfEnding(std::string_view ending);
// "wav|aiff|...", for the help.
std::string containerNames();

// What the user asked for; nothing where the file's own holds.
struct FormatRequest {
    const Container* container = nullptr;
    std::optional<int> subtype; // the library's

    // By "16", "24", "32", "float" or "double"; false for anything else.
    [[nodiscard]] bool chooseBits(std::string_view bits);
    static constexpr std::string_view bitNames = "16|24|32|float|double";
};

// The format to write the file with, or none where the library has no such file. `frames` is what will be written.
[[nodiscard]] std::optional<SF_INFO> formatToWrite(const SF_INFO& source, const FormatRequest& request,
                                                   sf_count_t frames);

// Bits of the integers that samples are written with, 0 where they are written as floating point.
int integerBits(int format);
// Whether those integers are the samples themselves, and not the input of a coder.
bool isLinear(int format);
// Whether samples are 32-bit floating point.
bool isSingle(int format);
// Whether what comes back is what was written.
bool isLossless(int format);
// "WAV, 24 bit".
std::string formatText(int format);

} // namespace render
} // namespace QVM_NAMESPACE
