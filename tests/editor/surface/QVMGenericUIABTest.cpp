#include "editor/EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "description/Presets.h"
#include "editor/surface/QVMABControl.h"
#include "editor/surface/QVMPresetBar.h"

#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::IsEmpty;

class QVMGenericUIAB : public EditorFixture {
protected:
    QVMABControl& ab() { return ui_->presetBar()->ab(); }
    void tap(QVMSymbolButton& button) {
        click(middleOf(button));
        settle();
    }
    void settle() {
        frame();
        time_.advance(1);
    }
    void change(std::uint32_t pid, float value) {
        userSets(pid, value);
        settle();
    }
    static std::vector<float> numbersIn(const std::string& text) {
        std::vector<float> numbers;
        std::istringstream in(text);
        for (std::string part; std::getline(in, part, ';');)
            numbers.push_back(std::stof(part));
        return numbers;
    }
};

TEST_F(QVMGenericUIAB, TheTwoSidesKeepTheirOwnSettings) {
    change(pidTiltGain, 6);
    tap(ab().b());
    EXPECT_EQ(ui_->abState(), 1u);
    EXPECT_EQ(memoized(pidTiltGain), 0); // B still has the initial values
    change(pidTiltGain, -3);
    tap(ab().a());
    EXPECT_EQ(memoized(pidTiltGain), 6);
    EXPECT_EQ(delegate_.unit[1], 6);
    tap(ab().b());
    EXPECT_EQ(memoized(pidTiltGain), -3);
}

TEST_F(QVMGenericUIAB, TappingTheLetterOfTheActiveSideSwitchesAllTheSame) {
    tap(ab().a());
    EXPECT_EQ(ui_->abState(), 1u);
    EXPECT_EQ(ab().position(), 1u);
    tap(ab().b());
    EXPECT_EQ(ui_->abState(), 0u);
}

TEST_F(QVMGenericUIAB, TheArrowCopiesToTheOtherSideAndGoesThere) {
    change(pidTiltGain, 6);
    delegate_.sent.clear();
    click(middleOf(ab().arrow()));
    EXPECT_EQ(ui_->abState(), 1u);
    EXPECT_TRUE(ab().indicator()->animations().isRunning("position"));
    EXPECT_THAT(delegate_.sent, IsEmpty()); // both sides are the same now
    change(pidTiltGain, -3);
    tap(ab().a());
    EXPECT_EQ(memoized(pidTiltGain), 6);
}

TEST_F(QVMGenericUIAB, TheArrowTakesThePresetAlong) {
    ui_->requestPresetNamed("Air");
    settle();
    tap(ab().arrow());
    EXPECT_EQ(ui_->abState(), 1u);
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_FALSE(ui_->presetBar()->dirty());
    ui_->requestPresetNamed("Cellphone");
    settle();
    tap(ab().a());
    EXPECT_EQ(ui_->currentPreset(), 8u) << "the side it was copied from has its own";
}

TEST_F(QVMGenericUIAB, AFlipBetweenEqualSidesIsNoStep) {
    tap(ab().arrow());
    tap(ab().b());
    EXPECT_EQ(stack().stack().size(), 1u);
}

TEST_F(QVMGenericUIAB, UndoAcrossASwitchComesBackToThatSidesPreset) {
    ui_->requestPresetNamed("Air");
    settle();
    tap(ab().b());
    ASSERT_EQ(ui_->currentPreset(), 0u);
    ui_->keyboard().keyboardShortcutUndo();
    settle();
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_EQ(ui_->abState(), 0u);
    EXPECT_FALSE(ab().indicator()->animations().isRunning());
    EXPECT_FALSE(ui_->presetBar()->dirty());
}

TEST_F(QVMGenericUIAB, ALetterMovesTheIndicatorAtOnce) {
    click(middleOf(ab().b()));
    EXPECT_FALSE(ab().indicator()->animations().isRunning());
}

TEST_F(QVMGenericUIAB, TheSideThatIsLeftIsHandedOutForSaving) {
    ui_->requestPresetNamed("Air");
    change(pidTiltGain, 6.1f);
    tap(ab().b());
    EXPECT_THAT(delegate_.calls, Contains("save slot 0"));
    const std::vector<float> saved = numbersIn(delegate_.savedSlot);
    ASSERT_EQ(saved.size(), QVMParameterCount + 1);
    EXPECT_EQ(saved[1], 6.1f);
    EXPECT_EQ(saved[3], PresetIndexToPresetValues(8)->at(3));
    EXPECT_EQ(saved.back(), 8);
    EXPECT_EQ(delegate_.savedSlot.find_first_not_of("0123456789.;-"), std::string::npos);
}

TEST_F(QVMGenericUIAB, EachSideRemembersItsPreset) {
    ui_->requestPresetNamed("Air");
    settle();
    tap(ab().b());
    EXPECT_EQ(ui_->currentPreset(), 0u);
    EXPECT_THAT(delegate_.calls, Contains("preset Default 0"));
    EXPECT_FALSE(ui_->presetBar()->dirty());
    tap(ab().a());
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_FALSE(ui_->presetBar()->dirty());
}

