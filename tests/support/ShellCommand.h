// A command of the shell, for tests that start programs as a user does.
#pragma once

#include <array>
#include <cstdio>
#include <string>

#include <sys/wait.h>

namespace slantwise_tests {

struct CommandResult {
    int status = -1;    // that it ended with; -1 when it was not started, or ended by a signal
    std::string output; // of both streams where the command joins them
};

// Waits for the end. Main thread.
inline CommandResult runCommand(const std::string& command) {
    CommandResult result;
    FILE* const pipe = popen(command.c_str(), "r");
    if (!pipe) return result;
    std::array<char, 4096> buffer;
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        result.output.append(buffer.data(), count);
    if (const int status = pclose(pipe); WIFEXITED(status)) result.status = WEXITSTATUS(status);
    return result;
}

// Of a program of the toolkit's: both streams, without what that says of itself in a debug build.
inline CommandResult runToolkitProgram(const std::string& command) {
    CommandResult result = runCommand("{ " + command + "; } 2>&1");
    if (result.output.starts_with("JUCE v")) result.output.erase(0, result.output.find('\n') + 1);
    return result;
}

} // namespace slantwise_tests
