#include "editor/surface/HistoryFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMPresetBar.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace QVM_NAMESPACE {
namespace {

// Hears what is sent while a snapshot is put in place.
class LockWitness final : public RecordingDelegate {
public:
    explicit LockWitness(const QVMUndoRedoStack& stack) : stack_(stack) {}
    void interfaceUpdatedParameterKeyedValue(std::uint32_t, float) override { note(); }
    void interfaceDidUpdateCurrentPresetToValueNamedPid(QVMGenericUI&, const std::string&, std::uint32_t) override {
        note();
    }
    int heard = 0, heardLocked = 0;

private:
    void note() {
        ++heard;
        heardLocked += stack_.locks() ? 1 : 0;
    }
    const QVMUndoRedoStack& stack_;
};

TEST_F(QVMGenericUIHistory, TheInitialStateIsOnTheStack) {
    ASSERT_EQ(stack().stack().size(), 1u);
    EXPECT_EQ(stack().stack().front().values.size(), QVMParameterCount);
    EXPECT_FALSE(ui_->presetBar()->undo().buttonEnabled());
    EXPECT_FALSE(ui_->presetBar()->redo().buttonEnabled());
}

TEST_F(QVMGenericUIHistory, TenQuickChangesMakeOneSnapshot) {
    for (int i = 1; i <= 10; ++i) {
        userSets(pidTiltGain, static_cast<float>(i));
        frame();
        time_.advance(0.04);
    }
    EXPECT_EQ(stack().stack().size(), 1u);
    time_.advance(0.5);
    EXPECT_EQ(stack().stack().size(), 2u);
    EXPECT_EQ(stack().currentValues()->values.at(1), 10);
}

TEST_F(QVMGenericUIHistory, UndoAndRedoBringTheValuesBackToUnitAndControl) {
    change(pidTiltGain, 6);
    change(pidOutputGain, -3);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    EXPECT_EQ(control(pidOutputGain).floatValue(), 0);
    EXPECT_EQ(control(pidTiltGain).floatValue(), 6);
    EXPECT_EQ(delegate_.unit[7], 0);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    EXPECT_EQ(control(pidTiltGain).floatValue(), 0);
    ui_->keyboard().keyboardShortcutRedo();
    frame();
    EXPECT_EQ(control(pidTiltGain).floatValue(), 6);
}

TEST_F(QVMGenericUIHistory, UndoMakesNoSnapshotOfItsOwn) {
    change(pidTiltGain, 6);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    time_.advance(2);
    EXPECT_EQ(stack().stack().size(), 2u);
    EXPECT_TRUE(stack().canRedo());
}

TEST_F(QVMGenericUIHistory, TheStackIsLockedForAsLongAsASnapshotIsPutInPlace) {
    ui_->requestPresetNamed("Air");
    frames(1);
    LockWitness witness(stack());
    ui_->setDelegate(&witness);
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(witness.heard, static_cast<int>(QVMParameterCount) + 1);
    EXPECT_EQ(witness.heardLocked, witness.heard);
    EXPECT_FALSE(stack().locks());
    ui_->setDelegate(&delegate_);
}

// Whatever the values are by then: none of them is a step of the user's.
TEST_F(QVMGenericUIHistory, NoSnapshotFollowsAnUndo) {
    change(pidTiltGain, 6);
    ui_->keyboard().keyboardShortcutUndo();
    ui_->setMemoizedPValueDirectlyValue(pidTiltGain, 3);
    time_.advance(2);
    EXPECT_EQ(stack().stack().size(), 2u);
    EXPECT_TRUE(stack().canRedo());
}

TEST_F(QVMGenericUIHistory, ASnapshotIsTakenHalfASecondAfterTheChange) {
    userSets(pidTiltGain, 6);
    time_.advance(0.49);
    EXPECT_EQ(stack().stack().size(), 1u);
    time_.advance(0.02);
    EXPECT_EQ(stack().stack().size(), 2u);
}

TEST_F(QVMGenericUIHistory, AChangeThatIsTakenBackAtOnceIsNoStep) {
    userSets(pidTiltGain, 6);
    frame();
    time_.advance(0.2);
    change(pidTiltGain, 0);
    EXPECT_EQ(stack().stack().size(), 1u);
}

TEST_F(QVMGenericUIHistory, AChangeAfterUndoDiscardsWhatWasUndone) {
    change(pidTiltGain, 6);
    change(pidTiltGain, 7);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    change(pidOutputGain, -3);
    EXPECT_FALSE(stack().canRedo());
    EXPECT_EQ(stack().stack().size(), 3u);
}

TEST_F(QVMGenericUIHistory, TheButtonsFollowTheStack) {
    change(pidTiltGain, 6);
    QVMSymbolButton& undo = ui_->presetBar()->undo();
    QVMSymbolButton& redo = ui_->presetBar()->redo();
    EXPECT_TRUE(undo.buttonEnabled());
    EXPECT_FALSE(redo.buttonEnabled());
    click(middleOf(undo));
    EXPECT_EQ(memoized(pidTiltGain), 0);
    EXPECT_FALSE(undo.buttonEnabled());
    EXPECT_TRUE(redo.buttonEnabled());
    click(middleOf(redo));
    EXPECT_EQ(memoized(pidTiltGain), 6);
    EXPECT_TRUE(undo.buttonEnabled());
    EXPECT_FALSE(redo.buttonEnabled());
}

TEST_F(QVMGenericUIHistory, HostAutomationMakesOneSnapshotAfterItRests) {
    for (int i = 0; i < 20; ++i) {
        hostSets(pidTiltGain, static_cast<float>(i) * 0.1f);
        time_.advance(0.02);
    }
    time_.advance(1);
    EXPECT_EQ(stack().stack().size(), 2u);
}

TEST_F(QVMGenericUIHistory, TenQuickChangesAndAUndoBringBackWhatWasBeforeAll) {
    change(pidTiltGain, 2);
    for (int i = 1; i <= 10; ++i) {
        userSets(pidOutputGain, static_cast<float>(-i));
        frame();
        time_.advance(0.04);
    }
    time_.advance(1);
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(memoized(pidOutputGain), 0);
    EXPECT_EQ(memoized(pidTiltGain), 2);
}

TEST_F(QVMGenericUIHistory, ADragOfTheMouseIsOneStepAndOneGesture) {
    const QVMParameterControl& gain = control(pidTiltGain);
    const Point start = middleOf(gain);
    delegate_.calls.clear();
    window_.sendEvent(mouseEvent(EventType::mouseDown, start));
    for (int i = 1; i <= 40; ++i) {
        window_.sendEvent(mouseEvent(EventType::mouseDragged, {start.x + i, start.y}));
        frame();
        time_.advance(0.05); // longer in all than it takes to make a snapshot
    }
    EXPECT_EQ(stack().stack().size(), 1u);
    window_.sendEvent(mouseEvent(EventType::mouseUp, {start.x + 40, start.y}));
    time_.advance(1);
    EXPECT_EQ(stack().stack().size(), 2u);
    EXPECT_EQ(std::count(delegate_.calls.begin(), delegate_.calls.end(), "began 1"), 1);
    EXPECT_EQ(std::count(delegate_.calls.begin(), delegate_.calls.end(), "ended 1"), 1);
    EXPECT_GT(memoized(pidTiltGain), 0);
    ui_->keyboard().keyboardShortcutUndo();
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMGenericUIHistory, OneDragMakesOneUndoStep) {
    userSets(pidTiltRangeLow, 8000);
    frame();
    time_.advance(1);
    const std::size_t before = stack().stack().size();
    for (const float value : {6789.1f, 1234.6f, 333.3f, 125.7f}) {
        userSets(pidTiltRangeHigh, value);
        frame();
    }
    frames(2);
    EXPECT_EQ(stack().stack().size(), before + 1);
    EXPECT_EQ(memoized(pidTiltRangeHigh), 125.7f);
    EXPECT_EQ(memoized(pidTiltRangeLow), 0.5f * 125.7f)
        << "the pushed partner, beside the fine step, keeps its value too";
}

TEST_F(QVMGenericUIHistory, AnUndoCancelsASnapshotThatIsPending) {
    change(pidTiltGain, 6);
    userSets(pidTiltGain, 9);
    ui_->keyboard().keyboardShortcutUndo();
    frame();
    EXPECT_EQ(memoized(pidTiltGain), 0);
    ui_->setMemoizedPValueDirectlyValue(pidTiltGain, 3); // what it would record
    time_.advance(2);
    EXPECT_EQ(stack().stack().size(), 2u);
    EXPECT_TRUE(stack().canRedo());
}

// Random changes, pauses, undos and redos, against a history that is two plain lists.
TEST_F(QVMGenericUIHistory, AgreesWithASimpleModelOverRandomOperations) {
    std::mt19937 random(7);
    std::vector<std::vector<float>> done = {memoized()}, undone;
    for (int step = 0; step < 300; ++step) {
        switch (random() % 4) {
        case 0:
        case 1: {
            const std::uint32_t pid = random() % 2 ? 1 : 7;
            change(pid, static_cast<float>(random() % 5) * -1.5f);
            if (memoized() == done.back()) break;
            done.push_back(memoized());
            undone.clear();
            break;
        }
        case 2:
            ui_->keyboard().keyboardShortcutUndo();
            frame();
            if (done.size() > 1) {
                undone.push_back(done.back());
                done.pop_back();
            }
            break;
        default:
            ui_->keyboard().keyboardShortcutRedo();
            frame();
            if (!undone.empty()) {
                done.push_back(undone.back());
                undone.pop_back();
            }
        }
        ASSERT_EQ(memoized(), done.back()) << "step " << step;
        ASSERT_EQ(ui_->presetBar()->undo().buttonEnabled(), done.size() > 1) << "step " << step;
        ASSERT_EQ(ui_->presetBar()->redo().buttonEnabled(), !undone.empty()) << "step " << step;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
