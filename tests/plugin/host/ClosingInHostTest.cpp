// Editors that a host takes away in the middle of something, and instances that
// go with theirs open.
#include "plugin/host/Vst3View.h"
#include "plugin/host/XScreen.h"
#include "support/ServerErrors.h"
#include "support/ServerResources.h"

#include <gtest/gtest.h>

#include <pluginterfaces/vst/ivsteditcontroller.h>

#include <functional>
#include <map>
#include <string>

namespace slantwise_tests {
namespace {

using namespace Steinberg;

// What the plug-in tells of edits. It outlives the plug-in: nobody counts.
class Edits final : public Vst::IComponentHandler {
public:
    virtual ~Edits() = default;

    std::map<Vst::ParamID, int> open; // gestures by parameter
    std::map<Vst::ParamID, Vst::ParamValue> values;
    int begun = 0;

    bool areEnded() const {
        for (const auto& [id, count] : open)
            if (count != 0) return false;
        return true;
    }

    tresult PLUGIN_API beginEdit(Vst::ParamID id) override {
        ++begun;
        EXPECT_EQ(++open[id], 1);
        return kResultTrue;
    }
    tresult PLUGIN_API performEdit(Vst::ParamID id, Vst::ParamValue value) override {
        values[id] = value;
        return kResultTrue;
    }
    tresult PLUGIN_API endEdit(Vst::ParamID id) override {
        EXPECT_EQ(--open[id], 0);
        return kResultTrue;
    }
    tresult PLUGIN_API restartComponent(int32) override { return kResultTrue; }
    tresult PLUGIN_API queryInterface(const TUID, void** object) override {
        *object = nullptr;
        return kNoInterface;
    }
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }
};

class ClosingInHost : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(screen_.isOpen()) << "needs a display";
        instance_->controller().setComponentHandler(&edits_);
        open();
    }
    void TearDown() override {
        screen_.button(1, false);
        screen_.button(3, false);
        view_.reset();
        if (instance_) instance_->controller().setComponentHandler(nullptr);
    }

    void open() {
        screen_.movePointer(5, 5);
        view_ = std::make_unique<Vst3View>(*instance_);
        view_->attach();
        ASSERT_TRUE(view_->runUntil([this] { return picture().distinctColours() > 50; }));
        view_->run(0.7); // the live pictures come late
    }
    Picture picture() { return screen_.capture(view_->corner().first, view_->corner().second, 480, 320); }
    void point(int x, int y) {
        screen_.movePointer(view_->corner().first + x, view_->corner().second + y);
        view_->run(0.15);
    }
    void press(int button = 1) {
        screen_.button(button, true);
        view_->run(0.1);
    }
    void release(int button = 1) {
        screen_.button(button, false);
        view_->run(0.05);
    }
    void click(int x, int y, int button = 1) {
        point(x, y);
        press(button);
        release(button);
    }
    // Takes the handle of the tilt gain, wherever on its track it is, and moves it with the button held.
    void beginDrag() {
        const int begun = edits_.begun;
        point(160, 79);
        press();
        point(180, 79);
        point(200, 79);
        ASSERT_EQ(edits_.begun, begun + 1);
        ASSERT_FALSE(edits_.areEnded());
    }
    // Takes the view away as it is, and opens another, which is to be as good as
    // the first.
    void closeAndOpen() {
        view_.reset();
        EXPECT_TRUE(edits_.areEnded());
        screen_.button(1, false);
        open();
        const int begun = edits_.begun;
        click(260, 79); // on the track of the tilt gain
        EXPECT_TRUE(view_->runUntil([&] { return edits_.begun > begun && edits_.areEnded(); }));
    }

    XScreen screen_;
    Edits edits_;
    Vst3Module module_;
    std::unique_ptr<Vst3Instance> instance_ = std::make_unique<Vst3Instance>(module_);
    std::unique_ptr<Vst3View> view_;
};

TEST_F(ClosingInHost, InMidDragTheGestureEndsAndTheNextEditorsFirstPressDrags) {
    beginDrag();
    view_.reset();
    EXPECT_TRUE(edits_.areEnded());
    screen_.button(1, false);
    open();
    beginDrag();
    release();
    EXPECT_TRUE(view_->runUntil([this] { return edits_.areEnded(); }));
}

