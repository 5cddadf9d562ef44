#include "editor/RenderedEditorFixture.h"

#include "editor/surface/DrawerBackdrop.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"

namespace QVM_NAMESPACE {
namespace {

class QVMGenericUIDrawers : public RenderedEditorFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        drawAll();
    }
    QVMDrawerView& presets() { return *ui_->presetDrawer(); }
    QVMDrawerView& addOther() {
        auto drawer = std::make_unique<QVMDrawerView>(Rect{0, 30, 418, 290}, ui_->config());
        return ui_->addDrawer(std::move(drawer));
    }
    AffineTransform miniature() const { return ui_->clumpsView()->layer()->presentation().transform; }
    // Where the clumps view is seen, in the editor's coordinates.
    Rect seenClumps() const {
        const Rect frame = ui_->clumpsView()->frame();
        const AffineTransform about = AffineTransform::translation(-frame.midX(), -frame.midY())
                                          .then(miniature())
                                          .then(AffineTransform::translation(frame.midX(), frame.midY()));
        return about.apply(frame);
    }
};

TEST_F(QVMGenericUIDrawers, StandBelowThePresetBarAndHiddenAtFirst) {
    EXPECT_FALSE(presets().visible());
    EXPECT_TRUE(presets().isHidden());
    const auto& views = ui_->subviews();
    const auto at = [&](const View* view) {
        return std::find_if(views.begin(), views.end(), [view](const auto& each) { return each.get() == view; }) -
               views.begin();
    };
    EXPECT_LT(at(ui_->clumpsView()), at(&presets()));
    const QVMDrawerView& other = addOther();
    EXPECT_LT(at(&presets()), at(&other));
    EXPECT_LT(at(&other), at(ui_->presetBar()));
}

TEST_F(QVMGenericUIDrawers, TheClumpsShrinkToAMiniatureBehindThePresets) {
    ui_->toggleDrawerForce(presets(), false);
    EXPECT_TRUE(presets().visible());
    EXPECT_EQ(presets().frame(), (Rect{0, 30, 418, 290}));
    ASSERT_TRUE(presets().layer()->animations().find("fadeIn"));
    EXPECT_EQ(presets().layer()->animations().find("fadeIn")->duration, 0.25);
    EXPECT_EQ(ui_->clumpsView()->layer()->animations().find("transform")->duration, 0.2);
    drawFor(0.1);
    EXPECT_GT(miniature().a, 0.5);
    EXPECT_LT(miniature().a, 1);
    EXPECT_LT(presets().layer()->presentation().opacity, 1);
    drawFor(0.3);
    EXPECT_EQ(miniature().a, 0.5);
    EXPECT_EQ(presets().layer()->presentation().opacity, 1);
    EXPECT_EQ(seenClumps(), (Rect{204, 96, 209, 145})); // on whole points, inside the drawer
}

TEST_F(QVMGenericUIDrawers, ClosingBringsTheClumpsBackAndThenShiftsTheDrawerAway) {
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    window_.makeFirstResponder(nullptr);
    ui_->toggleDrawerForce(presets(), false);
    EXPECT_FALSE(presets().visible());
    ASSERT_TRUE(presets().layer()->animations().find("fadeOut"));
    EXPECT_EQ(presets().layer()->animations().find("fadeOut")->duration, 0.3);
    EXPECT_EQ(ui_->clumpsView()->layer()->animations().find("transform")->duration, 0.25);
    EXPECT_EQ(window_.firstResponder(), ui_);
    drawFor(0.27);
    EXPECT_TRUE(miniature().isIdentity());
    EXPECT_FALSE(presets().isHidden()); // still fading
    drawFor(0.1);
    EXPECT_TRUE(presets().isHidden());
    EXPECT_NE(presets().frame(), presets().originalFrame());
}

TEST_F(QVMGenericUIDrawers, TogglingThePresetsDrawerTwiceQuicklyLeavesItClosedAndTheClumpsAtIdentity) {
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.05);
    ui_->toggleDrawerForce(presets(), false);
    drawFor(1);
    EXPECT_FALSE(presets().visible());
    EXPECT_TRUE(presets().isHidden());
    EXPECT_TRUE(miniature().isIdentity());
    EXPECT_TRUE(ui_->clumpsView()->layer()->transform().isIdentity());
}

TEST_F(QVMGenericUIDrawers, OpeningAgainWhileItClosesLeavesItOpen) {
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.1);
    ui_->toggleDrawerForce(presets(), false);
    drawFor(1);
    EXPECT_TRUE(presets().visible());
    EXPECT_FALSE(presets().isHidden());
    EXPECT_EQ(presets().layer()->presentation().opacity, 1);
    EXPECT_EQ(miniature().a, 0.5);
}

TEST_F(QVMGenericUIDrawers, AnotherDrawerWaitsUntilThePresetsHaveClosed) {
    QVMDrawerView& other = addOther();
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    ui_->toggleDrawerForce(other, false);
    EXPECT_FALSE(presets().visible());
    EXPECT_FALSE(other.visible());
    EXPECT_EQ(ui_->drawers().waiting(), &other);
    drawFor(0.5);
    EXPECT_TRUE(other.visible());
    EXPECT_EQ(ui_->drawers().waiting(), nullptr);
}

