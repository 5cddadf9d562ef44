#include "editor/surface/EditorParts.h"

#include "editor/session/SessionFixture.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/NoReports.h"
#include "editor/surface/NoticeView.h"
#include "editor/surface/ParameterControls.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The parts on a plain view, with no editor to wire them.
class EditorPartsTest : public SessionFixture {
protected:
    void build() {
        parts_.addFrame();
        parts_.addClumps(controls_);
        parts_.addFrameButton();
    }

    NoReports delegate_;
    ParameterControls controls_{delegate_, values()};
    View root_{Rect{0, 0, 480, 320}};
    EditorParts parts_{root_, *config_};
};

TEST_F(EditorPartsTest, NothingIsThereBeforeItIsAdded) {
    EXPECT_EQ(parts_.powerBox(), nullptr);
    EXPECT_EQ(parts_.clumpViewWithCodename("Tilt"), nullptr);
    EXPECT_THAT(parts_.areas(), IsEmpty());
    parts_.assumeLayout(QVMAltFrameDoubleWide, nullptr);
    EXPECT_EQ(root_.frame().width, 680);
}

TEST_F(EditorPartsTest, EachIsMadeOnce) {
    build();
    const std::size_t views = root_.subviews().size();
    const std::size_t controls = controls_.all().size();
    build();
    EXPECT_EQ(root_.subviews().size(), views);
    EXPECT_EQ(controls_.all().size(), controls);
}

TEST_F(EditorPartsTest, EveryClumpIsFoundByName) {
    build();
    for (const char* name : {"Tilt", "Filter", "Output", "AdvFilter"}) {
        ASSERT_NE(parts_.clumpViewWithCodename(name), nullptr) << name;
        EXPECT_EQ(parts_.clumpViewWithCodename(name)->clump().codesafeName, name);
    }
    EXPECT_EQ(parts_.clumpViewWithCodename(parts_.masterClump()->clump().codesafeName), parts_.masterClump());
    EXPECT_EQ(parts_.clumpViewWithCodename("NoSuchThing"), nullptr);
    EXPECT_THAT(parts_.areas(), ElementsAre(parts_.clumpsView(), parts_.advClumpsView()));
}

TEST_F(EditorPartsTest, WhatALayoutHasNoRoomForIsHidden) {
    build();
    EXPECT_TRUE(parts_.advClumpsView()->isHidden()) << "until its layout is assumed";
    parts_.assumeLayout(QVMAltFrameDoubleWide, controls_.withPid(pidMasterOnOff));
    EXPECT_FALSE(parts_.advClumpsView()->isHidden());
    EXPECT_EQ(parts_.advClumpsView()->frame(), (Rect{480, 0, 200, 320}));
    parts_.assumeLayout(QVMAltFrameCompact, controls_.withPid(pidMasterOnOff));
    EXPECT_EQ(root_.frame(), (Rect{0, 0, 200, 200}));
    EXPECT_TRUE(parts_.presetBar()->isHidden());
    EXPECT_TRUE(parts_.clumpsView()->isHidden());
    EXPECT_TRUE(controls_.withPid(pidMasterOnOff)->isHidden());
    EXPECT_EQ(parts_.powerBox()->frame(), (Rect{0, 0, 200, 200}));
    EXPECT_EQ(parts_.frameButton()->destination(), FrameButton::Destination::wholeEditor);
}

TEST_F(EditorPartsTest, WithoutRoomBesideItTheDrawerLiesOverTheControlsUpAgainstTheColumn) {
    build();
    parts_.assumeLayout(QVMAltFrameDoubleWide, controls_.withPid(pidMasterOnOff), DrawerPlace::over);
    EXPECT_EQ(root_.frame(), (Rect{0, 0, 480, 320}));
    EXPECT_EQ(parts_.advClumpsView()->frame(), (Rect{218, 0, 200, 320}));
    EXPECT_EQ(parts_.powerBox()->frame(), (Rect{418, 0, 62, 320}));
    EXPECT_FALSE(parts_.advClumpsView()->isHidden());
    EXPECT_FALSE(parts_.clumpsView()->isHidden());
    for (const std::int32_t without : {QVMAltFrameNormal, QVMAltFrameCompact}) {
        parts_.assumeLayout(without, controls_.withPid(pidMasterOnOff), DrawerPlace::over);
        EXPECT_EQ(root_.frame(), EditorLayoutForAltFrame(without).editor) << without;
        EXPECT_TRUE(parts_.advClumpsView()->isHidden()) << without;
    }
}

TEST_F(EditorPartsTest, ANoticeStandsWhereTheLayoutHasRoomForIt) {
    build();
    parts_.assumeLayout(QVMAltFrameNormal, nullptr);
    parts_.showNotice("Not pasted", "it is not a web address");
    ASSERT_NE(parts_.notice(), nullptr);
    EXPECT_EQ(parts_.notice()->why(), "it is not a web address");
    const Rect normal = parts_.notice()->frame();
    EXPECT_GE(normal.y, parts_.clumpsView()->frame().y);
    parts_.assumeLayout(QVMAltFrameCompact, nullptr);
    EXPECT_LT(parts_.notice()->frame().y, normal.y);
    EXPECT_LE(parts_.notice()->frame().maxX(), 200);
}

} // namespace
} // namespace QVM_NAMESPACE
