// What the real unit does is seen in the editor, and the other way round.
#include "host/OnScreenFixture.h"

#include "description/Description.h"
#include "description/Presets.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMPresetBar.h"

#include <cstdint>

namespace QVM_NAMESPACE {
namespace {

using QVM0015_CocoaView2Viz = OnScreenFixture;

TEST_F(QVM0015_CocoaView2Viz, TheUnitHasWhatTheEditorsDrawingObjectShares) {
    EXPECT_EQ(unitsVizRef(), &editor->object().sharedState);
    EXPECT_EQ(editor->object().sampleRate, 44100);
    EXPECT_TRUE(logged.empty());
}

TEST_F(QVM0015_CocoaView2Viz, AutomationMovesHandleAndCurveWithNoAudio) {
    const double before = editor->slider(pidTiltGain).handleValue();
    automate(pidTiltGain, 9);
    frame();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltGain), 9);
    EXPECT_GT(editor->slider(pidTiltGain).handleValue(), before);
    EXPECT_GT(editor->object().parameterStates()[pidTiltGain].displayValue, 0);
    for (int i = 0; i < 7; ++i)
        frame();
    EXPECT_EQ(editor->object().parameterStates()[pidTiltGain].displayValue, 9);
}

TEST_F(QVM0015_CocoaView2Viz, TheEditorsOwnChangeMovesTheCurve) {
    ui().notifyParameterUpdatedTo(pidTiltRangeLow, 489.9F);
    for (int i = 0; i < 8; ++i)
        frame();
    EXPECT_EQ(editor->object().parameterStates()[pidTiltRangeLow].displayValue, 489.9F);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltRangeLow), 489.9F);
}

TEST_F(QVM0015_CocoaView2Viz, TheMeterMovesWithRealAudio) {
    playFrames(60, 0.5F, 0.25F);
    EXPECT_NEAR(left().display, -6.02F, 0.1F);
    EXPECT_NEAR(editor->object().levelMeter()->channel(1).display, -12.04F, 0.1F);
}

// Bypassed, stopped or without resources: the unit is not called, and nobody tells it so.
TEST_F(QVM0015_CocoaView2Viz, TheMeterFallsWhenTheHostCallsTheUnitNoMore) {
    playFrames(60, 1, 1);
    ASSERT_GT(left().clip, 0.9F);
    showFrames(12);
    EXPECT_NEAR(left().display, 0, 0.1F) << "a host may be late";
    showFrames(120);
    EXPECT_NEAR(left().display, -96, 0.1F);
    EXPECT_NEAR(left().fill, 0, 1e-3F);
    EXPECT_LT(left().clip, 0.2F);
    playFrames(60, 0.5F, 0.25F);
    EXPECT_NEAR(left().display, -6.02F, 0.1F);
}

// What the meter's button and the menus' "Reset meter" do.
TEST_F(QVM0015_CocoaView2Viz, ResettingTheMeterClearsWhatIsSeen) {
    playFrames(60, 1, 1);
    ASSERT_GT(left().clip, 0.9F);
    ASSERT_GT(left().fill, 0.5F);
    ui().meterTapped();
    showFrames(1);
    EXPECT_EQ(left().clip, 0);
    EXPECT_NEAR(left().fill, 0, 1e-3F);
    showFrames(30);
    EXPECT_NEAR(left().fill, 0, 1e-3F) << "nothing of it comes back";
    playFrames(60, 0.5F, 0.25F);
    EXPECT_NEAR(left().display, -6.02F, 0.1F);
}

TEST_F(QVM0015_CocoaView2Viz, ChoosingAnyPresetLeavesTheSettingsEqualToIt) {
    for (std::uint32_t index = 0; index < GetPresets()->stringValues.size(); ++index) {
        const auto preset = PresetIndexToPresetValues(index);
        ASSERT_TRUE(preset);
        editor->view().requestPresetNamed(GetPresets()->stringValues[index]);
        frame();
        frame();
        std::size_t next = 0;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            if (GetParameter(pid)->presetWildcard) continue;
            const float value = (*preset)[next++];
            if (value != value) continue; // an entry that is no number changes nothing
            EXPECT_EQ(ui().getMemoizedPValueDirectly(pid), value) << index << ", " << pid;
        }
    }
}

// They start below their range, where the binding may not go. What the unit holds wins, or an untouched editor would
// have changed settings.
TEST_F(QVM0015_CocoaView2Viz, TheRangeLinksAreTheUnitsAndLeaveThePresetsNameClean) {
    editor = std::make_unique<OpenEditor>(&real);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltRangeLink), 10);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidFilterRangeLink), 4);
    for (int i = 0; i < 120; ++i) {
        time.advance(1.0 / 60);
        frame();
        ASSERT_FALSE(ui().presetBar()->dirty()) << i;
    }
    const auto expectClean = [this](const char* when) {
        time.advance(1);
        frame();
        for (const std::uint32_t pid : {4U, 5U, 11U, 12U}) {
            EXPECT_EQ(ui().getMemoizedPValueDirectly(pid), 0) << when;
            EXPECT_EQ(editor->view().valueForParameterID(pid), 0) << when;
        }
        EXPECT_FALSE(ui().presetBar()->dirty()) << when;
    };
    expectClean("opened");
    EXPECT_FALSE(ui().keyboard().undoRedoStack().canUndo());
    ui().presetBar()->ab().tap();
    expectClean("at B");
    QVM0015_AudioUnit other;
    ASSERT_EQ(real.restoreState(other.saveState()), UnitStateResult::ok);
    editor->view().adoptRestoredState();
    expectClean("restored");
    ui().presetBar()->ab().tap();
    expectClean("at B again");
}

TEST_F(QVM0015_CocoaView2Viz, OneDragOfAFrequencyMakesOneUndoStep) {
    const auto& stack = ui().keyboard().undoRedoStack().stack();
    const std::size_t before = stack.size();
    QVMFloatControl& low = editor->slider(pidTiltRangeLow);
    for (int i = 0; i < 40; ++i) {
        low.setFloatValue(100 + 7.3F * static_cast<float>(i));
        low.reportInterfaceInitiatedValueChange();
        frame();
        time.advance(1.0 / 60);
    }
    for (int i = 0; i < 120; ++i) {
        frame();
        time.advance(1.0 / 60);
    }
    EXPECT_EQ(stack.size(), before + 1);
}

} // namespace
} // namespace QVM_NAMESPACE
