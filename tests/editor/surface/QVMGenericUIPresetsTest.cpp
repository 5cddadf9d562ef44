#include "editor/surface/PresetsFixture.h"

#include "description/Presets.h"

#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

class QVMGenericUIPresets : public PresetsFixture {};

TEST_F(QVMGenericUIPresets, CellphoneChangesTwentyThreeParametersAndLeavesTheQualitySwitch) {
    userSets(pidHQMode, 1);
    delegate_.calls.clear();
    ui_->requestPresetNamed("Cellphone");
    EXPECT_EQ(delegate_.sent.size(), 24u); // the switch, and 23 values of the preset
    EXPECT_EQ(delegate_.calls.back(), "preset Cellphone 22");
    EXPECT_EQ(memoized(pidHQMode), 1);
    const auto values = PresetIndexToPresetValues(22);
    for (std::uint32_t pid = 0; pid < 23; ++pid)
        EXPECT_EQ(memoized(pid), values->at(pid)) << pid;
}

TEST_F(QVMGenericUIPresets, DefaultIsCleanAfterOpening) {
    settle();
    EXPECT_EQ(shownName(), "Default");
    EXPECT_FALSE(dirty());
}

// The range links start below their range, where the binding may not go.
TEST_F(QVMGenericUIPresets, TheDefaultPresetIsCleanAfterTheOpeningAndNothingCanBeUndone) {
    frames(2);
    EXPECT_EQ(memoized(pidTiltRangeLink), 0);
    EXPECT_EQ(memoized(pidFilterRangeLinkRatio), 0);
    EXPECT_FALSE(ui_->presetBar()->dirty());
    EXPECT_FALSE(stack().canUndo());
    EXPECT_EQ(stack().currentValues()->values.at(4), 0);
    EXPECT_TRUE(delegate_.sent.empty());
}

TEST_F(QVMGenericUIPresets, APresetThatIsChosenBeforeThereIsASketchShowsAtOnce) {
    build(QVMConfig::inlinedConfig());
    ui_->requestPresetNamed("Cellphone");
    ASSERT_FALSE(ui_->sketch());
    const auto values = PresetIndexToPresetValues(22);
    for (const std::uint32_t pid : {1u, 2u, 3u, 9u, 10u, 14u})
        EXPECT_EQ(control(pid).floatValue(), values->at(pid)) << pid;
    settle();
    EXPECT_EQ(control(pidTiltGain).floatValue(), values->at(1));
    EXPECT_FALSE(dirty());
}

TEST_F(QVMGenericUIPresets, TheNameIsNeverMarkedWhileTheEditorOpens) {
    build(QVMConfig::inlinedConfig());
    ui_->lastSavedPresetWasNamed("Default");
    for (int i = 0; i < 120; ++i) {
        frames(frameSeconds);
        ASSERT_FALSE(dirty()) << "frame " << i;
    }
}

TEST_F(QVMGenericUIPresets, EveryPresetIsCleanWhenChosenAndWhenTheEditorIsOpenedAgain) {
    for (std::uint32_t index = 0; index < QVMPresetCount; ++index) {
        const std::string preset = GetPresets()->stringValues[index];
        ui_->requestPresetNamed(preset);
        settle();
        EXPECT_FALSE(dirty()) << preset;
        reopen(preset);
        EXPECT_EQ(ui_->currentPreset(), index);
        EXPECT_FALSE(dirty()) << preset << ", opened again";
    }
}

TEST_F(QVMGenericUIPresets, AFineStepMakesEveryPresetDirtyAndTakingItBackMakesItClean) {
    for (std::uint32_t index = 0; index < QVMPresetCount; ++index) {
        const std::string preset = GetPresets()->stringValues[index];
        ui_->requestPresetNamed(preset);
        settle();
        const float gain = memoized(pidTiltGain);
        userSets(pidTiltGain, gain > 0 ? gain - 0.1f : gain + 0.1f);
        settle();
        EXPECT_TRUE(dirty()) << preset;
        EXPECT_TRUE(name().inaccurate());
        control(pidTiltGain).setUserInitiatedValueInternally(gain);
        settle();
        EXPECT_FALSE(dirty()) << preset;
    }
}

