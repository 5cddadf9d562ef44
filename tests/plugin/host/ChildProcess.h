// A program started by a test, ended with it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace slantwise_tests {

class ChildProcess {
public:
    // Starts the program, found on PATH, with what `environment` adds to ours. Its output goes to `logFile`.
    ChildProcess(const std::vector<std::string>& command, const std::map<std::string, std::string>& environment,
                 const std::string& logFile);
    // Asks it to end, then makes it.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool isRunning() { return !exitStatus(0); }
    // The exit status once it has ended, waiting at most so long; -1 when a signal ended it.
    std::optional<int> exitStatus(double seconds);

private:
    pid_t pid_ = -1;
    std::optional<int> status_;
};

// Whether a program of this name is on PATH.
bool isInstalled(const std::string& program);

} // namespace slantwise_tests
