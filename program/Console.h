// How the programs speak to the shell that they are called from. No toolkit.
#pragma once

#include "BuildNamespace.h"

#include <string>

namespace QVM_NAMESPACE {

// The exit status of every program of ours: the same for the same mistake.
enum ExitStatus : int {
    exitSuccess = 0,
    exitFailure = 1, // something could not be read, written or shown
    exitUsage = 2,   // the arguments make no sense; nothing was done
};

// What --help says of it, in lines.
std::string exitStatusHelp();

class Console {
public:
    // Made first in main(): where the shell has closed a standard stream, the next file or connection that is opened
    // would get its number and be written to as if it were the stream. `otherwise` is the program's name where the call
    // has none.
    Console(int argumentCount, char* const arguments[], const std::string& otherwise);

    // The program as it was called, without its folder.
    const std::string& program() const { return program_; }

    // Each answers the exit status. What is asked for goes to the output, and it is a failure not to get it there; what
    // is wrong is a line on the error stream behind the program's name.
    [[nodiscard]] int print(const std::string& text) const;
    [[nodiscard]] int fail(const std::string& message) const;
    [[nodiscard]] int refuse(const std::string& message) const;

private:
    void complain(const std::string& message) const;

    std::string program_;
};

} // namespace QVM_NAMESPACE
