#include "EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/QVMPresetBar.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::IsEmpty;

class QVMGenericUIHistory : public EditorFixture {
protected:
    void change(std::uint32_t pid, float value) {
        userSets(pid, value);
        frame();
        time_.advance(1);
    }
};

TEST_F(QVMGenericUIHistory, TheInitialStateIsOnTheStack) {
    ASSERT_EQ(stack().stack().size(), 1u);
    EXPECT_EQ(stack().stack().front().values.size(), QVMParameterCount);
    EXPECT_FALSE(ui_->presetBar()->undo().buttonEnabled());
    EXPECT_FALSE(ui_->presetBar()->redo().buttonEnabled());
}

TEST_F(QVMGenericUIHistory, TenQuickChangesMakeOneSnapshot) {
    for (int i = 1; i <= 10; ++i) {
        userSets(1, static_cast<float>(i));
        frame();
        time_.advance(0.04);
    }
    EXPECT_EQ(stack().stack().size(), 1u);
    time_.advance(0.5);
    EXPECT_EQ(stack().stack().size(), 2u);
    EXPECT_EQ(stack().currentValues()->values.at(1), 10);
}

TEST_F(QVMGenericUIHistory, UndoAndRedoBringTheValuesBackToUnitAndControl) {
    change(1, 6);
    change(7, -3);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    EXPECT_EQ(control(7).floatValue(), 0);
    EXPECT_EQ(control(1).floatValue(), 6);
    EXPECT_EQ(delegate_.unit[7], 0);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    EXPECT_EQ(control(1).floatValue(), 0);
    ui_->keyboard().keyboardShortcutRedo();
    frame();
    EXPECT_EQ(control(1).floatValue(), 6);
}

TEST_F(QVMGenericUIHistory, UndoMakesNoSnapshotOfItsOwn) {
    change(1, 6);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    time_.advance(2);
    EXPECT_EQ(stack().stack().size(), 2u);
    EXPECT_TRUE(stack().canRedo());
}

TEST_F(QVMGenericUIHistory, AChangeAfterUndoDiscardsWhatWasUndone) {
    change(1, 6);
    change(1, 7);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    change(7, -3);
    EXPECT_FALSE(stack().canRedo());
    EXPECT_EQ(stack().stack().size(), 3u);
}

TEST_F(QVMGenericUIHistory, TheButtonsFollowTheStack) {
    change(1, 6);
    QVMSymbolButton& undo = ui_->presetBar()->undo();
    QVMSymbolButton& redo = ui_->presetBar()->redo();
    EXPECT_TRUE(undo.buttonEnabled());
    EXPECT_FALSE(redo.buttonEnabled());
    click(middleOf(undo));
    EXPECT_EQ(memoized(1), 0);
    EXPECT_FALSE(undo.buttonEnabled());
    EXPECT_TRUE(redo.buttonEnabled());
    click(middleOf(redo));
    EXPECT_EQ(memoized(1), 6);
    EXPECT_TRUE(undo.buttonEnabled());
    EXPECT_FALSE(redo.buttonEnabled());
}

TEST_F(QVMGenericUIHistory, ADragEntersTheSnapshotOnlyWhenItEnds) {
    QVMFloatControl* inner = control(1).primaryControl();
    inner->delegate()->floatControlInteractionDidChangeToEvent(*inner, QVMInteractionBegan, nullptr);
    change(1, 6);
    EXPECT_EQ(stack().stack().size(), 1u);
    change(7, -3); // meanwhile another value changes
    EXPECT_EQ(stack().currentValues()->values.at(1), 0);
    EXPECT_EQ(stack().currentValues()->values.at(7), -3);
    inner->delegate()->floatControlInteractionDidChangeToEvent(*inner, QVMInteractionEnded, nullptr);
    time_.advance(1);
    EXPECT_EQ(stack().currentValues()->values.at(1), 6);
}

TEST_F(QVMGenericUIHistory, UndoAcrossAnABSwitchRestoresTheIndicator) {
    change(1, 6);
    ui_->undoRedoABState(1);
    change(1, 9);
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(ui_->abState(), 0u);
    EXPECT_EQ(memoized(1), 6);
    ui_->keyboard().keyboardShortcutRedo();
    EXPECT_EQ(ui_->abState(), 1u);
}

TEST_F(QVMGenericUIHistory, RestoringASlotMakesTheOtherOneActiveAndAppliesNothing) {
    ui_->restoreABStateSettings(0, "1;6.5;30");
    EXPECT_EQ(ui_->abState(), 1u);
    EXPECT_EQ(memoized(1), 0);
    EXPECT_THAT(delegate_.calls, IsEmpty());
    ui_->restoreABStateSettings(2, "1;2");
    EXPECT_EQ(ui_->abState(), 1u);
}

TEST_F(QVMGenericUIHistory, HostAutomationMakesOneSnapshotAfterItRests) {
    for (int i = 0; i < 20; ++i) {
        hostSets(1, static_cast<float>(i) * 0.1f);
        time_.advance(0.02);
    }
    time_.advance(1);
    EXPECT_EQ(stack().stack().size(), 2u);
}

TEST_F(QVMGenericUIHistory, APresetSetsEveryParameterButTheWildcard) {
    userSets(23, 1);
    delegate_.calls.clear();
    ui_->requestPresetNamed("Cellphone");
    EXPECT_EQ(delegate_.calls.size(), 24u); // 23 values and the name
    EXPECT_EQ(delegate_.calls.back(), "preset Cellphone 22");
    EXPECT_EQ(memoized(23), 1);
    EXPECT_EQ(memoized(9), PresetIndexToPresetValues(22)->at(9));
}

TEST_F(QVMGenericUIHistory, ANameThatNoPresetHasKeepsTheCurrentOne) {
    ui_->lastSavedPresetWasNamed("Air");
    EXPECT_EQ(ui_->currentPreset(), 8u);
    ui_->lastSavedPresetWasNamed("Nothing of the kind");
    EXPECT_EQ(ui_->currentPreset(), 8u);
}

TEST_F(QVMGenericUIHistory, AnIndexThatNoPresetHasChangesNothing) {
    ui_->lastSavedPresetWasKeyed(23);
    ui_->presetUpdated();
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
