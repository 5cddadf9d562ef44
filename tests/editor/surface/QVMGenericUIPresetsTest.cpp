#include "editor/EditorFixture.h"

#include "description/Presets.h"
#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetControl.h"
#include "editor/surface/QVMPresetsDrawer.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::IsEmpty;

class QVMGenericUIPresets : public EditorFixture {
protected:
    void settle() { frames(1); }
    bool dirty() { return ui_->presetBar()->dirty(); }
    QVMPresetControl& name() {
        return dynamic_cast<QVMPresetControl&>(*ui_->presetBar()->presetControl()->primaryControl());
    }
    std::string shownName() { return name().value()->string().string(); }
    // A new editor on the unit as it is, as when a host closes the old one and opens it again.
    void reopen(const std::string& presetName) {
        build(QVMConfig::inlinedConfig());
        ui_->lastSavedPresetWasNamed(presetName);
        settle();
    }
};

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

// Who hears of a preset may ask where the keyboard is.
class FocusWitness final : public RecordingDelegate {
public:
    void interfaceDidUpdateCurrentPresetToValueNamedPid(QVMGenericUI& ui, const std::string&, std::uint32_t) override {
        ++announcements;
        isNameFocused = ui.presetBar()->presetControl()->focused();
    }
    int announcements = 0;
    bool isNameFocused = false;
};

TEST_F(QVMGenericUIPresets, TheNameHasTheKeyboardWhenAPresetIsAnnouncedUnlessTheListIsOpen) {
    FocusWitness witness;
    ui_->setDelegate(&witness);
    ui_->requestPresetNamed("Cellphone");
    EXPECT_TRUE(witness.isNameFocused);
    ui_->togglePresetsDrawer();
    settle();
    ui_->requestPresetNamed("Default");
    EXPECT_FALSE(witness.isNameFocused);
    EXPECT_EQ(witness.announcements, 2);
    ui_->setDelegate(&delegate_);
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

TEST_F(QVMGenericUIPresets, AnIndexThatNoPresetHasIsNamedSoAndIsDirtyWhateverTheValues) {
    ui_->lastSavedPresetWasKeyed(23);
    EXPECT_EQ(shownName(), "N/A");
    settle();
    EXPECT_TRUE(dirty());
    delegate_.calls.clear();
    delegate_.sent.clear();
    ui_->presetUpdated();
    EXPECT_THAT(delegate_.sent, IsEmpty());
    EXPECT_THAT(delegate_.calls, Contains("preset N/A 23"));
}

TEST_F(QVMGenericUIPresets, AnOpenListMarksThePresetThatIsNamedFromElsewhere) {
    ui_->togglePresetsDrawer();
    ui_->lastSavedPresetWasKeyed(8);
    EXPECT_EQ(ui_->presetDrawer()->outline().selection(), 8u);
}

TEST_F(QVMGenericUIPresets, AProductWithoutPresetsHasNoneToName) {
    auto config = QVMConfig::inlinedConfig();
    config->presets = nullptr;
    open(std::move(config));
    ui_->lastSavedPresetWasKeyed(8);
    ui_->lastSavedPresetWasNamed("Air");
    settle();
    EXPECT_EQ(ui_->currentPreset(), 0u);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIPresets, ASavedNameThatNoPresetHasIsShownAsSuch) {
    ui_->lastSavedPresetWasNamed("Air");
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_EQ(shownName(), "Air");
    ui_->lastSavedPresetWasNamed("Nothing of the kind");
    EXPECT_EQ(ui_->currentPreset(), QVMPresetCount);
    EXPECT_EQ(shownName(), "N/A");
    settle();
    EXPECT_TRUE(dirty());
    EXPECT_THAT(delegate_.sent, IsEmpty());
}

TEST_F(QVMGenericUIPresets, ANameThatNoPresetHasCannotBeChosen) {
    ui_->requestPresetNamed("Air");
    userSets(pidTiltGain, 5);
    settle();
    delegate_.calls.clear();
    ui_->requestPresetNamed("Nothing of the kind");
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_EQ(memoized(pidTiltGain), 5) << "nor is the current one applied again";
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIPresets, AnArrowInTheBarAppliesTheNextPresetAndTakesTheFocus) {
    const Point rightArrow = ui_->presetBar()->convertToWindow(Point{320, 15});
    click(rightArrow);
    EXPECT_EQ(ui_->currentPreset(), 1u);
    EXPECT_EQ(memoized(pidTiltGain), 6);
    EXPECT_EQ(ui_->focusedControl(), ui_->presetBar()->presetControl());
    EXPECT_TRUE(ui_->presetBar()->presetControl()->focused());
    EXPECT_THAT(delegate_.calls, Contains("preset Brighter 1"));
}

TEST_F(QVMGenericUIPresets, AClickOnTheNameOpensTheListAndSetsNothingWhateverModifierIsHeld) {
    ui_->requestPresetNamed("Air");
    settle();
    const std::vector<float> before = memoized();
    for (const std::uint32_t modifier : {0u, EventModifier::option, EventModifier::command, EventModifier::shift}) {
        delegate_.sent.clear();
        const bool wasOpen = ui_->presetDrawer()->visible();
        click(middleOf(name()), modifier);
        settle();
        EXPECT_NE(ui_->presetDrawer()->visible(), wasOpen) << modifier;
        EXPECT_THAT(delegate_.sent, IsEmpty()) << modifier;
        EXPECT_EQ(ui_->currentPreset(), 8u) << modifier;
        EXPECT_EQ(memoized(), before) << modifier;
    }
}

TEST_F(QVMGenericUIPresets, AnArrowWithAltStepsToTheNextPresetAndNotToTheFirst) {
    ui_->requestPresetNamed("Air");
    settle();
    click(ui_->presetBar()->convertToWindow(Point{320, 15}), EventModifier::option);
    EXPECT_EQ(ui_->currentPreset(), 9u);
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
    click(ui_->presetBar()->convertToWindow(Point{320, 15}));
    EXPECT_EQ(ui_->interactionState(pidMasterOnOff), QVMInteractionDiscrete);
    for (const std::string& call : delegate_.calls)
        EXPECT_TRUE(call.starts_with("updated") || call.starts_with("preset")) << call;
}

} // namespace
} // namespace QVM_NAMESPACE
