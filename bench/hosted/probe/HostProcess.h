// A host that is started, watched from outside and ended.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace slantwise_bench {

double nowSeconds(); // of the monotonic clock

class HostProcess {
public:
    // The command's program is looked for in PATH; what it says goes into the file.
    HostProcess(const std::vector<std::string>& command, const std::string& log);
    // Asks it to end, and sees to it.
    ~HostProcess();
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    double startedAt() const { return startedAt_; } // seconds on nowSeconds()
    bool isRunning() const;

    struct Thread {
        double workedSeconds = 0;
        std::uint64_t sleeps = 0;
    };
    using Threads = std::map<pid_t, Thread>;
    // What its threads have worked and how often they slept, by the kernel's account.
    Threads threads() const;
    // Of all threads that live.
    double workedSeconds() const;
    // Memory that it shares with nobody.
    long privateKilobytes() const;

private:
    double startedAt_;
    pid_t pid_;
};

} // namespace slantwise_bench
