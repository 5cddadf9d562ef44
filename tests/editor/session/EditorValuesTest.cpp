#include "editor/session/EditorValues.h"

#include "editor/session/SessionFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EditorValuesTest : public testing::Test, protected EditorValuesObserver {
protected:
    EditorValuesTest() { surface_.follow(values_); }
    void memoizedValueDidChange(std::uint32_t pid) override { changed_.push_back(pid); }
    void valueWasReread(std::uint32_t pid, float read, float held) override { reread_.push_back({pid, read, held}); }
    void receivedValueWasAdopted(std::uint32_t pid) override { adopted_.push_back(pid); }

    float unitHolds(std::uint32_t pid) { return GetParameter(pid)->heldValueFromHostValue(surface_.unit[pid]); }

    struct Reread {
        std::uint32_t pid;
        float read, held;
    };
    std::vector<std::uint32_t> changed_, adopted_;
    std::vector<Reread> reread_;
    std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
    RecordingSurface surface_;
    EditorValues values_{*config_, surface_, *this};
};

TEST_F(EditorValuesTest, EveryValueIsTheInitialOneAtFirstAndCountsAsChanged) {
    ASSERT_EQ(values_.count(), QVMParameterCount);
    for (std::uint32_t pid = 0; pid < values_.count(); ++pid) {
        EXPECT_EQ(values_.memoized(pid), GetParameter(pid)->initialValue) << pid;
        EXPECT_EQ(values_.changed()[pid], 1) << pid;
    }
    EXPECT_EQ(values_.memoized(99), 0);
}

TEST_F(EditorValuesTest, AValueGoesToTheUnitInTheHostDomainAndIsKeptInTheShownOne) {
    values_.send(pidTiltRangeLow, 500);
    EXPECT_EQ(surface_.unit[pidTiltRangeLow], GetParameter(pidTiltRangeLow)->reverseCastValue(500));
    EXPECT_NE(surface_.unit[pidTiltRangeLow], 500);
    EXPECT_EQ(values_.memoized(pidTiltRangeLow), 500);
    EXPECT_THAT(changed_, ElementsAre(2u));
}

TEST_F(EditorValuesTest, AnEqualValueIsSentAndNothingFollows) {
    values_.send(pidTiltGain, values_.memoized(pidTiltGain));
    EXPECT_THAT(surface_.calls, ElementsAre("send 1"));
    EXPECT_THAT(changed_, IsEmpty());
}

TEST_F(EditorValuesTest, AValueShowsAtOnceOnlyUntilValuesComeBack) {
    values_.send(pidTiltGain, 3);
    EXPECT_EQ(surface_.shown[1], 3);
    values_.setComesBack();
    values_.send(pidTiltGain, 4);
    EXPECT_EQ(surface_.shown[1], 3);
    values_.receive(pidTiltGain, unitHolds(pidTiltGain));
    EXPECT_EQ(surface_.shown[1], 4);
}

TEST_F(EditorValuesTest, AMoveOfAControlIsToldBeforeItIsSentAndOnlyWhenItChangesAnything) {
    values_.sendFromControl(pidTiltGain, 3);
    EXPECT_THAT(surface_.callsBeforeMoves, ElementsAre(0u));
    values_.sendFromControl(pidTiltGain, 3);
    EXPECT_THAT(surface_.calls, ElementsAre("send 1", "send 1"));
    values_.send(pidTiltGain, 4);
    EXPECT_THAT(surface_.callsBeforeMoves, ElementsAre(0u)) << "nobody moved it";
}

TEST_F(EditorValuesTest, WithNobodyToTellOrToShowAValueIsKeptAllTheSame) {
    EditorValues alone(*config_, surface_, *this);
    alone.setDisplay(99, surface_.displays[1]);
    alone.send(pidTiltGain, 3);
    alone.receive(pidTiltGain, 2);
    EXPECT_EQ(alone.memoized(pidTiltGain), 2);
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_TRUE(surface_.shown.empty());
    values_.setDelegate(nullptr);
    values_.send(pidTiltGain, 3);
    EXPECT_THAT(surface_.calls, IsEmpty());
}

TEST_F(EditorValuesTest, AnEndThatIsMovedPushesItsPartnerAndNoOther) {
    values_.send(pidTiltRangeHigh, 1500);
    surface_.calls.clear();
    values_.sendFromControl(pidTiltRangeLow, 1000);
    EXPECT_EQ(values_.memoized(pidTiltRangeHigh), 2000);
    EXPECT_THAT(surface_.calls, ElementsAre("send 2", "send 3"));
    surface_.calls.clear();
    values_.sendFromControl(pidTiltRangeLow, 900);
    EXPECT_THAT(surface_.calls, ElementsAre("send 2"));
}

TEST_F(EditorValuesTest, AnEchoLeavesWhatWasSentToTheLastBit) {
    const float sent = 123.4567f; // between two steps
    values_.send(pidTiltRangeLow, sent);
    ASSERT_NE(unitHolds(pidTiltRangeLow), sent);
    changed_.clear();
    values_.receive(pidTiltRangeLow, unitHolds(pidTiltRangeLow));
    EXPECT_EQ(values_.memoized(pidTiltRangeLow), sent);
    EXPECT_EQ(surface_.shown[2], sent);
    EXPECT_THAT(changed_, IsEmpty());
    EXPECT_THAT(adopted_, ElementsAre(2u));
}

