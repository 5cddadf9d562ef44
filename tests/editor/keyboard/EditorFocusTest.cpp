#include "editor/keyboard/EditorFocus.h"

#include "editor/keyboard/FocusFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EditorFocusTest : public FocusFixture {};

TEST_F(EditorFocusTest, OneControlHasItAndKnows) {
    focus_.bring(&control(pidTiltGain));
    EXPECT_TRUE(control(pidTiltGain).focused());
    focus_.bring(&control(pidOutputGain));
    EXPECT_FALSE(control(pidTiltGain).focused());
    EXPECT_TRUE(control(pidOutputGain).focused());
    EXPECT_EQ(focus_.focused(), &control(pidOutputGain));
    EXPECT_THAT(told_, ElementsAre("will move", "did move 1", "will move", "did move 7"));
}

TEST_F(EditorFocusTest, WhatHasItAlreadyIsNoMove) {
    focus_.bring(&control(pidTiltGain));
    told_.clear();
    focus_.bring(&control(pidTiltGain));
    EXPECT_THAT(told_, ElementsAre("did move 1"));
}

TEST_F(EditorFocusTest, AControlOfTheMasterClumpNeverTakesIt) {
    focus_.bring(&control(pidTiltGain));
    focus_.bring(&control(pidMasterOnOff));
    EXPECT_EQ(focus_.focused(), &control(pidTiltGain));
}

TEST_F(EditorFocusTest, WhatIsHiddenTakesItAwayFromAll) {
    focus_.bring(&control(pidTiltGain));
    control(pidOutputGain).setHidden(true);
    EXPECT_FALSE(focus_.canBeShown(control(pidOutputGain)));
    focus_.bring(&control(pidOutputGain));
    EXPECT_EQ(focus_.focused(), nullptr);
}

TEST_F(EditorFocusTest, TheWalkComesToTheControlThatStandsInForAHiddenOne) {
    View& other = root_.addSubview(std::make_unique<View>(Rect{0, 100, 200, 100}));
    const QVMParameter* parameter = control(pidTiltRangeLow).parameter();
    QVMParameterControl& standIn = other.addSubview(
        std::make_unique<QVMParameterControl>(Rect{0, 0, 60, 60}, Rect{}, parameter, parameter->initialValue));
    focus_.addStandIn(standIn);
    EXPECT_EQ(focus_.adjacent(&control(pidTiltGain), 1), &control(pidTiltRangeLow)) << "the first can be shown";
    EXPECT_EQ(focus_.adjacent(nullptr, 1), &control(pidTiltGain));

    for (QVMParameterControl* each : controls_)
        each->setHidden(true);
    EXPECT_EQ(focus_.adjacent(&control(pidTiltGain), 1), &standIn);
    EXPECT_EQ(focus_.adjacent(nullptr, 1), &standIn);
    focus_.bring(&standIn);
    EXPECT_TRUE(standIn.focused());
    focus_.bring(nullptr);
    EXPECT_FALSE(standIn.focused());

    other.setHidden(true);
    EXPECT_EQ(focus_.adjacent(nullptr, 1), nullptr);
    focus_.bring(&standIn);
    EXPECT_EQ(focus_.focused(), nullptr);
}

TEST_F(EditorFocusTest, TheClosedDrawerHidesNothingForTheFocusThatOpensIt) {
    EXPECT_TRUE(focus_.canBeShown(control(pidFilterSlopeLow)));
    EXPECT_TRUE(focus_.isInClosedDrawer(control(pidFilterSlopeLow).parameter()));
    EXPECT_FALSE(focus_.isInClosedDrawer(control(pidTiltGain).parameter()));
    EXPECT_FALSE(focus_.isInClosedDrawer(nullptr));
    focus_.bring(&control(pidFilterSlopeLow));
    told_.clear();
    focus_.reveal();
    EXPECT_THAT(told_, ElementsAre("open drawer"));
    drawerIsOpen_ = true;
    focus_.reveal();
    EXPECT_THAT(told_, ElementsAre("open drawer"));
    EXPECT_FALSE(focus_.canBeShown(control(pidFilterSlopeLow))) << "it is hidden though it counts as open";
}

TEST_F(EditorFocusTest, ItIsDroppedWhereTheLayoutHasTakenTheControlAway) {
    focus_.bring(&control(pidTiltGain));
    focus_.dropIfHidden();
    EXPECT_EQ(focus_.focused(), &control(pidTiltGain));
    control(pidTiltGain).setHidden(true);
    focus_.dropIfHidden();
    EXPECT_EQ(focus_.focused(), nullptr);
    focus_.bring(&control(pidFilterSlopeLow));
    focus_.dropIfHidden();
    EXPECT_EQ(focus_.focused(), nullptr) << "in the drawer that is closed";
}

TEST_F(EditorFocusTest, ItComesBackWithTheWindow) {
    focus_.setHasFocus(true);
    focus_.bring(&control(pidOutputGain));
    focus_.setHasFocus(false);
    EXPECT_EQ(focus_.focused(), nullptr);
    focus_.setHasFocus(false);
    focus_.setHasFocus(true);
    EXPECT_EQ(focus_.focused(), &control(pidOutputGain));
    EXPECT_TRUE(focus_.hasFocus());
}

TEST_F(EditorFocusTest, WhatWasClickedMeanwhileKeepsIt) {
    focus_.bring(&control(pidOutputGain));
    focus_.setHasFocus(false);
    focus_.bring(&control(pidTiltGain));
    focus_.setHasFocus(true);
    EXPECT_EQ(focus_.focused(), &control(pidTiltGain));
}

TEST_F(EditorFocusTest, ItDoesNotComeBackIntoAClosedDrawer) {
    focus_.bring(&control(pidFilterSlopeLow));
    focus_.setHasFocus(false);
    focus_.setHasFocus(true);
    EXPECT_EQ(focus_.focused(), nullptr);
}

TEST_F(EditorFocusTest, TheWalkGoesRoundOverWhatCanBeUsed) {
    std::vector<std::uint32_t> forwards, backwards;
    const QVMParameterControl* at = focus_.adjacent(nullptr, 1);
    for (std::size_t i = 0; i < 8 && at; ++i, at = focus_.adjacent(at, 1))
        forwards.push_back(at->parameter()->pid);
    EXPECT_THAT(forwards, ElementsAre(1u, 2u, 7u, 14u, 1u, 2u, 7u, 14u));
    at = &control(pidTiltGain);
    for (std::size_t i = 0; i < 4 && at; ++i) {
        at = focus_.adjacent(at, -1);
        backwards.push_back(at->parameter()->pid);
    }
    EXPECT_THAT(backwards, ElementsAre(14u, 7u, 2u, 1u));
}

TEST_F(EditorFocusTest, TheWalkPassesWhatIsDisabledOrHidden) {
    control(pidTiltRangeLow).primaryControl()->setPreventInteraction(true);
    control(pidFilterSlopeLow).setHidden(true);
    EXPECT_EQ(focus_.adjacent(&control(pidTiltGain), 1), &control(pidOutputGain));
    control(pidOutputGain).primaryControl()->setPreventInteraction(true);
    EXPECT_EQ(focus_.adjacent(&control(pidTiltGain), 1), nullptr) << "round to where it began";
}

TEST_F(EditorFocusTest, ThereIsNoWalkWhileProcessingIsOff) {
    values().setDirectly(pidMasterOnOff, 0);
    EXPECT_EQ(focus_.adjacent(&control(pidTiltGain), 1), nullptr);
    EXPECT_EQ(focus_.adjacent(nullptr, 1), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
