// The walk of the focus by keys.
#include "editor/keyboard/KeyboardFixture.h"

namespace QVM_NAMESPACE {
namespace {

TEST_F(QVMKeyboardHandlerTest, TabWalksTheTabOrderOverWhatHasNoControl) {
    focus(pidTiltGain);
    for (const std::uint32_t expected : {2u, 3u, 6u, 7u, 9u, 10u, 13u, 20u, 14u, 15u, 21u, 22u, 23u, 1u}) {
        EXPECT_TRUE(tab());
        ASSERT_EQ(focusedPid(), expected);
    }
}

TEST_F(QVMKeyboardHandlerTest, TabbingIntoTheClosedAdvancedDrawerOpensIt) {
    focus(pidFilterListenLow);
    tab();
    EXPECT_EQ(ui_->altFrame(), 0);
    tab();
    EXPECT_EQ(focusedPid(), pidFilterSlopeLow);
    EXPECT_EQ(ui_->altFrame(), 1);
}

TEST_F(QVMKeyboardHandlerTest, ShiftTabAndTheGraveKeyWalkBackwards) {
    focus(pidTiltGain);
    tab(EventModifier::shift);
    EXPECT_EQ(focusedPid(), pidHQMode);
    key(U'`', Key::codeGrave);
    EXPECT_EQ(focusedPid(), pidFilterResonanceHigh);
}

TEST_F(QVMKeyboardHandlerTest, TabAppliesWhatWasTyped) {
    focus(pidTiltGain);
    type("4.5");
    tab();
    EXPECT_EQ(memoized(pidTiltGain), 4.5f);
    EXPECT_EQ(focusedPid(), pidTiltRangeLow);
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, TabPassesDisabledControls) {
    focus(pidTiltGain);
    control(pidTiltRangeLow).primaryControl()->setPreventInteraction(true);
    tab();
    EXPECT_EQ(focusedPid(), pidTiltRangeHigh);
}

TEST_F(QVMKeyboardHandlerTest, TabPassesHiddenControls) {
    focus(pidTiltGain);
    control(pidTiltRangeLow).setHidden(true);
    tab();
    EXPECT_EQ(ui_->focusedControl(), &control(pidTiltRangeHigh));
}

TEST_F(QVMKeyboardHandlerTest, TabWithAllOthersDisabledRemovesFocus) {
    focus(pidTiltGain);
    for (QVMParameterControl* other : ui_->parameterControls())
        if (other != &control(pidTiltGain)) other->primaryControl()->setPreventInteraction(true);
    tab();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(QVMKeyboardHandlerTest, TabWithProcessingOffRemovesFocus) {
    hostSets(pidMasterOnOff, 0);
    focus(pidTiltGain);
    tab();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(QVMKeyboardHandlerTest, TabFromNowhereBeginsAtTheFirst) {
    EXPECT_EQ(ui_->keyboard().adjacentParameterControlDirection(nullptr, 1), &control(pidTiltGain));
}

TEST_F(QVMKeyboardHandlerTest, TheWalkEndsForAControlThatIsNotInTheOrder) {
    EXPECT_EQ(ui_->keyboard().adjacentParameterControlDirection(&control(pidMasterOnOff), 1), nullptr);
}

TEST_F(QVMKeyboardHandlerTest, TheWholeOrderIsWalkedAndBack) {
    std::vector<std::uint32_t> forwards, backwards;
    focus(pidTiltGain);
    do {
        forwards.push_back(focusedPid());
        tab();
    } while (focusedPid() != 1 && forwards.size() < 50);
    do {
        tab(EventModifier::shift);
        backwards.insert(backwards.begin(), focusedPid());
    } while (focusedPid() != 1 && backwards.size() < 50);
    EXPECT_EQ(forwards, backwards);
    EXPECT_EQ(forwards.size(), ui_->parameterControls().size() - 1); // all but the master switch
}

TEST_F(QVMKeyboardHandlerTest, TabInAnEditorWithoutFocusBeginsTheWalk) {
    EXPECT_TRUE(window_.sendEvent(pressedKey(U'\t', Key::codeTab)));
    EXPECT_EQ(focusedPid(), pidTiltGain);
}

TEST_F(QVMKeyboardHandlerTest, TabInAnEditorThatIsOffIsTheHosts) {
    hostSets(pidMasterOnOff, 0);
    EXPECT_FALSE(window_.sendEvent(pressedKey(U'\t', Key::codeTab)));
}

} // namespace
} // namespace QVM_NAMESPACE