TEST_F(ClosingInHost, InMidDragAndOpenedAgainWithTheButtonStillHeld) {
    beginDrag();
    view_.reset();
    open();
    release();
    beginDrag();
}

TEST_F(ClosingInHost, InMidPressInAMenu) {
    const Picture before = picture();
    click(200, 250, 3);
    ASSERT_TRUE(view_->runUntil([&] { return picture().differingPixels(before) > 5000; }));
    point(215, 262); // over its first item
    press();
    closeAndOpen();
}

TEST_F(ClosingInHost, WithAMenuOpen) {
    const Picture before = picture();
    click(200, 250, 3);
    ASSERT_TRUE(view_->runUntil([&] { return picture().differingPixels(before) > 5000; }));
    closeAndOpen();
}

TEST_F(ClosingInHost, WithThePresetsOpenAndWhileTheyFade) {
    const Picture before = picture();
    click(209, 15);
    closeAndOpen(); // it has just begun
    click(209, 15);
    ASSERT_TRUE(view_->runUntil([&] { return picture().differingPixels(before) > 20000; }));
    closeAndOpen();
}

TEST_F(ClosingInHost, WithTheAdvancedDrawerOpen) {
    click(449, 96);
    EXPECT_TRUE(view_->runUntil([this] { return view_->size() == Vst3View::Size(680, 320); }));
    closeAndOpen();
    EXPECT_EQ(view_->size(), Vst3View::Size(680, 320)) << "and it is kept";
}

TEST_F(ClosingInHost, BeforeTheFirstPicture) {
    for (int i = 0; i < 5; ++i) {
        view_ = nullptr;
        view_ = std::make_unique<Vst3View>(*instance_);
        if (i % 2 == 0) view_->attach();
    }
    closeAndOpen();
}

// A host without a handler of its own would end with the first error.
TEST_F(ClosingInHost, AWindowThatTheHostDestroyedFirstIsNoErrorOfTheServers) {
    point(160, 79);
    const ServerErrors errors;
    view_->destroyWindow();
    view_->run(1.5); // refreshes, live pictures, and the question who has the keyboard
    view_->remove();
    view_->run(0.2);
    EXPECT_EQ(errors.told(), "");
    closeAndOpen();
}

TEST_F(ClosingInHost, TheServerKeepsNoMoreAfterTwentyOpenings) {
    const auto reopen = [this] {
        view_.reset();
        view_ = std::make_unique<Vst3View>(*instance_);
        view_->attach();
        view_->run(0.1);
    };
    reopen();
    view_.reset();
    const long atFirst = serverResources();
    ASSERT_GT(atFirst, 0);
    for (int i = 0; i < 20; ++i)
        reopen();
    EXPECT_GT(serverResources(), atFirst) << "the open window is counted";
    view_.reset();
    EXPECT_EQ(serverResources(), atFirst);
}

TEST_F(ClosingInHost, TheInstanceGoesWithItsEditorOpen) {
    point(160, 79);
    press();
    point(190, 79);
    instance_->component().setActive(false);
    instance_->component().terminate();
    view_->run(0.3);
    view_.reset();
    instance_.reset();
    EXPECT_TRUE(edits_.areEnded());
}

TEST_F(ClosingInHost, TwoInstancesInEitherOrder) {
    for (const bool isFirstClosedFirst : {true, false}) {
        Vst3Instance other(module_);
        auto second = std::make_unique<Vst3View>(other);
        second->attach();
        second->run(0.5);
        if (isFirstClosedFirst) {
            view_.reset();
            second->run(0.3);
        }
        second.reset();
        if (!isFirstClosedFirst) view_->run(0.3);
        closeAndOpen();
    }
}

TEST_F(ClosingInHost, APresetOfTheEditorIsTheHostsProgramToo) {
    const Vst::ParameterInfo program = instance_->parameter("Program");
    click(323, 15); // the arrow to the next one
    ASSERT_TRUE(view_->runUntil([&] { return edits_.values.count(program.id) == 1; }));
    EXPECT_NEAR(edits_.values[program.id] * program.stepCount, 1, 1e-6);
    EXPECT_NEAR(instance_->controller().getParamNormalized(program.id) * program.stepCount, 1, 1e-6);
    EXPECT_TRUE(edits_.areEnded());
}

} // namespace
} // namespace slantwise_tests
