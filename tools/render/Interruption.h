// A wish of the user's or the system's that the program end, as it comes by a signal (SIGINT, SIGTERM, SIGHUP).
#pragma once

#include "BuildNamespace.h"

#include <array>

#include <signal.h>

namespace QVM_NAMESPACE {
namespace render {

// At most one at a time, on the main thread. While it lives the first signal is only noted; a second one, of
// whichever kind, ends the program.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    // Any thread.
    static bool isWanted();
    // Ends the program by the signal that was noted, so that a shell sees why. Does nothing where none was.
    static void endByIt();

private:
    std::array<struct sigaction, 3> before_{};
};

} // namespace render
} // namespace QVM_NAMESPACE
