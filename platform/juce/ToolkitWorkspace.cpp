#include "platform/juce/ToolkitWorkspace.h"

#include "platform/Log.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

// Without an X display the toolkit's clipboard waits for an answer that can't come.
bool hasDisplay() {
    return juce::Desktop::getInstance().getDisplays().getPrimaryDisplay() != nullptr;
}

// The desktop's openers, in the order in which they are tried.
struct Opener {
    const char* program;
    const char* command; // for a shell, with the address as its $0: it is never part of what the shell reads
};
constexpr std::array openers = {
    Opener{"xdg-open", "xdg-open \"$0\" >/dev/null 2>&1 </dev/null &"},
    Opener{"gio", "gio open \"$0\" >/dev/null 2>&1 </dev/null &"},
    Opener{"x-www-browser", "x-www-browser \"$0\" >/dev/null 2>&1 </dev/null &"},
};

bool isInstalled(const char* program) {
    const auto folders = juce::StringArray::fromTokens(juce::SystemStats::getEnvironmentVariable("PATH", {}), ":", {});
    return std::any_of(folders.begin(), folders.end(), [program](const juce::String& folder) {
        return juce::File::isAbsolutePath(folder) && juce::File(folder).getChildFile(program).existsAsFile();
    });
}

// Starts a command that goes on by itself: the shell ends at once, so that nothing is left to wait for.
bool startInBackground(const char* command, const std::string& argument) {
    const std::array<const char*, 5> arguments = {"sh", "-c", command, argument.c_str(), nullptr};
    pid_t shell = 0;
    if (posix_spawn(&shell, "/bin/sh", nullptr, nullptr, const_cast<char* const*>(arguments.data()), environ) != 0)
        return false;
    int status = 0;
    while (waitpid(shell, &status, 0) < 0 && errno == EINTR) {}
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// How many bytes a well-formed character at the start of the text has; 0 when there is none.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&text](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    constexpr std::array<char32_t, 5> smallest = {0, 1, 0x80, 0x800, 0x10000};
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0x80 ? 1 : lead >> 5 == 6 ? 2 : lead >> 4 == 14 ? 3 : lead >> 3 == 30 ? 4 : 0;
    if (length == 0) return 0;
    char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
        character = character << 6 | (byte(i) & 0x3F);
    }
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    return character >= smallest[length] && character <= 0x10FFFF && !isSurrogate ? length : 0;
}

bool isPlainUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) return false; // a zero byte counts as broken too
        text.remove_prefix(length);
    }
    return true;
}

} // namespace

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
    for (const Opener& opener : openers) {
        if (isInstalled(opener.program) && startInBackground(opener.command, address)) return true;
    }
    logLine("browser: no program to open " + address);
    return false;
}

} // namespace QVM_NAMESPACE
