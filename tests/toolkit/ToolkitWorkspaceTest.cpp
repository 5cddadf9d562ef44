#include "toolkit/ToolkitWorkspace.h"

#include "platform/runloop/VirtualTime.h"
#include "platform/system/Log.h"

#include <gtest/gtest.h>

#include <juce_core/juce_core.h>

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

TEST(AcceptedClipboardText, PlainTextComesIn) {
    EXPECT_EQ(acceptedClipboardText("https://example.org/?a=1"), "https://example.org/?a=1");
    EXPECT_EQ(acceptedClipboardText("é \uE101 \U0001F600"), "é \uE101 \U0001F600");
}

TEST(AcceptedClipboardText, NothingTooMuchAndBrokenBytesStayOut) {
    EXPECT_EQ(acceptedClipboardText(""), std::nullopt);
    EXPECT_TRUE(acceptedClipboardText(std::string(longestClipboardText, 'a')));
    EXPECT_EQ(acceptedClipboardText(std::string(longestClipboardText + 1, 'a')), std::nullopt);
    const std::string broken[] = {
        "a\x80", "\xC3", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF", std::string("a\0b", 3)};
    for (const std::string& text : broken)
        EXPECT_EQ(acceptedClipboardText(text), std::nullopt) << text;
}

TEST(WebAddress, OnlyWebAddressesAreHandedToTheDesktop) {
    EXPECT_TRUE(isWebAddress("https://example.org/manual?x=1#y"));
    EXPECT_TRUE(isWebAddress("http://example.org"));
    for (const char* other : {"", "file:///etc/passwd", "javascript:alert(1)", "https://a b", "https://a\n", "-h"})
        EXPECT_FALSE(isWebAddress(other)) << other;
}

class ToolkitWorkspaceTest : public ::testing::Test {
protected:
    ToolkitWorkspaceTest() {
        folder.createDirectory();
        setenv("PATH", (folder.getFullPathName() + ":/relative/../no").toRawUTF8(), 1);
    }
    ~ToolkitWorkspaceTest() override {
        setenv("PATH", path.c_str(), 1);
        folder.deleteRecursively();
    }
    static void waitFor(const juce::File& file) {
        for (int i = 0; i < 200 && !file.existsAsFile(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    // Whether an opener was started.
    bool opens(const std::string& address) {
        hasFailed = false;
        workspace.openUrl(address, [this] { hasFailed = true; });
        return !hasFailed;
    }
    juce::File makeOpener(const char* script) const {
        const juce::File opener = folder.getChildFile("xdg-open");
        opener.replaceWithText(juce::String("#!/bin/sh\n") + script, false, false, "\n");
        opener.setExecutePermission(true);
        return opener;
    }
    bool hasFailed = false;
    VirtualTime time{100};
    const std::string path = std::getenv("PATH");
    const juce::File folder = juce::File::createTempFile("openers");
    std::vector<std::string> lines;
    const ScopedLogSink sink{[this](const std::string& line) { lines.push_back(line); }};
    XConnection connection;
    ToolkitWorkspace workspace{connection};
};

TEST_F(ToolkitWorkspaceTest, WithoutADisplayTheClipboardIsEmptyAndWritingIsHarmless) {
    workspace.setClipboardString("text");
    EXPECT_EQ(workspace.clipboardString(), std::nullopt);
}

TEST_F(ToolkitWorkspaceTest, WithoutAnOpenerThereIsOneLogLine) {
    EXPECT_FALSE(opens("https://example.org/"));
    EXPECT_EQ(lines, std::vector<std::string>{"browser: no program to open https://example.org/\n"});
}

TEST_F(ToolkitWorkspaceTest, OtherAddressesAreRefusedWithALogLine) {
    EXPECT_FALSE(opens("file:///etc/passwd"));
    EXPECT_EQ(lines, std::vector<std::string>{"browser: not a web address: file:///etc/passwd\n"});
}

TEST_F(ToolkitWorkspaceTest, OpenerIsGivenTheAddressAsItIs) {
    const juce::File opener = folder.getChildFile("xdg-open"), told = folder.getChildFile("told");
    opener.replaceWithText("#!/bin/sh\nprintf %s \"$1\" > " + told.getFullPathName() + ".part\n/bin/mv " +
                               told.getFullPathName() + ".part " + told.getFullPathName() + "\n",
                           false, false, "\n");
    opener.setExecutePermission(true);
    const std::string address = "https://example.org/?q=$(touch${IFS}x)&b=`id`;c='\"%20";
    EXPECT_TRUE(opens(address));
    waitFor(told);
    EXPECT_EQ(told.loadFileAsString().toStdString(), address);
    EXPECT_TRUE(lines.empty());
}

TEST_F(ToolkitWorkspaceTest, OpenerHasNoneOfTheHostsFilesOpen) {
    constexpr int open = 100;
    ASSERT_EQ(dup2(STDERR_FILENO, open), open);
    const juce::File opener = folder.getChildFile("xdg-open"), told = folder.getChildFile("told");
    opener.replaceWithText("#!/bin/sh\n[ -e /proc/self/fd/100 ]\nprintf %s $? > " + told.getFullPathName() +
                               ".part\n/bin/mv " + told.getFullPathName() + ".part " + told.getFullPathName() + "\n",
                           false, false, "\n");
    opener.setExecutePermission(true);
    EXPECT_TRUE(opens("https://example.org/"));
    waitFor(told);
    EXPECT_EQ(told.loadFileAsString(), "1");
    close(open);
}

TEST_F(ToolkitWorkspaceTest, OpenerThatFailsIsToldOfOnce) {
    makeOpener("exit 3\n");
    ASSERT_TRUE(opens("https://example.org/"));
    for (int i = 0; i < 500 && !hasFailed; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10)); // of the program's
        time.advance(0.03);
    }
    EXPECT_TRUE(hasFailed);
    EXPECT_EQ(lines, std::vector<std::string>{"browser: xdg-open can't open https://example.org/\n"});
}

TEST_F(ToolkitWorkspaceTest, TheFileOfAnAddressThatIsNotTheManualsIsNone) {
    EXPECT_EQ(workspace.fileOpenedFor("https://example.org/"), std::nullopt);
}

} // namespace
} // namespace QVM_NAMESPACE