TEST_F(EditorValuesTest, WhatTheHostSetsIsNoEcho) {
    values_.send(pidTiltRangeLow, 123.4567f);
    surface_.unit[pidTiltRangeLow] = GetParameter(pidTiltRangeLow)->reverseCastValue(700);
    values_.receive(pidTiltRangeLow, unitHolds(pidTiltRangeLow));
    EXPECT_EQ(values_.memoized(pidTiltRangeLow), unitHolds(pidTiltRangeLow));
    EXPECT_THAT(surface_.calls, ElementsAre("send 2")) << "nothing goes back";
}

TEST_F(EditorValuesTest, WhatIsWholeIsAsTheUnitMadeIt) {
    values_.memoize(pidTiltLoudnessMode, 1.25f);
    values_.receive(pidTiltLoudnessMode, 1);
    EXPECT_EQ(values_.memoized(pidTiltLoudnessMode), 1);
}

TEST_F(EditorValuesTest, AValueOutsideTheUnitsRangeGivesWayThoughTheUnitPostsNothingNew) {
    values_.receive(pidTiltGain, 18); // the end of the range
    values_.send(pidTiltGain, 30);
    ASSERT_EQ(unitHolds(pidTiltGain), 18);
    values_.receiveIfNew(pidTiltGain, 18, false);
    EXPECT_EQ(values_.memoized(pidTiltGain), 18);
}

// Two things happen between two frames: the editor sends a value, and the host sets the one that was there before.
TEST_F(EditorValuesTest, AValueThatTheHostTookBackBeforeTheNextFrameGivesWay) {
    values_.receive(pidTiltGain, 3);
    values_.send(pidTiltGain, 9);
    values_.receiveIfNew(pidTiltGain, 3, false);
    EXPECT_EQ(values_.memoized(pidTiltGain), 9) << "a frame from before it was sent";
    values_.receiveIfNew(pidTiltGain, 3, true);
    EXPECT_EQ(values_.memoized(pidTiltGain), 3);
    EXPECT_EQ(surface_.shown[pidTiltGain], 3);
}

// Sides of A/B and values by name come from outside.
TEST_F(EditorValuesTest, AValueThatTheHostHasNoNumberForIsNotSent) {
    const float before = values_.memoized(pidTiltRangeHigh);
    values_.send(pidTiltRangeHigh, -1);
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_EQ(values_.memoized(pidTiltRangeHigh), before);
}

TEST_F(EditorValuesTest, AFrameThatSaysNothingNewReachesNobody) {
    values_.receive(pidTiltGain, 3);
    adopted_.clear();
    surface_.received.clear();
    values_.receiveIfNew(pidTiltGain, 3, false);
    EXPECT_THAT(adopted_, IsEmpty());
    EXPECT_THAT(surface_.received, IsEmpty());
}

TEST_F(EditorValuesTest, TheSurfaceIsToldWhatHadComeBefore) {
    values_.receive(pidTiltGain, 3);
    values_.receive(pidTiltGain, 4);
    ASSERT_EQ(surface_.received.size(), 2u);
    EXPECT_EQ(surface_.received[1].was, 3);
    EXPECT_EQ(surface_.received[1].value, 4);
}

TEST_F(EditorValuesTest, TheFirstValueFromTheUnitTakesThePlaceOfWhatWasReadAtTheOpening) {
    values_.setDirectly(pidTiltRangeLink, 10); // the least frequency; the unit holds 0
    values_.receive(pidTiltRangeLink, 0);
    ASSERT_EQ(reread_.size(), 1u);
    EXPECT_EQ(reread_[0].pid, 4u);
    EXPECT_EQ(reread_[0].read, 10);
    EXPECT_EQ(reread_[0].held, 0);
    EXPECT_EQ(values_.memoized(pidTiltRangeLink), 0);
    EXPECT_THAT(changed_, IsEmpty()) << "nobody changed anything";
    values_.setDirectly(pidTiltRangeLink, 10);
    values_.receive(pidTiltRangeLink, 0);
    EXPECT_EQ(reread_.size(), 1u) << "only the first";
}

TEST_F(EditorValuesTest, ScratchValuesAreSentWhereTheyDifferAndAreNotLeftOut) {
    std::copy(values_.memoized().begin(), values_.memoized().end(), values_.scratch().begin());
    values_.scratch()[1] = 5;
    values_.scratch()[7] = -6;
    values_.sendScratch([](std::uint32_t pid) { return pid == 7; });
    EXPECT_THAT(surface_.calls, ElementsAre("send 1"));
    EXPECT_EQ(values_.memoized(pidTiltGain), 5);
}

TEST_F(EditorValuesTest, PairsThatNameNothingAreSkipped) {
    values_.sendPairs({{"TiltGain", 2.0f}, {"NoSuchThing", 1.0f}, {"out", -3.0f}});
    EXPECT_THAT(surface_.calls, ElementsAre("send 1", "send 7"));
}

TEST_F(EditorValuesTest, UnknownPidsHaveNoEffect) {
    values_.send(99, 1);
    values_.memoize(99, 1);
    values_.receive(99, 1);
    values_.receiveIfNew(99, 1, true);
    values_.setDirectly(99, 1);
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_THAT(adopted_, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
