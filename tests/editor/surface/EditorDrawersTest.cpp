#include "editor/surface/EditorDrawers.h"

#include "description/QVMConfig.h"
#include "editor/RenderedEditorFixture.h"
#include "editor/surface/DrawerBackdrop.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

// Drawers over a plain view, with no editor around them.
class EditorDrawersTest : public testing::Test, protected EditorDrawersDelegate {
protected:
    static constexpr Rect place = {0, 30, 418, 290};

    void SetUp() override {
        covered_ = &root_.addSubview(std::make_unique<View>(place));
        bar_ = &root_.addSubview(std::make_unique<View>(Rect{0, 0, 418, 30}));
        drawers_.setClumpsView(*covered_);
        presets_ = &drawers_.addPresets(std::make_unique<QVMPresetsDrawer>(place, *config_), bar_);
        other_ = &drawers_.add(std::make_unique<QVMDrawerView>(place, *config_), bar_);
        renderer_.setRootLayer(root_.layer());
        renderer_.update(time_.now());
    }
    // Animations end in the frames that are drawn.
    void drawFor(double seconds) {
        for (double passed = 0; passed < seconds; passed += 1.0 / 60) {
            time_.advance(1.0 / 60);
            renderer_.update(time_.now());
        }
    }

    void drawerWillOpen() override { told_.push_back("opens"); }
    void presetsDrawerWillClose() override { told_.push_back("presets close"); }

    VirtualTime time_;
    std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
    std::vector<std::string> told_;
    View root_{Rect{0, 0, 480, 320}};
    EditorDrawers drawers_{root_, *this};
    View* covered_ = nullptr;
    View* bar_ = nullptr;
    QVMPresetsDrawer* presets_ = nullptr;
    QVMDrawerView* other_ = nullptr;
    NoPixels pixels_;
    LayerRenderer renderer_{pixels_};
};

TEST_F(EditorDrawersTest, StandBelowTheBarInTheOrderInWhichTheyCame) {
    std::vector<const View*> order;
    for (const auto& each : root_.subviews())
        order.push_back(each.get());
    EXPECT_THAT(order, ElementsAre(covered_, presets_, other_, bar_));
}

TEST_F(EditorDrawersTest, OneThatOpensSaysSoFirstAndCoversEverythingOnceItIsThere) {
    drawers_.toggle(*other_, false);
    EXPECT_TRUE(other_->visible());
    EXPECT_THAT(told_, ElementsAre("opens"));
    EXPECT_FALSE(covered_->isHidden());
    time_.advance(0.3);
    EXPECT_TRUE(covered_->isHidden());
    drawers_.toggle(*other_, false);
    EXPECT_FALSE(covered_->isHidden());
}

TEST_F(EditorDrawersTest, ThePresetsLeaveAMiniatureToBeSeen) {
    drawers_.toggle(*presets_, false);
    EXPECT_TRUE(drawers_.arePresetsOpen());
    drawFor(0.4);
    EXPECT_EQ(covered_->layer()->presentation().transform.a, 0.5);
    EXPECT_FALSE(covered_->isHidden());
    drawers_.toggle(*presets_, false);
    EXPECT_EQ(told_.back(), "presets close");
    drawFor(0.4);
    EXPECT_EQ(covered_->layer()->presentation().transform.a, 1);
    EXPECT_TRUE(presets_->isHidden());
}

TEST_F(EditorDrawersTest, AnotherWaitsForTheEndOfThePresets) {
    drawers_.toggle(*presets_, false);
    drawFor(0.4);
    drawers_.toggle(*other_, false);
    EXPECT_EQ(drawers_.waiting(), other_);
    EXPECT_FALSE(other_->visible());
    drawFor(0.4);
    EXPECT_TRUE(other_->visible());
    EXPECT_EQ(drawers_.waiting(), nullptr);
}

TEST_F(EditorDrawersTest, OneThatIsForcedDoesNotWait) {
    drawers_.toggle(*presets_, false);
    drawers_.toggle(*other_, true);
    EXPECT_TRUE(other_->visible());
    EXPECT_FALSE(presets_->visible());
    EXPECT_EQ(drawers_.waiting(), nullptr);
}

TEST_F(EditorDrawersTest, HidingTellsWhetherAnyWasOpen) {
    EXPECT_FALSE(drawers_.hideVisiblePresenting(nullptr));
    drawers_.toggle(*other_, false);
    EXPECT_FALSE(EditorDrawers::hideUnlessEqual(other_, other_));
    EXPECT_FALSE(EditorDrawers::hideUnlessEqual(presets_, nullptr));
    EXPECT_TRUE(drawers_.hideVisiblePresenting(nullptr));
    EXPECT_FALSE(other_->visible());
    drawers_.hideIfVisible(other_);
    drawers_.hideIfVisible(nullptr);
    EXPECT_FALSE(other_->visible());
}

TEST_F(EditorDrawersTest, APressOnTheMiniatureClosesAll) {
    drawers_.toggle(*presets_, false);
    presets_->mouseDown(Event());
    EXPECT_FALSE(presets_->visible());
}

} // namespace
} // namespace QVM_NAMESPACE
