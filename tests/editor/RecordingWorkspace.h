// A desktop that only remembers what it was asked; it is the current one while it lives.
#pragma once

#include "platform/runloop/DelayedCall.h"
#include "platform/system/Workspace.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

class RecordingWorkspace final : public Workspace {
public:
    RecordingWorkspace() { install(this); }
    ~RecordingWorkspace() override { install(nullptr); }
    RecordingWorkspace(const RecordingWorkspace&) = delete;
    RecordingWorkspace& operator=(const RecordingWorkspace&) = delete;

    std::optional<std::string> clipboardString() override { return clipboard; }
    void setClipboardString(const std::string& text) override { clipboard = text; }
    // As a desktop whose opener finds out some time after it was started that it has no browser.
    void openUrl(const std::string& address, std::function<void()> ifItFails) override {
        opened.push_back(address);
        if (!hasBrowser) failure_.schedule(0.3, std::move(ifItFails));
    }
    std::optional<std::string> fileOpenedFor(const std::string&) override { return file; }

    std::optional<std::string> clipboard; // none: it holds a picture, or nothing
    std::vector<std::string> opened;
    bool hasBrowser = true;
    std::optional<std::string> file; // for any address

private:
    DelayedCall failure_;
};

} // namespace QVM_NAMESPACE
