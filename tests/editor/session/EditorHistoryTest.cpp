#include "editor/session/EditorHistory.h"

#include "editor/session/SessionFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class EditorHistoryTest : public SessionFixture {
protected:
    void SetUp() override { open(); }
    EditorHistory& history() { return session_.history(); }
    std::size_t steps() { return history().stack().stack().size(); }
};

TEST_F(EditorHistoryTest, ASnapshotFollowsHalfASecondAfterTheLastChange) {
    ASSERT_EQ(steps(), 1u);
    set(pidTiltGain, 3);
    time_.advance(0.4);
    set(pidTiltGain, 4);
    time_.advance(0.4);
    EXPECT_EQ(steps(), 1u);
    time_.advance(0.2);
    EXPECT_EQ(steps(), 2u);
    EXPECT_EQ(history().stack().currentValues()->values.at(1), 4);
}

TEST_F(EditorHistoryTest, NoneIsTakenWhileAGestureIsUnderWay) {
    surface_.gesture = true;
    set(pidTiltGain, 3);
    time_.advance(5);
    EXPECT_EQ(steps(), 1u);
    surface_.gesture = false;
    time_.advance(0.6);
    EXPECT_EQ(steps(), 2u);
}

TEST_F(EditorHistoryTest, UndoAndRedoSendWhatWasThere) {
    set(pidTiltGain, 3);
    time_.advance(1);
    history().undo();
    EXPECT_EQ(values().memoized(pidTiltGain), GetParameter(pidTiltGain)->initialValue);
    EXPECT_EQ(surface_.unit[pidTiltGain], GetParameter(pidTiltGain)->initialValue);
    history().redo();
    EXPECT_EQ(values().memoized(pidTiltGain), 3);
}

TEST_F(EditorHistoryTest, PuttingASnapshotInPlaceIsNoStepAndCancelsOneThatIsDue) {
    set(pidTiltGain, 3);
    time_.advance(1);
    set(pidTiltGain, 5); // its snapshot is due
    history().undo();
    frame();
    values().setDirectly(pidOutputGain, -3); // a snapshot would be another state
    time_.advance(2);
    EXPECT_EQ(steps(), 2u);
    EXPECT_EQ(history().stack().insertionPoint(), 1);
    EXPECT_FALSE(history().stack().locks());
}

TEST_F(EditorHistoryTest, TheSurfaceHearsOfEveryStepAndOfEveryAttempt) {
    set(pidTiltGain, 3);
    surface_.calls.clear();
    time_.advance(1);
    EXPECT_THAT(surface_.calls, ElementsAre("history"));
    history().redo(); // nothing to redo
    EXPECT_THAT(surface_.calls, ElementsAre("history", "history"));
}

TEST_F(EditorHistoryTest, TheSideAndThePresetComeBackWithTheValues) {
    session_.presets().choose(8);
    frame();
    time_.advance(1);
    session_.comparison().flip(ABComparison::Copy::no);
    frame();
    time_.advance(1);
    history().undo();
    EXPECT_EQ(session_.comparison().active(), 0u);
    EXPECT_EQ(session_.presets().current(), 8u);
    surface_.calls.clear();
    history().undo();
    EXPECT_EQ(session_.presets().current(), 0u);
    EXPECT_EQ(surface_.calls.back(), "preset Default 0");
}

TEST_F(EditorHistoryTest, ANameAloneIsNoStepAndIsTheOneToComeBackTo) {
    session_.presets().setCurrent(5);
    time_.advance(1);
    EXPECT_EQ(steps(), 1u);
    set(pidTiltGain, 3);
    time_.advance(1);
    session_.presets().setCurrent(6);
    history().undo();
    EXPECT_EQ(session_.presets().current(), 5u);
}

} // namespace
} // namespace QVM_NAMESPACE
