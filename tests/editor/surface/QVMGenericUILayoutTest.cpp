#include "editor/EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMLogoStamp.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QVMGenericUILayout : public EditorFixture {};

TEST_F(QVMGenericUILayout, TheGearOpensAndClosesTheAdvancedDrawer) {
    click(middleOf(*ui_->powerBox()->gear()));
    EXPECT_EQ(ui_->altFrame(), 1);
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 680, 320}));
    EXPECT_TRUE(ui_->powerBox()->gear()->selected());
    click(middleOf(*ui_->powerBox()->gear()));
    EXPECT_EQ(ui_->altFrame(), 0);
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 480, 320}));
    EXPECT_FALSE(ui_->powerBox()->gear()->selected());
    EXPECT_THAT(delegate_.calls, ElementsAre("frame 1", "save state 1", "frame 0", "save state 0"));
}

TEST_F(QVMGenericUILayout, TheDrawerMovesWithItsPlaceWhileItIsOpen) {
    ui_->setDrawerPlace(DrawerPlace::over);
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 480, 320}));
    EXPECT_TRUE(ui_->advClumpsView()->isHidden()) << "it is closed";
    click(middleOf(*ui_->powerBox()->gear()));
    EXPECT_TRUE(ui_->powerBox()->gear()->selected());
    EXPECT_EQ(ui_->advClumpsView()->frame(), (Rect{218, 0, 200, 320}));
    ui_->setDrawerPlace(DrawerPlace::beside);
    EXPECT_EQ(ui_->advClumpsView()->frame(), (Rect{480, 0, 200, 320}));
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 680, 320}));
}

TEST_F(QVMGenericUILayout, TheCompactFormIsThePowerBoxAlone) {
    ui_->toggleFrame();
    EXPECT_EQ(ui_->altFrame(), 2);
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 200, 200}));
    EXPECT_EQ(ui_->powerBox()->frame(), (Rect{0, 0, 200, 200}));
    EXPECT_EQ(ui_->clumpsView()->frame(), (Rect{-418, 30, 418, 290}));
    EXPECT_EQ(ui_->presetBar()->frame(), (Rect{-418, 0, 418, 30}));
    EXPECT_EQ(ui_->powerBox()->logoStamp().frame(), (Rect{7, -54, 50, 50}));
    EXPECT_EQ(control(pidMasterOnOff).frame(), (Rect{4, -204, 54, 62}));
    EXPECT_EQ(ui_->powerBox()->logo().frame(), (Rect{4, -312, 54, 34}));
    EXPECT_EQ(ui_->powerBox()->gear()->frame(), (Rect{4, -244, 54, 40}));
    EXPECT_EQ(ui_->advClumpsView()->frame(), (Rect{0, 0, 0, 0}));
    EXPECT_TRUE(ui_->advClumpsView()->isHidden()); // or its content would lie over the box
}

TEST_F(QVMGenericUILayout, WhatStandsOutsideTheCompactFormIsNotShownAtItsEdge) {
    ui_->toggleFrame();
    EXPECT_TRUE(ui_->clumpsView()->isHidden());
    EXPECT_TRUE(ui_->presetBar()->isHidden());
    EXPECT_TRUE(control(pidMasterOnOff).isHidden());
    EXPECT_FALSE(ui_->powerBox()->isHidden());
    ui_->toggleFrame();
    EXPECT_FALSE(ui_->clumpsView()->isHidden());
    EXPECT_FALSE(ui_->presetBar()->isHidden());
    EXPECT_FALSE(control(pidMasterOnOff).isHidden());
}

TEST_F(QVMGenericUILayout, TogglingTheFrameLeadsFromEveryLayoutToItsNext) {
    ui_->toggleFrame();
    EXPECT_EQ(ui_->altFrame(), 2);
    ui_->toggleFrame();
    EXPECT_EQ(ui_->altFrame(), 0);
    ui_->gearTapped();
    ui_->toggleFrame();
    EXPECT_EQ(ui_->altFrame(), 0);
}

TEST_F(QVMGenericUILayout, ReturningFromCompactPutsEverythingBack) {
    const Rect power = control(pidMasterOnOff).frame();
    ui_->toggleFrame();
    ui_->toggleFrame();
    EXPECT_EQ(control(pidMasterOnOff).frame(), power);
    EXPECT_EQ(ui_->clumpsView()->frame(), (Rect{0, 30, 418, 290}));
    EXPECT_EQ(ui_->advClumpsView()->frame(), (Rect{480, 0, 200, 320}));
}

TEST_F(QVMGenericUILayout, TheAdvancedDrawerIsShownInItsLayoutOnly) {
    EXPECT_TRUE(ui_->advClumpsView()->isHidden());
    ui_->gearTapped();
    EXPECT_FALSE(ui_->advClumpsView()->isHidden());
    ui_->gearTapped();
    EXPECT_TRUE(ui_->advClumpsView()->isHidden());
}