TEST_F(QVMGenericUIAB, TakesTheKeyboardFocusAndCanBeFlippedFromThere) {
    tap(ab().b());
    EXPECT_EQ(ui_->focusedControl(), &ab());
    EXPECT_TRUE(ab().focused());
    EXPECT_TRUE(window_.sendEvent(pressedKey(Key::left, 0, EventModifier::numericPad)));
    EXPECT_EQ(ui_->abState(), 0u);
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(ui_->abState(), 1u);
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    EXPECT_FALSE(ab().focused());
}

TEST_F(QVMGenericUIAB, UndoAcrossASwitchRestoresTheIndicatorAndTheValuesWithoutCopying) {
    change(pidTiltGain, 6);
    tap(ab().b());
    change(pidTiltGain, -3);
    ui_->keyboard().keyboardShortcutUndo(); // to B as it was entered
    EXPECT_EQ(ui_->abState(), 1u);
    ui_->keyboard().keyboardShortcutUndo(); // to A
    settle();
    EXPECT_EQ(ui_->abState(), 0u);
    EXPECT_EQ(ab().position(), 0u);
    EXPECT_EQ(memoized(pidTiltGain), 6);
    ui_->keyboard().keyboardShortcutRedo();
    ui_->keyboard().keyboardShortcutRedo();
    settle();
    EXPECT_EQ(ab().position(), 1u);
    EXPECT_EQ(memoized(pidTiltGain), -3);
}

TEST_F(QVMGenericUIAB, ASavedSlotComesBackAndTheOtherSideIsActive) {
    ui_->restoreABStateSettings(0, "1;6.5;30");
    EXPECT_EQ(ui_->abState(), 1u);
    EXPECT_EQ(ab().position(), 1u);
    EXPECT_EQ(memoized(pidTiltGain), 0); // nothing is applied
    EXPECT_THAT(delegate_.calls, IsEmpty());
    tap(ab().a());
    EXPECT_EQ(memoized(pidTiltGain), 6.5f);
    EXPECT_EQ(memoized(pidTiltRangeLow), 30);
}

TEST_F(QVMGenericUIAB, StateTwoMeansThatNothingWasSaved) {
    ui_->restoreABStateSettings(2, "1;6.5");
    ui_->restoreABStateSettings(77, "1;6.5");
    EXPECT_EQ(ui_->abState(), 0u);
    tap(ab().b());
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMGenericUIAB, WhatIsNoNumberInASavedSlotCountsAsZero) {
    ui_->restoreABStateSettings(0, "1;nan;inf;;-x");
    tap(ab().a());
    EXPECT_EQ(memoized(pidTiltGain), 0);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        EXPECT_TRUE(std::isfinite(memoized(pid))) << pid;
}

TEST_F(QVMGenericUIAB, AnEmptyElementOfASavedSlotIsZeroAndWhatIsMissingStays) {
    const struct {
        const char* settings;
        std::vector<float> first;
    } cases[] = {{"1;6.5;30;70", {1, 6.5f, 30, 70}},
                 {"1;;40", {1, 0, 40, 70}},
                 {"1;5", {1, 5, 40, 70}},
                 {";2", {0, 2, 40, 70}},
                 {"1;", {1, 0, 40, 70}},
                 {"", {0, 0, 40, 70}}};
    for (const auto& [settings, first] : cases) {
        ui_->restoreABStateSettings(0, settings);
        tap(ab().a()); // what it holds comes forward
        for (std::uint32_t pid = 0; pid < first.size(); ++pid)
            EXPECT_EQ(memoized(pid), first[pid]) << '"' << settings << "\" " << pid;
    }
}

TEST_F(QVMGenericUIAB, EveryElementOfASavedSlotIsReadAndNoneBeyond) {
    std::string settings;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        settings += (pid == 0 ? "1;" : "0;");
    ui_->restoreABStateSettings(0, settings + "8;99;99");
    tap(ab().a());
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMGenericUIAB, WhatWasSavedIsWhatComesBack) {
    ui_->requestPresetNamed("Cellphone");
    change(pidTiltRangeLow, 1234.5f);
    const std::vector<float> before = memoized();
    tap(ab().b());
    const std::string saved = delegate_.savedSlot;
    tap(ab().a());
    ui_->requestPresetNamed("Default");
    ui_->restoreABStateSettings(0, saved); // now B is active
    tap(ab().a());
    EXPECT_EQ(memoized(), before);
    EXPECT_EQ(ui_->currentPreset(), 22u);
}

// As after a state in which nothing was saved.
TEST_F(QVMGenericUIAB, StartsAnewWithTheGivenValuesInBothSlots) {
    userSets(pidTiltGain, 6);
    ui_->presetBar()->ab().tap();
    ASSERT_EQ(ui_->abState(), 1u);
    std::vector<float> restored = memoized();
    restored[1] = -3;
    ui_->lastSavedPresetWasKeyed(5);
    ui_->resetABState(restored);
    EXPECT_EQ(ui_->abState(), 0u);
    ui_->presetBar()->ab().tap();
    EXPECT_EQ(memoized(pidTiltGain), -3);
    EXPECT_EQ(ui_->currentPreset(), 5u);
}

} // namespace
} // namespace QVM_NAMESPACE
