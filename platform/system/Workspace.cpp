#include "platform/system/Workspace.h"

namespace QVM_NAMESPACE {

namespace {

// A desktop with nothing on it.
class EmptyWorkspace final : public Workspace {
public:
    std::optional<std::string> clipboardString() override { return std::nullopt; }
    void setClipboardString(const std::string&) override {}
    void openUrl(const std::string&, std::function<void()> ifItFails) override {
        if (ifItFails) ifItFails();
    }
    std::optional<std::string> fileOpenedFor(const std::string&) override { return std::nullopt; }
};

EmptyWorkspace empty;
Workspace* installed = nullptr; // main thread only

} // namespace

Workspace& Workspace::current() {
    if (installed) return *installed;
    return empty;
}

void Workspace::install(Workspace* workspace) {
    installed = workspace;
}

} // namespace QVM_NAMESPACE