TEST_F(QVMGenericUILayout, AnyOtherVariantHasNoFrames) {
    for (const std::int32_t variant : {-1, 3, 1000}) {
        EXPECT_TRUE(EditorLayoutForAltFrame(variant).editor.isEmpty());
        EXPECT_TRUE(EditorLayoutForAltFrame(variant).powerBox.isEmpty());
    }
    ui_->assumeAltFrameScaleChanged(3, false);
    EXPECT_TRUE(ui_->frame().isEmpty());
}

TEST_F(QVMGenericUILayout, ASavedStateBringsItsLayoutBack) {
    ui_->restoreUIState(1);
    EXPECT_EQ(ui_->altFrame(), 1);
    delegate_.calls.clear();
    ui_->restoreUIState(1); // already there
    ui_->restoreUIState(77);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUILayout, WithoutADelegateTheEditorNeverResizesItself) {
    ui_->setDelegate(nullptr);
    ui_->gearTapped();
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 480, 320}));
}

TEST_F(QVMGenericUILayout, TheCompactFormHasNothingThatTakesTheFocusButTheCornersOfItsCurve) {
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    ui_->requestFrame(QVMAltFrameCompact);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    EXPECT_FALSE(control(pidTiltGain).focused());
    EXPECT_FALSE(ui_->wantsKeys());
    ui_->bringParameterControlIntoFocus(&control(pidHQMode));
    EXPECT_EQ(ui_->focusedControl(), nullptr) << "the drawer does not open here";
    EXPECT_TRUE(window_.sendEvent(pressedKey(0, Key::codeTab)));
    ASSERT_NE(ui_->focusedControl(), nullptr);
    EXPECT_EQ(ui_->focusedControl()->codename(), "TiltRangeLow");
    EXPECT_NE(ui_->focusedControl(), &control(pidTiltRangeLow));
    ui_->toggleSketchVisibility();
    EXPECT_FALSE(window_.sendEvent(pressedKey(0, Key::codeTab))) << "the key is the host's";
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    ui_->presetBar()->ab().tap();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    ui_->requestPresetNamed("Air");
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);

    ui_->requestFrame(QVMAltFrameNormal);
    EXPECT_TRUE(window_.sendEvent(pressedKey(0, Key::codeTab)));
    EXPECT_EQ(ui_->focusedControl(), &control(pidTiltGain));
}

TEST_F(QVMGenericUILayout, TheFocusThatTheWindowGivesBackIsNotOneThatCannotBeSeen) {
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    ui_->setHasFocus(false);
    ui_->requestFrame(QVMAltFrameCompact);
    ui_->setHasFocus(true);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(QVMGenericUILayout, AClosedDrawerTakesTheFocusInItAlong) {
    ui_->gearTapped();
    ui_->bringParameterControlIntoFocus(&control(pidHQMode));
    ASSERT_EQ(ui_->focusedControl(), &control(pidHQMode));
    ui_->gearTapped();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    ui_->gearTapped();
    EXPECT_EQ(ui_->focusedControl(), &control(pidTiltGain)) << "which the drawer does not concern";
}

// A layer that came later than the window's scale.
class QVMGenericUIScale : public QVMGenericUILayout {
protected:
    void SetUp() override {
        QVMGenericUILayout::SetUp();
        window_.setBackingScaleFactor(2);
        addStray();
    }
    void addStray() {
        stray_ = std::make_shared<Layer>();
        ui_->layer()->tree().add(stray_);
        stray_->look().setContentsScale(1);
    }
    std::shared_ptr<Layer> stray_;
};

TEST_F(QVMGenericUIScale, IsGivenToEveryLayerAThirdOfASecondAfterTheSetup) {
    build(QVMConfig::inlinedConfig());
    addStray();
    time_.advance(0.34);
    EXPECT_EQ(stray_->look().contentsScale(), 1);
    time_.advance(0.02);
    EXPECT_EQ(stray_->look().contentsScale(), 2);
}

TEST_F(QVMGenericUIScale, IsGivenToEveryLayerWithALayoutWhenItHasChanged) {
    ui_->assumeAltFrameScaleChanged(QVMAltFrameDoubleWide, false);
    EXPECT_EQ(stray_->look().contentsScale(), 1);
    ui_->assumeAltFrameScaleChanged(QVMAltFrameNormal, true);
    EXPECT_EQ(stray_->look().contentsScale(), 2);
}

TEST_F(QVMGenericUILayout, TheWindowsScaleReachesEveryLayer) {
    window_.setBackingScaleFactor(2);
    auto stray = std::make_shared<Layer>();
    ui_->layer()->tree().add(stray);
    stray->look().setContentsScale(1);
    ui_->setBackingScaleOnViewRecursively(*ui_);
    EXPECT_EQ(stray->look().contentsScale(), 2);
    EXPECT_EQ(ui_->powerBox()->logoStamp().layer()->look().contentsScale(), 2);
}

} // namespace
} // namespace QVM_NAMESPACE
