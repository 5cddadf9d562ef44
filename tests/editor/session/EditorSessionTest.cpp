// What each part of the session means for the others.
#include "editor/session/EditorSession.h"

#include "editor/session/SessionFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;

class EditorSessionTest : public SessionFixture {};

TEST_F(EditorSessionTest, AChangedValueIsAStepOfTheHistoryAndReachesTheSurface) {
    open();
    set(pidTiltGain, 3);
    EXPECT_THAT(surface_.calls, Contains("changed 1"));
    time_.advance(1);
    EXPECT_TRUE(session_.history().stack().canUndo());
}

TEST_F(EditorSessionTest, AHostsChangeIsComparedWithThePreset) {
    open();
    surface_.dirty.clear();
    surface_.unit[pidTiltGain] = 6;
    frame();
    time_.advance(1);
    EXPECT_EQ(surface_.dirty, std::vector<bool>{true});
}

TEST_F(EditorSessionTest, WhatWasReadAtTheOpeningIsAnotherWhereverItWasKept) {
    values().setDirectly(pidTiltRangeLink, 10); // the unit holds 0
    session_.resetComparison(values().memoized());
    time_.advance(1);
    ASSERT_EQ(session_.history().stack().currentValues()->values.at(4), 10);
    frame();
    EXPECT_EQ(session_.history().stack().currentValues()->values.at(4), 0);
    session_.comparison().flip(ABComparison::Copy::no);
    EXPECT_EQ(values().memoized(pidTiltRangeLink), 0);
    time_.advance(1);
    EXPECT_EQ(session_.history().stack().stack().size(), 1u) << "the two sides are still equal";
}

TEST_F(EditorSessionTest, ARestoredSideIsAStepAndWhatIsNoSideIsNone) {
    open();
    session_.restoreSide(ABComparison::nothingSaved, "1");
    time_.advance(1);
    EXPECT_EQ(session_.history().stack().stack().size(), 1u);
    session_.restoreSide(0, "1");
    time_.advance(1);
    EXPECT_EQ(session_.history().stack().stack().size(), 2u);
}

} // namespace
} // namespace QVM_NAMESPACE
