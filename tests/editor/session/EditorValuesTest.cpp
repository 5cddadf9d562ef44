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
    values_.send(2, 500);
    EXPECT_EQ(surface_.unit[2], GetParameter(2)->reverseCastValue(500));
    EXPECT_NE(surface_.unit[2], 500);
    EXPECT_EQ(values_.memoized(2), 500);
    EXPECT_THAT(changed_, ElementsAre(2u));
}

TEST_F(EditorValuesTest, AnEqualValueIsSentAndNothingFollows) {
    values_.send(1, values_.memoized(1));
    EXPECT_THAT(surface_.calls, ElementsAre("send 1"));
    EXPECT_THAT(changed_, IsEmpty());
}

TEST_F(EditorValuesTest, AValueShowsAtOnceOnlyUntilValuesComeBack) {
    values_.send(1, 3);
    EXPECT_EQ(surface_.shown[1], 3);
    values_.setComesBack();
    values_.send(1, 4);
    EXPECT_EQ(surface_.shown[1], 3);
    values_.receive(1, unitHolds(1));
    EXPECT_EQ(surface_.shown[1], 4);
}

TEST_F(EditorValuesTest, AMoveOfAControlIsToldBeforeItIsSentAndOnlyWhenItChangesAnything) {
    values_.sendFromControl(1, 3);
    EXPECT_THAT(surface_.callsBeforeMoves, ElementsAre(0u));
    values_.sendFromControl(1, 3);
    EXPECT_THAT(surface_.calls, ElementsAre("send 1", "send 1"));
    values_.send(1, 4);
    EXPECT_THAT(surface_.callsBeforeMoves, ElementsAre(0u)) << "nobody moved it";
}

TEST_F(EditorValuesTest, WithNobodyToTellOrToShowAValueIsKeptAllTheSame) {
    EditorValues alone(*config_, surface_, *this);
    alone.setDisplay(99, surface_.displays[1]);
    alone.send(1, 3);
    alone.receive(1, 2);
    EXPECT_EQ(alone.memoized(1), 2);
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_TRUE(surface_.shown.empty());
    values_.setDelegate(nullptr);
    values_.send(1, 3);
    EXPECT_THAT(surface_.calls, IsEmpty());
}

TEST_F(EditorValuesTest, AnEndThatIsMovedPushesItsPartnerAndNoOther) {
    values_.send(3, 1500);
    surface_.calls.clear();
    values_.sendFromControl(2, 1000);
    EXPECT_EQ(values_.memoized(3), 2000);
    EXPECT_THAT(surface_.calls, ElementsAre("send 2", "send 3"));
    surface_.calls.clear();
    values_.sendFromControl(2, 900);
    EXPECT_THAT(surface_.calls, ElementsAre("send 2"));
}

TEST_F(EditorValuesTest, AnEchoLeavesWhatWasSentToTheLastBit) {
    const float sent = 123.4567f; // between two steps
    values_.send(2, sent);
    ASSERT_NE(unitHolds(2), sent);
    changed_.clear();
    values_.receive(2, unitHolds(2));
    EXPECT_EQ(values_.memoized(2), sent);
    EXPECT_EQ(surface_.shown[2], sent);
    EXPECT_THAT(changed_, IsEmpty());
    EXPECT_THAT(adopted_, ElementsAre(2u));
}

TEST_F(EditorValuesTest, WhatTheHostSetsIsNoEcho) {
    values_.send(2, 123.4567f);
    surface_.unit[2] = GetParameter(2)->reverseCastValue(700);
    values_.receive(2, unitHolds(2));
    EXPECT_EQ(values_.memoized(2), unitHolds(2));
    EXPECT_THAT(surface_.calls, ElementsAre("send 2")) << "nothing goes back";
}

TEST_F(EditorValuesTest, WhatIsWholeIsAsTheUnitMadeIt) {
    values_.memoize(6, 1.25f);
    values_.receive(6, 1);
    EXPECT_EQ(values_.memoized(6), 1);
}

TEST_F(EditorValuesTest, AValueOutsideTheUnitsRangeGivesWayThoughTheUnitPostsNothingNew) {
    values_.receive(1, 18); // the end of the range
    values_.send(1, 30);
    ASSERT_EQ(unitHolds(1), 18);
    values_.receiveIfNew(1, 18);
    EXPECT_EQ(values_.memoized(1), 18);
}

TEST_F(EditorValuesTest, AFrameThatSaysNothingNewReachesNobody) {
    values_.receive(1, 3);
    adopted_.clear();
    surface_.received.clear();
    values_.receiveIfNew(1, 3);
    EXPECT_THAT(adopted_, IsEmpty());
    EXPECT_THAT(surface_.received, IsEmpty());
}

TEST_F(EditorValuesTest, TheSurfaceIsToldWhatHadComeBefore) {
    values_.receive(1, 3);
    values_.receive(1, 4);
    ASSERT_EQ(surface_.received.size(), 2u);
    EXPECT_EQ(surface_.received[1].was, 3);
    EXPECT_EQ(surface_.received[1].value, 4);
}

TEST_F(EditorValuesTest, TheFirstValueFromTheUnitTakesThePlaceOfWhatWasReadAtTheOpening) {
    values_.setDirectly(4, 10); // the least frequency; the unit holds 0
    values_.receive(4, 0);
    ASSERT_EQ(reread_.size(), 1u);
    EXPECT_EQ(reread_[0].pid, 4u);
    EXPECT_EQ(reread_[0].read, 10);
    EXPECT_EQ(reread_[0].held, 0);
    EXPECT_EQ(values_.memoized(4), 0);
    EXPECT_THAT(changed_, IsEmpty()) << "nobody changed anything";
    values_.setDirectly(4, 10);
    values_.receive(4, 0);
    EXPECT_EQ(reread_.size(), 1u) << "only the first";
}

TEST_F(EditorValuesTest, ScratchValuesAreSentWhereTheyDifferAndAreNotLeftOut) {
    std::copy(values_.memoized().begin(), values_.memoized().end(), values_.scratch().begin());
    values_.scratch()[1] = 5;
    values_.scratch()[7] = -6;
    values_.sendScratch([](std::uint32_t pid) { return pid == 7; });
    EXPECT_THAT(surface_.calls, ElementsAre("send 1"));
    EXPECT_EQ(values_.memoized(1), 5);
}

TEST_F(EditorValuesTest, PairsThatNameNothingAreSkipped) {
    values_.sendPairs({{"TiltGain", 2.0f}, {"NoSuchThing", 1.0f}, {"out", -3.0f}});
    EXPECT_THAT(surface_.calls, ElementsAre("send 1", "send 7"));
}

TEST_F(EditorValuesTest, UnknownPidsHaveNoEffect) {
    values_.send(99, 1);
    values_.memoize(99, 1);
    values_.receive(99, 1);
    values_.receiveIfNew(99, 1);
    values_.setDirectly(99, 1);
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_THAT(adopted_, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
