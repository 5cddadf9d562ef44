// What the fuzzers share: the entry point that libFuzzer and the fixed run call, and what must hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// Takes one input. Returns 0, or does not return.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace slantwise_fuzz {

// Ends the program where a condition does not hold, whatever the build.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace slantwise_fuzz
