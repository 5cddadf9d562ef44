// The presets of the user's in a session: saved, chosen, deleted, and kept by name in history and comparison.
#include "editor/session/SessionFixture.h"

#include "description/ParameterIDs.h"
#include "presets/MemoryPresetStore.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Status = PresetOutcome::Status;

class PresetSessionUsersTest : public SessionFixture {
protected:
    PresetSessionUsersTest() {
        presets().list().user().setStore(&store_);
        open();
    }
    PresetSession& presets() { return session_.presets(); }
    void settle() {
        frame();
        time_.advance(1);
    }
    void save(const std::string& name) {
        ASSERT_EQ(presets().saveAs(name, ExistingFile::keep).status, Status::done);
        settle();
    }
    std::string shownName() { return presets().list().nameOf(surface_.shownPreset); }
    float gain() { return values().memoized(pidTiltGain); }

    MemoryPresetStore store_;
};

TEST_F(PresetSessionUsersTest, WhatIsSavedIsCurrentCleanAndAnnouncedUnderTheNameToKeep) {
    set(pidTiltGain, 4.5f);
    set(pidHQMode, 1);
    settle();
    surface_.calls.clear();
    save("Warm");
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_FALSE(presets().isDirty());
    EXPECT_THAT(surface_.calls, Contains("preset User: Warm 24"));
    EXPECT_THAT(surface_.calls, Contains("list"));
    EXPECT_THAT(surface_.calls, Not(Contains(StartsWith("send")))) << "nothing sounds otherwise";
    EXPECT_THAT(
        store_.files["Warm.slantwise-preset"],
        testing::MatchesRegex("Slantwise preset 1\nName: Warm\nSettings: https://[^/]+/[^/]+/[^/]+/\\?tg:4.5\n"));
}

TEST_F(PresetSessionUsersTest, WhatIsChosenSetsEveryParameterButTheWildcard) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    presets().choose(22);
    set(pidHQMode, 1);
    settle();
    presets().choose(presets().list().indexOfUsers("Warm"));
    settle();
    EXPECT_EQ(gain(), 4.5f);
    EXPECT_EQ(values().memoized(pidFilterRangeLow), GetParameter(pidFilterRangeLow)->initialValue);
    EXPECT_EQ(values().memoized(pidHQMode), 1);
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_FALSE(surface_.dirty.back());
}

TEST_F(PresetSessionUsersTest, TheMarkComesWithAnotherValueAndGoesWithTheSame) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    set(pidTiltGain, 5);
    settle();
    EXPECT_TRUE(surface_.dirty.back());
    set(pidTiltGain, 4.5f);
    settle();
    EXPECT_FALSE(surface_.dirty.back());
}

// As after a paste; a session that is opened again has what the unit made of it.
TEST_F(PresetSessionUsersTest, AValueBesideTheFineStepIsCleanAsSavedAndAsTheUnitGivesItBack) {
    values().send(pidTiltRangeLow, 123.4567f);
    save("Off the step");
    EXPECT_FALSE(presets().isDirty());
    const QVMParameter& low = *GetParameter(pidTiltRangeLow);
    const float held = low.heldValueFromHostValue(low.reverseCastValue(123.4567f));
    ASSERT_NE(held, 123.4567f);
    values().setDirectly(pidTiltRangeLow, held);
    EXPECT_FALSE(presets().isDirty());
    values().setDirectly(pidTiltRangeLow, held + low.fineGranularity);
    EXPECT_TRUE(presets().isDirty());
}

TEST_F(PresetSessionUsersTest, AFileThatIsGoneIsRefusedAndTheNameStays) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    presets().choose(8);
    settle();
    store_.files.clear();
    surface_.calls.clear();
    presets().choose(presets().list().indexOfUsers("Warm"));
    settle();
    EXPECT_EQ(shownName(), "Air");
    EXPECT_EQ(presets().current(), 8u);
    EXPECT_THAT(surface_.calls, ElementsAre("list")) << "it is not there any more";
    EXPECT_THAT(surface_.refusals, ElementsAre("Not loaded: Warm: its file is gone"));
}

TEST_F(PresetSessionUsersTest, WhatIsChosenIsAsItIsInTheFileNow) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    std::string& file = store_.files.begin()->second;
    file.replace(file.find("tg:4.5"), 6, "tg:6.0");
    presets().choose(presets().current());
    EXPECT_EQ(gain(), 6);
}

