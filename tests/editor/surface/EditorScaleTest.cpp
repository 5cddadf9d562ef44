#include "editor/surface/EditorScale.h"

#include "editor/EditorFixture.h"

#include <gmock/gmock.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class EditorScaleTest : public EditorFixture {
protected:
    EditorScale& scale() { return ui_->scale(); }
};

TEST_F(EditorScaleTest, AChosenScaleIsAskedForAndReported) {
    scale().choose(1.5F);
    EXPECT_EQ(ui_->currentScale(), 1.5F);
    EXPECT_THAT(delegate_.calls, ElementsAre("frame 0", "save state 0", "preference scale 1"));
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 480, 320})) << "nothing is laid out anew";
}

TEST_F(EditorScaleTest, IsFromThreeQuartersToThree) {
    scale().choose(0.1F);
    EXPECT_EQ(scale().current(), 0.75F);
    scale().choose(7);
    EXPECT_EQ(scale().current(), 3);
}

TEST_F(EditorScaleTest, TheSameScaleIsAskedForOnceMore) {
    scale().choose(1);
    EXPECT_THAT(delegate_.calls, ElementsAre("frame 0", "save state 0", "preference scale 1"))
        << "a window that refused it before may grant it now";
}

TEST_F(EditorScaleTest, StepsLeadFromOneToTheNextAndNoFurtherThanTheLast) {
    scale().adoptPreference(1.1); // between two
    std::vector<float> seen;
    for (int i = 0; i < 6; ++i) {
        scale().step(1);
        seen.push_back(scale().current());
    }
    EXPECT_THAT(seen, ElementsAre(1.25F, 1.5F, 2, 3, 3, 3));
    seen.clear();
    for (int i = 0; i < 6; ++i) {
        scale().step(-1);
        seen.push_back(scale().current());
    }
    EXPECT_THAT(seen, ElementsAre(2, 1.5F, 1.25F, 1, 0.75F, 0.75F));
}

TEST_F(EditorScaleTest, WhatIsShownWhileDraggingIsReportedAtTheEnd) {
    scale().show(1.2F);
    scale().show(1.4F);
    EXPECT_THAT(delegate_.calls, ElementsAre("frame 0", "save state 0", "frame 0", "save state 0"));
    scale().keep();
    EXPECT_EQ(delegate_.calls.back(), "preference scale 1");
    EXPECT_EQ(ui_->preferences().value("scale"), 1.4);
}

TEST_F(EditorScaleTest, TheWindowsOwnSizeIsFollowedAndReportedOnceItRests) {
    for (const float each : {1.1F, 1.2F, 1.3F}) {
        scale().followWindow(each, EditorScale::Kept::yes);
        time_.advance(0.3);
    }
    EXPECT_EQ(scale().current(), 1.3F);
    EXPECT_THAT(delegate_.calls, Not(Contains("preference scale 1")));
    time_.advance(0.3);
    EXPECT_THAT(delegate_.calls, Contains("preference scale 1"));
}

TEST_F(EditorScaleTest, TheWindowsOwnSizeIsReportedOnceThoughItGoesBeforeItRests) {
    scale().followWindow(1.3F, EditorScale::Kept::yes);
    scale().keepWaiting();
    EXPECT_EQ(delegate_.calls.back(), "preference scale 1");
    delegate_.calls.clear();
    scale().keepWaiting();
    time_.advance(2);
    EXPECT_THAT(delegate_.calls, Not(Contains("preference scale 1")));
}

TEST_F(EditorScaleTest, AForcedSizeIsFollowedAndNotReported) {
    scale().followWindow(2.7F, EditorScale::Kept::no);
    time_.advance(2);
    EXPECT_EQ(scale().current(), 2.7F);
    EXPECT_THAT(delegate_.calls, Not(Contains("preference scale 2")));
}

TEST_F(EditorScaleTest, ToFitTheWindowIsAWishOfItsOwnUntilAScaleIsChosen) {
    scale().setFitter([this] { scale().followWindow(1.7F, EditorScale::Kept::no); });
    scale().fitWindow();
    EXPECT_TRUE(scale().fitsWindow());
    EXPECT_EQ(scale().current(), 1.7F);
    EXPECT_EQ(delegate_.calls.back(), "preference scale 0");
    scale().choose(1.25F);
    EXPECT_FALSE(scale().fitsWindow());
}

TEST_F(EditorScaleTest, APreferenceThatMakesNoSenseIsBroughtIntoRangeOrLeftAlone) {
    ui_->preferences().adopt("scale", 1.15);
    EXPECT_EQ(scale().current(), 1.15F);
    EXPECT_EQ(ui_->preferences().value("scale"), 1.15) << "without the noise of single precision";
    ui_->preferences().adopt("scale", 1000);
    EXPECT_EQ(scale().current(), 3);
    ui_->preferences().adopt("scale", 1e300); // beyond single precision
    EXPECT_EQ(scale().current(), 3);
    ui_->preferences().adopt("scale", -1);
    EXPECT_EQ(scale().current(), 0.75F);
    ui_->preferences().adopt("scale", std::nan(""));
    EXPECT_EQ(scale().current(), 0.75F);
    ui_->preferences().adopt("scale", 0);
    EXPECT_TRUE(scale().fitsWindow());
    EXPECT_THAT(delegate_.calls, IsEmpty()) << "nothing is asked for or reported";
}

TEST_F(EditorScaleTest, TheThemeIsRememberedAsWhatItIs) {
    EXPECT_EQ(ui_->preferences().value("theme"), 0);
    ui_->toggleUITheme();
    EXPECT_EQ(ui_->preferences().value("theme"), 1);
    ui_->toggleUITheme();
    EXPECT_EQ(ui_->preferences().value("theme"), 0);
    delegate_.calls.clear();
    ui_->preferences().adopt("theme", 1);
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
    ui_->preferences().adopt("theme", 1);
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
