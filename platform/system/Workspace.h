// The desktop around the editor: clipboard and browser. The adapter installs the real one; without it nothing is there.
#pragma once

#include "BuildNamespace.h"

#include <functional>
#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class Workspace {
public:
    virtual ~Workspace() = default;
    // The clipboard's text, valid UTF-8 of at most 64 KiB; absent when it holds none. May block: only when the user
    // asks to paste or opens the menu.
    virtual std::optional<std::string> clipboardString() = 0;
    virtual void setClipboardString(const std::string& text) = 0;
    // Opens an address with the desktop's opener. Where there is none, or it says before long that it can't, there is
    // one log line and `ifItFails` is called on the main thread, at once or later; another address that is opened
    // meanwhile makes this one forgotten.
    virtual void openUrl(const std::string& address, std::function<void()> ifItFails) = 0;
    // The file on this machine that is opened in place of an address; none where it is the address itself.
    virtual std::optional<std::string> fileOpenedFor(const std::string& address) = 0;

    // The workspace in force; never null. Main thread.
    static Workspace& current();
    // Borrowed; null returns to the empty one. Main thread.
    static void install(Workspace* workspace);
};

} // namespace QVM_NAMESPACE
