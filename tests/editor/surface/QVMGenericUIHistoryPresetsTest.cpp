// The preset and the side that belong to a step of the history.
#include "editor/surface/HistoryFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMPresetBar.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::IsEmpty;

TEST_F(QVMGenericUIHistory, TheSidesOfTheComparisonAreTwoStates) {
    ui_->restoreABStateSettings(0, "1");
    time_.advance(1);
    EXPECT_EQ(stack().stack().size(), 2u) << "with the same values";
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(ui_->abState(), 0u);
    EXPECT_FALSE(ui_->presetBar()->ab().indicator()->animations().isRunning());
}

TEST_F(QVMGenericUIHistory, ThePresetFollowsUndoAndRedo) {
    ui_->requestPresetNamed("Air");
    frames(1);
    ui_->requestPresetNamed("Cellphone");
    frames(1);
    delegate_.calls.clear();
    ui_->keyboard().keyboardShortcutUndo();
    frames(1);
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_FALSE(ui_->presetBar()->dirty());
    EXPECT_EQ(delegate_.calls.back(), "preset Air 8");
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(ui_->currentPreset(), 0u);
    ui_->keyboard().keyboardShortcutRedo();
    ui_->keyboard().keyboardShortcutRedo();
    frames(1);
    EXPECT_EQ(ui_->currentPreset(), 22u);
    EXPECT_FALSE(ui_->presetBar()->dirty());
}

TEST_F(QVMGenericUIHistory, ThePresetThatUndoComesBackToIsNotApplied) {
    ui_->requestPresetNamed("Air");
    frames(1);
    change(pidTiltGain, -2);
    ui_->requestPresetNamed("Cellphone");
    frames(1);
    delegate_.sent.clear();
    ui_->keyboard().keyboardShortcutUndo();
    frames(1);
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_EQ(memoized(pidTiltGain), -2) << "as it was, and not as the preset has it";
    EXPECT_EQ(delegate_.sent.size(), QVMParameterCount) << "the snapshot's values alone";
    EXPECT_TRUE(ui_->presetBar()->dirty());
}

TEST_F(QVMGenericUIHistory, AnUndoThatStaysWithinAPresetReportsNone) {
    change(pidTiltGain, 6);
    delegate_.calls.clear();
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_THAT(delegate_.calls, testing::Each(testing::StartsWith("updated")));
}

TEST_F(QVMGenericUIHistory, ANameAloneIsNoStepAndIsTheOneToComeBackTo) {
    ui_->lastSavedPresetWasKeyed(8);
    frames(1);
    EXPECT_EQ(stack().stack().size(), 1u);
    change(pidTiltGain, 6);
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(ui_->currentPreset(), 8u);
}

TEST_F(QVMGenericUIHistory, ANameThatComesBeforeItsValuesBelongsToThem) {
    ui_->lastSavedPresetWasKeyed(8);
    frame();
    hostSets(pidTiltGain, 7.5f);
    frames(1);
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(ui_->currentPreset(), 0u);
    ui_->keyboard().keyboardShortcutRedo();
    EXPECT_EQ(ui_->currentPreset(), 8u);
}

TEST_F(QVMGenericUIHistory, UndoAcrossAnABSwitchRestoresTheIndicator) {
    change(pidTiltGain, 6);
    ui_->undoRedoABState(1);
    change(pidTiltGain, 9);
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(ui_->abState(), 0u);
    EXPECT_EQ(memoized(pidTiltGain), 6);
    ui_->keyboard().keyboardShortcutRedo();
    EXPECT_EQ(ui_->abState(), 1u);
}

TEST_F(QVMGenericUIHistory, RestoringASlotMakesTheOtherOneActiveAndAppliesNothing) {
    ui_->restoreABStateSettings(0, "1;6.5;30");
    EXPECT_EQ(ui_->abState(), 1u);
    EXPECT_EQ(ui_->presetBar()->ab().position(), 1u);
    EXPECT_FALSE(ui_->presetBar()->ab().indicator()->animations().isRunning());
    EXPECT_EQ(memoized(pidTiltGain), 0);
    EXPECT_THAT(delegate_.calls, IsEmpty());
    ui_->restoreABStateSettings(2, "1;2");
    EXPECT_EQ(ui_->abState(), 1u);
}

} // namespace
} // namespace QVM_NAMESPACE
