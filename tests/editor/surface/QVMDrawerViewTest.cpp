#include "editor/surface/QVMDrawerView.h"

#include "description/QVMConfig.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// What stands behind the drawer and must not hear of anything that happens on it.
class Listener final : public View {
public:
    using View::View;
    void mouseDown(const Event&) override { ++heard; }
    void mouseDragged(const Event&) override { ++heard; }
    void mouseUp(const Event&) override { ++heard; }
    void scrollWheel(const Event&) override { ++heard; }
    int heard = 0;
};

class QVMDrawerViewTest : public testing::Test, public QVMDrawerViewDelegate {
protected:
    void SetUp() override {
        behind_ = &window_.setContentView(std::make_unique<Listener>(Rect{0, 0, 480, 320}));
        drawer_ = &behind_->addSubview(std::make_unique<QVMDrawerView>(place, *config_));
    }
    bool canDrawerViewToggleVisibilityToVisibility(QVMDrawerView&, bool visible) override {
        asked_.push_back(visible);
        return allows_;
    }
    void send(EventType type, Point at) {
        Event event;
        event.type = type;
        event.locationInWindow = at;
        event.clickCount = 1;
        window_.sendEvent(event);
    }
    bool isInView() const { return drawer_->frame() == drawer_->originalFrame() && !drawer_->isHidden(); }

    static constexpr Rect place = {0, 30, 418, 290};
    VirtualTime time_;
    std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
    Window window_;
    Listener* behind_ = nullptr;
    QVMDrawerView* drawer_ = nullptr;
    std::vector<bool> asked_;
    bool allows_ = true;
};

TEST_F(QVMDrawerViewTest, IsClosedAndOutOfTheWayAtFirst) {
    EXPECT_FALSE(drawer_->visible());
    EXPECT_FALSE(isInView());
    EXPECT_FALSE(drawer_->frame().intersects(place));
    EXPECT_EQ(drawer_->originalFrame(), place);
}

TEST_F(QVMDrawerViewTest, WithoutAnimationItIsThereAtOnce) {
    drawer_->setAnimatesVisibility(false);
    drawer_->toggleVisibility();
    EXPECT_TRUE(drawer_->visible());
    EXPECT_TRUE(isInView());
    EXPECT_EQ(drawer_->layer()->presentation().opacity, 1);
    drawer_->toggleVisibility();
    EXPECT_FALSE(drawer_->visible());
    EXPECT_FALSE(isInView());
}

TEST_F(QVMDrawerViewTest, WithAnimationItFadesAndThenGoesAway) {
    drawer_->toggleVisibility();
    EXPECT_EQ(drawer_->layer()->presentation().opacity, 0);
    time_.advance(1);
    drawer_->layer()->animations().finish(RunLoop::main().now());
    EXPECT_EQ(drawer_->layer()->presentation().opacity, 1);
    drawer_->toggleVisibility();
    EXPECT_TRUE(isInView()); // still to be seen
    time_.advance(1);
    drawer_->layer()->animations().finish(RunLoop::main().now());
    EXPECT_FALSE(isInView());
}

TEST_F(QVMDrawerViewTest, OpeningItAgainInMidFadeLeavesItOpen) {
    drawer_->toggleVisibility();
    time_.advance(1);
    drawer_->layer()->animations().finish(RunLoop::main().now());
    drawer_->toggleVisibility();
    time_.advance(0.1);
    drawer_->toggleVisibility();
    time_.advance(1);
    drawer_->layer()->animations().finish(RunLoop::main().now());
    EXPECT_TRUE(drawer_->visible());
    EXPECT_TRUE(isInView());
}

TEST_F(QVMDrawerViewTest, AFadeOfTheOwnersIsLeftToEndWhereItIs) {
    drawer_->setAnimatesVisibility(false);
    drawer_->toggleVisibility();
    BasicAnimation fadeOut;
    fadeOut.keyPath = "opacity";
    fadeOut.fromValue = 1.0;
    fadeOut.toValue = 0.0;
    drawer_->layer()->animations().add(fadeOut, "fadeOut");
    drawer_->toggleVisibility();
    EXPECT_FALSE(drawer_->visible());
    EXPECT_TRUE(isInView());
}

TEST_F(QVMDrawerViewTest, AsksItsDelegateAndStaysWhenRefused) {
    drawer_->setDelegate(this);
    allows_ = false;
    drawer_->toggleVisibility();
    EXPECT_FALSE(drawer_->visible());
    EXPECT_EQ(asked_, std::vector<bool>{true});
    allows_ = true;
    drawer_->toggleVisibility();
    drawer_->toggleVisibility();
    EXPECT_EQ(asked_, (std::vector<bool>{true, true, false}));
}

TEST_F(QVMDrawerViewTest, NothingThatHappensOnItReachesWhatIsUnderneath) {
    drawer_->setAnimatesVisibility(false);
    drawer_->toggleVisibility();
    for (const EventType type :
         {EventType::mouseDown, EventType::mouseDragged, EventType::mouseUp, EventType::scrollWheel})
        send(type, {100, 100});
    EXPECT_EQ(behind_->heard, 0);
    drawer_->toggleVisibility();
    for (const EventType type :
         {EventType::mouseDown, EventType::mouseDragged, EventType::mouseUp, EventType::scrollWheel})
        send(type, {100, 100});
    EXPECT_EQ(behind_->heard, 4);
}

TEST_F(QVMDrawerViewTest, TakesNoClicksWhileItFadesAway) {
    drawer_->toggleVisibility();
    drawer_->toggleVisibility();
    send(EventType::mouseDown, {100, 100});
    EXPECT_EQ(behind_->heard, 1);
}

TEST_F(QVMDrawerViewTest, DrawsTheThemesPatternWhenToldTo) {
    drawer_->setDrawsPatternedBackground(true);
    EXPECT_EQ(drawer_->layer()->look().backgroundPattern(), QVMUITheme::theme().backgroundPattern);
    drawer_->setDrawsPatternedBackground(false);
    EXPECT_EQ(drawer_->layer()->look().backgroundPattern(), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
