#include "toolkit/ToolkitWorkspace.h"

#include "platform/system/Log.h"
#include "platform/system/Utf8.h"
#include "toolkit/InstalledManual.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

// The desktop's openers, in the order in which they are tried.
struct Opener {
    const char* program;
    const char* verb = nullptr; // what it is to do, where it does several things
};
constexpr std::array openers = {Opener{"xdg-open"}, Opener{"gio", "open"}, Opener{"x-www-browser"}};

bool isInstalled(const char* program) {
    const auto folders = juce::StringArray::fromTokens(juce::SystemStats::getEnvironmentVariable("PATH", {}), ":", {});
    return std::any_of(folders.begin(), folders.end(), [program](const juce::String& folder) {
        return juce::File::isAbsolutePath(folder) && juce::File(folder).getChildFile(program).existsAsFile();
    });
}

// Starts an opener that goes on by itself: the shell ends at once, so that nothing is left to wait for. The address is
// an argument all the way, never part of what a shell reads; and none of the host's files are left open in the browser.
// The end of a pipe into which a byte comes if the opener fails (OpenerWatch), or nothing where it was not started.
std::optional<int> startInBackground(const Opener& opener, const std::string& address) {
    static constexpr const char* script = "{ \"$@\" 3>&- || echo >&3; } >/dev/null 2>&1 </dev/null &";
    constexpr int shellsPipe = STDERR_FILENO + 1; // as the script calls it
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return std::nullopt;
    std::vector<const char*> arguments = {"sh", "-c", script, "sh", opener.program};
    if (opener.verb) arguments.push_back(opener.verb);
    arguments.insert(arguments.end(), {address.c_str(), nullptr});
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, ends[1], shellsPipe);
    posix_spawn_file_actions_addclosefrom_np(&files, shellsPipe + 1);
    pid_t shell = 0;
    const int error =
        posix_spawn(&shell, "/bin/sh", &files, nullptr, const_cast<char* const*>(arguments.data()), environ);
    posix_spawn_file_actions_destroy(&files);
    close(ends[1]);
    int status = 0; // stays so where the host takes notice of its children itself
    while (error == 0 && waitpid(shell, &status, 0) < 0 && errno == EINTR) {}
    if (error == 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0) return ends[0];
    close(ends[0]);
    return std::nullopt;
}

} // namespace

bool hasDisplay() {
    return juce::Desktop::getInstance().getDisplays().getPrimaryDisplay() != nullptr;
}

std::optional<std::string> acceptedClipboardText(std::string text) {
    if (text.empty() || text.size() > longestClipboardText || !isPlainUtf8(text)) return std::nullopt;
    return text;
}

std::optional<std::string> ToolkitWorkspace::clipboardString() {
    if (!hasDisplay()) return std::nullopt;
    if (clipboard_.isOurs()) return acceptedClipboardText(juce::SystemClipboard::getTextFromClipboard().toStdString());
    return acceptedClipboardText(clipboard_.textOfOthers(longestClipboardText).value_or(std::string()));
}

void ToolkitWorkspace::setClipboardString(const std::string& text) {
    if (!hasDisplay()) return;
    juce::SystemClipboard::copyTextToClipboard(juce::String::fromUTF8(text.c_str()));
    juce::SystemClipboard::getTextFromClipboard(); // asks the server, which thereby hears of the copy
    clipboard_.clipboardWasTaken();
}

bool isWebAddress(const std::string& address) {
    const bool isWeb = address.starts_with("https://") || address.starts_with("http://");
    return isWeb && std::all_of(address.begin(), address.end(), [](char c) { return c > ' ' && c < 127; });
}

std::optional<std::string> ToolkitWorkspace::fileOpenedFor(const std::string& address) {
    return installedManualPage(address);
}

void ToolkitWorkspace::openUrl(const std::string& address, std::function<void()> ifItFails) {
    const auto fail = [ifItFails = std::move(ifItFails)](const std::string& why) {
        logLine("browser: " + why);
        if (ifItFails) ifItFails();
    };
    if (!isWebAddress(address)) return fail("not a web address: " + address);
    const std::string target = fileOpenedFor(address).value_or(address);
    for (const Opener& opener : openers) {
        const auto pipe = isInstalled(opener.program) ? startInBackground(opener, target) : std::nullopt;
        if (!pipe) continue;
        return opener_.watch(*pipe,
                             [fail, target, opener] { fail(std::string(opener.program) + " can't open " + target); });
    }
    fail("no program to open " + target);
}

} // namespace QVM_NAMESPACE
