#include "editor/session/PresetSession.h"

#include "description/Presets.h"
#include "editor/session/SessionFixture.h"

#include <gmock/gmock.h>

#include <limits>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t cellphone = 22;

class PresetSessionTest : public SessionFixture {
protected:
    void SetUp() override {
        open();
        surface_.dirty.clear();
    }
    PresetSession& presets() { return session_.presets(); }
    bool wasAnnounced(const std::string& call) const {
        return std::find(surface_.calls.begin(), surface_.calls.end(), call) != surface_.calls.end();
    }
};

TEST_F(PresetSessionTest, AChosenPresetIsSentShownAndAnnounced) {
    presets().choose(cellphone);
    EXPECT_EQ(presets().current(), cellphone);
    EXPECT_EQ(surface_.shownPreset, cellphone);
    EXPECT_EQ(surface_.calls.back(), "preset Cellphone 22");
    frame();
    EXPECT_FALSE(presets().isDirty());
}

TEST_F(PresetSessionTest, TheFocusMovesBetweenTheValuesOfAPresetAndItsAnnouncement) {
    presets().choose(cellphone);
    ASSERT_GE(surface_.calls.size(), 3u);
    EXPECT_TRUE(surface_.calls.end()[-3].starts_with("changed ") || surface_.calls.end()[-3].starts_with("send "));
    EXPECT_EQ(surface_.calls.end()[-2], "applied");
    EXPECT_EQ(surface_.calls.end()[-1], "preset Cellphone 22");
}

TEST_F(PresetSessionTest, APresetThatIsOnlyNamedSendsNothing) {
    presets().setCurrent(cellphone);
    EXPECT_EQ(presets().current(), cellphone);
    EXPECT_EQ(surface_.shownPreset, cellphone);
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_TRUE(presets().isDirty());
}

TEST_F(PresetSessionTest, WhoSwitchesToAPresetIsHeard) {
    presets().switchTo(cellphone);
    EXPECT_THAT(surface_.calls, ElementsAre("preset Cellphone 22"));
}

TEST_F(PresetSessionTest, WhatNoPresetHasIsNamedSoAndDirtyWhateverTheValues) {
    presets().switchTo(QVMPresetCount);
    EXPECT_TRUE(wasAnnounced("preset N/A " + std::to_string(QVMPresetCount)));
    EXPECT_TRUE(presets().isDirty());
    EXPECT_FALSE(presets().isKnown(QVMPresetCount));
    EXPECT_EQ(presets().indexOf("No such preset"), QVMPresetCount);
}

TEST_F(PresetSessionTest, WhatIsNoNumberLeavesItsParameter) {
    std::vector<float> preset = *PresetIndexToPresetValues(0);
    preset[1] = std::numeric_limits<float>::quiet_NaN();
    presets().apply(preset);
    EXPECT_FALSE(wasAnnounced("send 1"));
    EXPECT_TRUE(wasAnnounced("send 2"));
}

TEST_F(PresetSessionTest, TheComparisonShowsHalfASecondAfterTheLastChange) {
    set(pidTiltGain, 3);
    time_.advance(0.4);
    set(pidTiltGain, 4);
    time_.advance(0.4);
    EXPECT_THAT(surface_.dirty, IsEmpty());
    time_.advance(0.2);
    EXPECT_THAT(surface_.dirty, ElementsAre(true));
    set(pidTiltGain, GetParameter(pidTiltGain)->initialValue);
    time_.advance(0.6);
    EXPECT_THAT(surface_.dirty, ElementsAre(true, false));
}

TEST_F(PresetSessionTest, AWildcardNeverMakesAPresetDirty) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        if (GetParameter(pid)->presetWildcard) values().setDirectly(pid, 77);
    EXPECT_FALSE(presets().isDirty());
}

TEST(PresetSession, BeforeTheUnitHasSpokenNothingIsCompared) {
    VirtualTime time;
    const auto config = QVMConfig::inlinedConfig();
    RecordingSurface surface;
    EditorSession session(*config, surface);
    session.values().memoize(pidTiltGain, 5);
    session.presets().scheduleDirtyCheck();
    time.advance(1);
    EXPECT_THAT(surface.dirty, IsEmpty());
}

TEST(PresetSession, AProductWithoutPresetsHasNoneToName) {
    VirtualTime time;
    const auto config = QVMConfig::inlinedConfig();
    config->presets = nullptr;
    RecordingSurface surface;
    EditorSession session(*config, surface);
    session.presets().setCurrent(cellphone);
    EXPECT_EQ(session.presets().current(), 0u);
    EXPECT_EQ(session.presets().indexOf("Default"), std::nullopt);
    session.presets().switchTo(cellphone);
    EXPECT_THAT(surface.calls, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
