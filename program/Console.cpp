#include "program/Console.h"

#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

// Opened the wrong way round, so that reading and writing fail as they did.
void occupyClosedStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) != -1) continue;
        // Those below are open by now, so that this gets the stream's own number.
        if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) return;
    }
}

} // namespace

std::string exitStatusHelp() {
    return "Exit status:\n"
           "  0                     all went well\n"
           "  1                     something could not be read, written or shown\n"
           "  2                     the arguments make no sense; nothing was done\n";
}

Console::Console(int argumentCount, char* const arguments[], const std::string& otherwise) {
    occupyClosedStreams();
    if (argumentCount > 0) program_ = std::filesystem::path(arguments[0]).filename().string();
    if (program_.empty()) program_ = otherwise;
}

int Console::print(const std::string& text) const {
    if (std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0) return exitSuccess;
    return fail("cannot write the output");
}

int Console::fail(const std::string& message) const {
    complain(message);
    return exitFailure;
}

int Console::refuse(const std::string& message) const {
    complain(message);
    return exitUsage;
}

void Console::complain(const std::string& message) const {
    std::fprintf(stderr, "%s: %s\n", program_.c_str(), message.c_str());
}

} // namespace QVM_NAMESPACE
