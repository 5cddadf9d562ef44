// A desktop that only remembers what it was asked; it is the current one while it lives.
#pragma once

#include "platform/system/Workspace.h"

#include <optional>
#include <string>
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
    bool openUrl(const std::string& address) override {
        opened.push_back(address);
        return true;
    }

    std::optional<std::string> clipboard; // none: it holds a picture, or nothing
    std::vector<std::string> opened;
};

} // namespace QVM_NAMESPACE