TEST_F(PresetSessionUsersTest, ANameThatIsTakenIsSavedOnlyWhenToldSo) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    presets().choose(0);
    EXPECT_EQ(presets().saveAs("Warm", ExistingFile::keep).status, Status::nameTaken);
    EXPECT_EQ(presets().current(), 0u);
    EXPECT_EQ(presets().saveAs("Warm", ExistingFile::replace).status, Status::done);
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_FALSE(presets().isDirty());
}

TEST_F(PresetSessionUsersTest, ADeletedOneKeepsItsNameAndIsDirtyUntilItIsPutBack) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    presets().removeCurrent();
    settle();
    EXPECT_TRUE(store_.files.empty());
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_TRUE(surface_.dirty.back());
    EXPECT_EQ(gain(), 4.5f);
    presets().putBackRemoved();
    settle();
    EXPECT_EQ(store_.files.size(), 1u);
    EXPECT_FALSE(surface_.dirty.back());
    EXPECT_THAT(surface_.refusals, IsEmpty());
    presets().putBackRemoved();
    EXPECT_THAT(surface_.refusals, ElementsAre("Not put back: nothing was deleted"));
}

TEST_F(PresetSessionUsersTest, AFactoryPresetCannotBeDeleted) {
    presets().choose(8);
    surface_.calls.clear();
    presets().removeCurrent();
    EXPECT_THAT(surface_.calls, IsEmpty());
    EXPECT_EQ(store_.readings, 0);
}

TEST_F(PresetSessionUsersTest, UndoAndRedoComeBackToItsNameWithItsValues) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    presets().choose(8);
    settle();
    session_.history().undo();
    settle();
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_EQ(gain(), 4.5f);
    EXPECT_FALSE(surface_.dirty.back());
    session_.history().redo();
    EXPECT_EQ(shownName(), "Air");
}

TEST_F(PresetSessionUsersTest, EachSideOfTheComparisonKeepsItsOwn) {
    set(pidTiltGain, 4.5f);
    save("Warm");
    session_.comparison().flip(ABComparison::Copy::no);
    EXPECT_EQ(shownName(), "Default");
    session_.comparison().flip(ABComparison::Copy::no);
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_EQ(gain(), 4.5f);
}

// The index is this session's own; another one knows the name.
TEST_F(PresetSessionUsersTest, ASideThatWasKeptElsewhereComesBackWithItsName) {
    presets().list().indexOfUsers("Something else");
    for (const char* name : {"Warm", "50; 100 %3B", "A 1"}) {
        set(pidTiltGain, 4.5f);
        presets().saveAs(name, ExistingFile::keep);
        const auto left = session_.comparison().flip(ABComparison::Copy::no);
        EXPECT_EQ(std::count(left.settings.begin(), left.settings.end(), ';'), QVMParameterCount);

        RecordingSurface surface;
        EditorSession another(*config_, surface);
        surface.follow(another.values());
        another.resetComparison(another.values().memoized());
        another.restoreSide(left.side, left.settings);
        another.comparison().flip(ABComparison::Copy::no);
        EXPECT_EQ(another.presets().list().nameOf(another.presets().current()), name);
        EXPECT_EQ(another.values().memoized(pidTiltGain), 4.5f);
    }
}

TEST_F(PresetSessionUsersTest, ASideWithAFactoryPresetIsKeptAsEver) {
    presets().choose(8);
    EXPECT_THAT(session_.comparison().flip(ABComparison::Copy::no).settings, testing::EndsWith(";8"));
    session_.comparison().restore(0, session_.comparison().flip(ABComparison::Copy::no).settings);
}

TEST_F(PresetSessionUsersTest, ASessionThatUsedOneShowsItsNameAndAsksForItsFileHalfASecondLater) {
    store_.files["Warm.slantwise-preset"] = "Slantwise preset 1\nName: Warm\nSettings: https://a.example/s/2/?\n";
    presets().setCurrent(*presets().indexOf("User: Warm"));
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_EQ(store_.readings, 0);
    settle();
    EXPECT_EQ(store_.readings, 1);
    EXPECT_FALSE(surface_.dirty.back());
    set(pidTiltGain, 3);
    settle();
    EXPECT_EQ(store_.readings, 1) << "once is enough to compare";
}

TEST_F(PresetSessionUsersTest, NobodyLooksAtTheFilesWhoDoesNotUseThem) {
    presets().choose(8);
    set(pidTiltGain, 3);
    settle();
    session_.comparison().flip(ABComparison::Copy::yes);
    session_.history().undo();
    settle();
    EXPECT_EQ(store_.readings, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
