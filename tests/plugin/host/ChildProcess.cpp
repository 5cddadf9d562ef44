#include "plugin/host/ChildProcess.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace slantwise_tests {

ChildProcess::ChildProcess(const std::vector<std::string>& command,
                           const std::map<std::string, std::string>& environment, const std::string& logFile) {
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_ = fork();
    if (pid_ != 0) return;
    for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
    const int log = open(logFile.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(log, 1);
    dup2(log, 2);
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

ChildProcess::~ChildProcess() {
    if (pid_ < 0 || !isRunning()) return;
    kill(pid_, SIGTERM);
    if (exitStatus(3)) return;
    kill(pid_, SIGKILL);
    exitStatus(3);
}

std::optional<int> ChildProcess::exitStatus(double seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!status_) {
        int status = 0;
        if (waitpid(pid_, &status, WNOHANG) == pid_) {
            status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        } else if (std::chrono::steady_clock::now() >= end) {
            break;
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }
    return status_;
}

bool isInstalled(const std::string& program) {
    std::istringstream folders(std::getenv("PATH") ? std::getenv("PATH") : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (std::filesystem::exists(folder + "/" + program)) return true;
    }
    return false;
}

} // namespace slantwise_tests
