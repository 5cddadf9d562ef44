#include "toolkit/ToolkitWorkspace.h"

#include "platform/system/Log.h"
#include "platform/system/Utf8.h"
#include "toolkit/InstalledManual.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
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
bool startInBackground(const Opener& opener, const std::string& address) {
    std::vector<const char*> arguments = {"sh", "-c", "\"$@\" >/dev/null 2>&1 </dev/null &", "sh", opener.program};
    if (opener.verb) arguments.push_back(opener.verb);
    arguments.insert(arguments.end(), {address.c_str(), nullptr});
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    pid_t shell = 0;
    const int error =
        posix_spawn(&shell, "/bin/sh", &files, nullptr, const_cast<char* const*>(arguments.data()), environ);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) return false;
    int status = 0;
    while (waitpid(shell, &status, 0) < 0 && errno == EINTR) {}
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
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

bool ToolkitWorkspace::openUrl(const std::string& address) {
    if (!isWebAddress(address)) {
        logLine("browser: not a web address: " + address);
        return false;
    }
    const std::string target = installedManualPage(address).value_or(address);
    for (const Opener& opener : openers) {
        if (isInstalled(opener.program) && startInBackground(opener, target)) return true;
    }
    logLine("browser: no program to open " + target);
    return false;
}

} // namespace QVM_NAMESPACE
