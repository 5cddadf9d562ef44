#include "editor/session/SettingsClipboard.h"

#include "editor/RecordingWorkspace.h"
#include "editor/session/SessionFixture.h"
#include "platform/system/Log.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string base = "https://ferrowind.example/slantwise/2.0.1";

class SettingsClipboardTest : public SessionFixture {
protected:
    void SetUp() override { open(); }
    SettingsClipboard& settings() { return session_.settings(); }

    RecordingWorkspace desktop_;
    std::vector<std::string> log_;
    ScopedLogSink sink_{[this](const std::string& line) { log_.push_back(line); }};
};

TEST_F(SettingsClipboardTest, WhatTheControlsShowIsWrittenButForThePowerSwitch) {
    EXPECT_EQ(settings().address(), base + "/?");
    surface_.shown = {{0, 0.0f}, {1, 4.5f}, {13, 1.0f}};
    EXPECT_EQ(settings().address(), base + "/?tg:4.5/fll:1");
    settings().copy();
    EXPECT_EQ(desktop_.clipboard, settings().address());
}

TEST_F(SettingsClipboardTest, WhatIsNotNamedReturnsToItsInitialValue) {
    set(pidTiltGain, 4.5f);
    set(pidOutputGain, -12);
    desktop_.clipboard = base + "/?tg:2";
    EXPECT_TRUE(settings().paste());
    EXPECT_EQ(values().memoized(pidTiltGain), 2);
    EXPECT_EQ(values().memoized(pidOutputGain), GetParameter(pidOutputGain)->initialValue);
}

TEST_F(SettingsClipboardTest, AnXLeavesItsParameter) {
    set(pidOutputGain, -12);
    EXPECT_TRUE(settings().apply(base + "/?tg:2/out:x"));
    EXPECT_EQ(values().memoized(pidOutputGain), -12);
}

TEST_F(SettingsClipboardTest, WhatCannotBeReadChangesNothingAndSaysWhy) {
    EXPECT_FALSE(settings().apply("no address"));
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_THAT(surface_.refusals, SizeIs(1));
    EXPECT_THAT(log_, ElementsAre("settings address refused: " + surface_.refusals.front() + "\n"));
}

TEST_F(SettingsClipboardTest, APictureInTheClipboardIsRefused) {
    desktop_.clipboard = std::nullopt;
    EXPECT_FALSE(settings().paste());
    EXPECT_THAT(surface_.refusals, ElementsAre("there is no text in the clipboard"));
    EXPECT_FALSE(settings().canPaste());
}

TEST_F(SettingsClipboardTest, OnlyThisProductsPageIsOffered) {
    desktop_.clipboard = "\n" + base + "/?tg:2";
    EXPECT_TRUE(settings().canPaste());
    desktop_.clipboard = "https://ferrowind.example/another/1.0/?tg:2";
    EXPECT_FALSE(settings().canPaste());
    EXPECT_TRUE(settings().paste()) << "it may be pasted all the same";
}

} // namespace
} // namespace QVM_NAMESPACE