TEST_F(QVMGenericUIDrawers, AForcedDrawerDoesNotWait) {
    QVMDrawerView& other = addOther();
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    ui_->toggleDrawerForce(other, true);
    EXPECT_TRUE(other.visible());
    EXPECT_FALSE(presets().visible());
}

TEST_F(QVMGenericUIDrawers, OpeningThePresetsAgainForgetsTheWaitingDrawer) {
    QVMDrawerView& other = addOther();
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    ui_->toggleDrawerForce(other, false);
    ui_->toggleDrawerForce(presets(), false);
    drawFor(1);
    EXPECT_TRUE(presets().visible());
    EXPECT_FALSE(other.visible());
}

TEST_F(QVMGenericUIDrawers, OpeningOneClosesTheOthersAndClearsTheFocus) {
    QVMDrawerView& other = addOther();
    ui_->toggleDrawerForce(other, false);
    drawFor(0.5);
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    EXPECT_TRUE(ui_->hideVisibleDrawersPresenting(&presets()));
    EXPECT_FALSE(other.visible());
    EXPECT_TRUE(presets().visible());
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    EXPECT_FALSE(ui_->hideVisibleDrawersPresenting(&presets())); // nothing to hide, and it stays open
    EXPECT_TRUE(presets().visible());
}

TEST_F(QVMGenericUIDrawers, ADrawerThatCoversEverythingHidesTheClumpsUntilItCloses) {
    QVMDrawerView& other = addOther();
    ui_->toggleDrawerForce(other, false);
    EXPECT_FALSE(ui_->clumpsView()->isHidden());
    drawFor(0.5);
    EXPECT_TRUE(ui_->clumpsView()->isHidden());
    ui_->toggleDrawerForce(other, false);
    EXPECT_FALSE(ui_->clumpsView()->isHidden());
    ui_->toggleDrawerForce(other, false);
    ui_->toggleDrawerForce(other, false); // before the clumps were hidden
    drawFor(0.5);
    EXPECT_FALSE(ui_->clumpsView()->isHidden());
}

TEST_F(QVMGenericUIDrawers, AClickOnTheMiniatureHidesAllDrawers) {
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    click(seenClumps().center());
    EXPECT_FALSE(presets().visible());
    EXPECT_FALSE(ui_->hideAllDrawers()); // none is left
}

TEST_F(QVMGenericUIDrawers, AnExceptedOrClosedDrawerIsLeftAlone) {
    EXPECT_FALSE(ui_->hideViewIfNotEqualToView(&presets(), nullptr));
    ui_->toggleDrawerForce(presets(), false);
    EXPECT_FALSE(ui_->hideViewIfNotEqualToView(&presets(), &presets()));
    EXPECT_FALSE(ui_->hideViewIfNotEqualToView(nullptr, nullptr));
    EXPECT_TRUE(ui_->hideViewIfNotEqualToView(&presets(), nullptr));
    ui_->hideDrawerIfVisible(&presets()); // it is not
    EXPECT_FALSE(presets().visible());
}

TEST_F(QVMGenericUIDrawers, TogglingTheFrameClosesThePresetsFirst) {
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    ui_->toggleFrame();
    EXPECT_FALSE(presets().visible());
    drawFor(0.3);
    EXPECT_EQ(ui_->altFrame(), 0);
    ui_->toggleFrame(); // at once now, and the pending change is dropped
    EXPECT_EQ(ui_->altFrame(), 2);
    drawFor(1);
    EXPECT_EQ(ui_->altFrame(), 2);
}

TEST_F(QVMGenericUIDrawers, TheFrameChangesHalfASecondAfterThePresetsWereTold) {
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    ui_->toggleFrame();
    time_.advance(0.49);
    EXPECT_EQ(ui_->altFrame(), 0);
    time_.advance(0.02);
    EXPECT_EQ(ui_->altFrame(), 2);
}

TEST_F(QVMGenericUIDrawers, AStateFromTheHostThatIsCompactClosesThem) {
    ui_->toggleDrawerForce(presets(), false);
    ui_->restoreUIState(2);
    EXPECT_FALSE(presets().visible());
}

TEST_F(QVMGenericUIDrawers, AClosedEditorInMidTransitionLeavesNothingBehind) {
    QVMDrawerView& other = addOther();
    ui_->toggleDrawerForce(presets(), false);
    drawFor(0.5);
    ui_->toggleFrame(); // waits for the presets drawer's end
    ui_->toggleDrawerForce(other, false);
    drawFor(0.1);
    ASSERT_TRUE(presets().layer()->animations().find("fadeOut"));
    ASSERT_NE(RunLoop::main().nextDue(), std::nullopt);
    const std::weak_ptr<Layer> drawer = presets().layer(), waiting = other.layer(), clumps = ui_->clumpsView()->layer();
    renderer_.setRootLayer(nullptr);
    ui_ = nullptr;
    delegate_.calls.clear();
    window_.setContentView(std::make_unique<View>());
    EXPECT_TRUE(drawer.expired());
    EXPECT_TRUE(waiting.expired());
    EXPECT_TRUE(clumps.expired());
    EXPECT_EQ(RunLoop::main().nextDue(), std::nullopt) << "work for an editor that has gone";
    EXPECT_FALSE(ticks_.isStarted());
    time_.advance(1);
    EXPECT_TRUE(delegate_.calls.empty());
}

} // namespace
} // namespace QVM_NAMESPACE