TEST_F(QVMGenericUIPresets, TheMarkFollowsHalfASecondAfterTheLastChange) {
    userSets(pidTiltGain, 3);
    frame();
    time_.advance(0.4);
    userSets(pidTiltGain, 4);
    frame();
    time_.advance(0.4);
    EXPECT_FALSE(dirty());
    time_.advance(0.11);
    EXPECT_TRUE(dirty());
}

TEST_F(QVMGenericUIPresets, HostAutomationMarksThePresetToo) {
    hostSets(pidOutputGain, -3);
    settle();
    EXPECT_TRUE(dirty());
}

TEST_F(QVMGenericUIPresets, AParameterWithoutAControlMarksThePresetToo) {
    for (const std::uint32_t pid : {4u, 12u, 18u}) {
        ASSERT_EQ(ui_->parameterControlWithPid(pid), nullptr);
        const float clean = delegate_.unit.at(pid);
        hostSets(pid, GetParameter(pid)->maxValue);
        settle();
        EXPECT_TRUE(dirty()) << pid;
        hostSets(pid, clean);
        settle();
        EXPECT_FALSE(dirty()) << pid;
    }
}

TEST_F(QVMGenericUIPresets, TheQualitySwitchNeverMakesAPresetDirty) {
    userSets(pidHQMode, 1);
    settle();
    EXPECT_FALSE(dirty());
}

TEST_F(QVMGenericUIPresets, AValueThatIsNoNumberLeavesItsParameterAsItIs) {
    userSets(pidTiltGain, 5);
    std::vector<float> values = *PresetIndexToPresetValues(9);
    values[1] = std::numeric_limits<float>::quiet_NaN();
    ui_->applyPresetValues(values);
    EXPECT_EQ(memoized(pidTiltGain), 5);
    EXPECT_EQ(memoized(pidTiltRangeLow), 10);
}

TEST_F(QVMGenericUIPresets, ChoosingTheSamePresetAgainAppliesItsValuesAndClearsTheMark) {
    ui_->requestPresetNamed("Air");
    settle();
    userSets(pidTiltGain, -2);
    settle();
    ASSERT_TRUE(dirty());
    ui_->requestPresetNamed("Air");
    EXPECT_EQ(memoized(pidTiltGain), PresetIndexToPresetValues(8)->at(1));
    EXPECT_TRUE(dirty()); // not at once
    settle();
    EXPECT_FALSE(dirty());
}

TEST_F(QVMGenericUIPresets, AnOctaveRuleDoesNotBendAPreset) {
    userSets(pidTiltRangeLow, 8000); // pushes the high end
    ui_->requestPresetNamed("Bass Cab (Ported)");
    EXPECT_EQ(memoized(pidTiltRangeLow), 75);
    EXPECT_EQ(memoized(pidTiltRangeHigh), 500);
}

TEST_F(QVMGenericUIPresets, ChoosingAPresetIsOneUndoStep) {
    settle();
    const std::size_t before = stack().stack().size();
    ui_->requestPresetNamed("Cellphone");
    settle();
    EXPECT_EQ(stack().stack().size(), before + 1);
    ui_->keyboard().keyboardShortcutUndo();
    settle();
    EXPECT_EQ(memoized(pidTiltGain), 0);
    EXPECT_EQ(shownName(), "Default");
    EXPECT_FALSE(dirty());
    ui_->keyboard().keyboardShortcutRedo();
    settle();
    EXPECT_FALSE(dirty());
}

TEST_F(QVMGenericUIPresets, AChosenPresetIsNoGestureOfThePowerSwitch) {
    ui_->requestPresetNamed("Air");
    click(ui_->presetBar()->coordinates().toWindow(Point{320, 15}));
    EXPECT_EQ(ui_->interactionState(pidMasterOnOff), QVMInteractionDiscrete);
    for (const std::string& call : delegate_.calls)
        EXPECT_TRUE(call.starts_with("updated") || call.starts_with("preset")) << call;
}

} // namespace
} // namespace QVM_NAMESPACE
