#include "platform/system/Workspace.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class Desk final : public Workspace {
public:
    std::optional<std::string> clipboardString() override { return text; }
    void setClipboardString(const std::string& s) override { text = s; }
    void openUrl(const std::string&, std::function<void()>) override {}
    std::optional<std::string> fileOpenedFor(const std::string&) override { return std::nullopt; }
    std::string text;
};

TEST(Workspace, WithoutAnAdapterNothingIsThere) {
    Workspace::install(nullptr);
    Workspace::current().setClipboardString("lost");
    EXPECT_EQ(Workspace::current().clipboardString(), std::nullopt);
    bool isOpened = true;
    Workspace::current().openUrl("https://example.org", [&isOpened] { isOpened = false; });
    EXPECT_FALSE(isOpened);
    EXPECT_EQ(Workspace::current().fileOpenedFor("https://example.org"), std::nullopt);
}

TEST(Workspace, InstalledOneIsInForceUntilItIsTakenAway) {
    Desk desk;
    Workspace::install(&desk);
    Workspace::current().setClipboardString("kept");
    EXPECT_EQ(Workspace::current().clipboardString(), "kept");
    Workspace::install(nullptr);
    EXPECT_EQ(Workspace::current().clipboardString(), std::nullopt);
}

} // namespace
} // namespace QVM_NAMESPACE
