// The desktop's clipboard and browser.
#pragma once

#include "platform/system/Workspace.h"
#include "toolkit/ClipboardText.h"
#include "toolkit/OpenerWatch.h"

#include <cstddef>

namespace QVM_NAMESPACE {

class ToolkitWorkspace final : public Workspace {
public:
    // The connection is borrowed.
    explicit ToolkitWorkspace(XConnection& connection) : clipboard_(connection) {}

    std::optional<std::string> clipboardString() override;
    void setClipboardString(const std::string& text) override;
    // The manual's address opens the manual that was installed, where there is one.
    void openUrl(const std::string& address, std::function<void()> ifItFails) override;
    std::optional<std::string> fileOpenedFor(const std::string& address) override;

private:
    ClipboardText clipboard_;
    OpenerWatch opener_;
};

// Whether the toolkit has a screen to show anything on. Without one its clipboard waits for an answer that can't come,
// and it shows no menus. Main thread.
bool hasDisplay();

inline constexpr std::size_t longestClipboardText = std::size_t{64} * 1024; // bytes

// What may be let in of a text from the clipboard: null when there is nothing in it, when it is too long or when it is
// not UTF-8 or holds a zero.
std::optional<std::string> acceptedClipboardText(std::string text);

// Whether an address is one of the kinds that a browser opens (http and https); nothing else is handed to the desktop.
bool isWebAddress(const std::string& address);

} // namespace QVM_NAMESPACE
