#include "bench/hosted/probe/HostProcess.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace slantwise_bench {

namespace {

pid_t spawn(const std::vector<std::string>& command, const std::string& log) {
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
    pid_t pid = 0;
    const int error = posix_spawnp(&pid, arguments.front(), &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) throw std::runtime_error("cannot start " + command.front());
    return pid;
}

std::uint64_t sleepsOf(const std::filesystem::path& thread) {
    std::ifstream status(thread / "status");
    const std::string wanted = "voluntary_ctxt_switches:";
    for (std::string word; status >> word;) {
        std::uint64_t count = 0;
        if (word == wanted && status >> count) return count;
    }
    return 0;
}

} // namespace

double nowSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

HostProcess::HostProcess(const std::vector<std::string>& command, const std::string& log)
    : startedAt_(nowSeconds()), pid_(spawn(command, log)) {}

HostProcess::~HostProcess() {
    constexpr double patience = 3; // seconds
    kill(pid_, SIGTERM);
    const double start = nowSeconds();
    while (waitpid(pid_, nullptr, WNOHANG) == 0) {
        if (nowSeconds() > start + patience) kill(pid_, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

bool HostProcess::isRunning() const {
    siginfo_t state{};
    return waitid(P_PID, static_cast<id_t>(pid_), &state, WEXITED | WNOHANG | WNOWAIT) == 0 && state.si_pid == 0;
}

HostProcess::Threads HostProcess::threads() const {
    Threads threads;
    std::error_code gone; // a thread may end while it is looked at
    for (const auto& entry : std::filesystem::directory_iterator("/proc/" + std::to_string(pid_) + "/task", gone)) {
        std::ifstream schedule(entry.path() / "schedstat");
        double nanoseconds = 0;
        if (schedule >> nanoseconds)
            threads[std::stoi(entry.path().filename())] = {nanoseconds * 1e-9, sleepsOf(entry.path())};
    }
    return threads;
}

double HostProcess::workedSeconds() const {
    double sum = 0;
    for (const auto& [id, thread] : threads())
        sum += thread.workedSeconds;
    return sum;
}

long HostProcess::privateKilobytes() const {
    std::ifstream rollup("/proc/" + std::to_string(pid_) + "/smaps_rollup");
    long sum = 0;
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with("Private_")) sum += std::stol(line.substr(line.find(':') + 1));
    }
    return sum;
}

} // namespace slantwise_bench
