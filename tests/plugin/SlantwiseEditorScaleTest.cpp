// How large the editor is: by the user's choice, and by the frame that the host gives it.
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/ScaleGrip.h"
#include "platform/system/Log.h"
#include "plugin/SlantwiseEditorFixture.h"
#include "preferences/PreferenceFile.h"
#include "toolkit/FakePeer.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <utility>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Pair;
using testing::SizeIs;

// A wrapper in a host that grants every size, or has an answer of its own and gives it within the question.
class GrantingWindow final : public FakeDesktopWindow {
public:
    using FakeDesktopWindow::FakeDesktopWindow;
    std::optional<Size> answer;

private:
    void childBoundsChanged(juce::Component* child) override {
        if (const auto given = std::exchange(answer, std::nullopt))
            child->setSize(int(given->width), int(given->height));
        setSize(child->getWidth(), child->getHeight());
        if (getPeer()) peer().bounds = getLocalBounds();
    }
};

class SlantwiseEditorScale : public SlantwiseEditorFixture {
protected:
    void TearDown() override {
        desktop_.reset();
        editor_.reset();
        runPostedMessages();
    }
    // Puts the editor on a desktop of one pixel a point, or more.
    FakePeer& show(double device = 1) {
        desktop_ = std::make_unique<GrantingWindow>(*editor_);
        desktop_->peer().scale = device;
        draw();
        return desktop_->peer();
    }
    void draw() {
        time_.advance(1);
        runPostedMessages();
        desktop_->peer().vBlank();
        desktop_->peer().paintAll();
    }
    EditorScale& scale() { return editor_->view().ui().scale(); }
    Size frame() const { return {double(editor_->getWidth()), double(editor_->getHeight())}; }
    // Where the view stands in the editor.
    juce::Rectangle<int> place() const { return editor_->getChildComponent(0)->getBoundsInParent(); }

    std::unique_ptr<GrantingWindow> desktop_;
};

TEST_F(SlantwiseEditorScale, AChosenScaleIsTheFramesAndTheViewFillsIt) {
    for (const auto& [chosen, size] : {std::pair(0.75F, Size{360, 240}), std::pair(1.5F, Size{720, 480}),
                                       std::pair(3.0F, Size{1440, 960}), std::pair(1.0F, Size{480, 320})}) {
        scale().choose(chosen);
        EXPECT_EQ(frame(), size);
        EXPECT_EQ(place(), juce::Rectangle<int>(0, 0, int(size.width), int(size.height)));
        EXPECT_EQ(editor_->view().frame(), (Rect{0, 0, size.width, size.height}));
        EXPECT_EQ(editor_->view().ui().frame(), (Rect{0, 0, 480, 320}));
    }
}

TEST_F(SlantwiseEditorScale, IsThatOfEveryForm) {
    scale().choose(2);
    for (const auto& [form, size] :
         {std::pair(1, Size{1360, 640}), std::pair(2, Size{400, 400}), std::pair(0, Size{960, 640})}) {
        editor_->view().ui().requestFrame(form);
        EXPECT_EQ(frame(), size);
    }
}

TEST_F(SlantwiseEditorScale, IsDrawnSharplyOnTopOfTheDevicesOwn) {
    show(2);
    for (const float chosen : {1.5F, 0.75F, 1.25F}) {
        scale().choose(chosen);
        draw();
        EXPECT_NEAR(editor_->window().backingScaleFactor(), 2.0 * double{chosen}, 1e-4);
        EXPECT_NEAR(slider(1).layer()->look().contentsScale(), 2.0 * double{chosen}, 1e-4);
    }
}

TEST_F(SlantwiseEditorScale, EachLayerIsDrawnOnceAtANewScaleAndNoneAtRest) {
    show();
    const auto drawnBy = [this](const std::function<void()>& change) {
        time_.advance(1);
        change();
        runPostedMessages();
        desktop_->peer().vBlank();
        return editor_->lastFrame().rasterised;
    };
    // The only change there is: what comes with it would be drawn for the second time.
    const auto grip = [this] { editor_->view().ui().parts().scaleGrip()->pointerMoved({470, 310}); };
    const auto away = [this] { editor_->view().ui().parts().scaleGrip()->pointerLeft(); };
    const std::vector<std::string> first = drawnBy([this] { scale().choose(1.25F); });
    EXPECT_GT(first.size(), 50U);
    EXPECT_THAT(drawnBy(grip), testing::IsSubsetOf({"scaleGrip", "sign"}));
    drawnBy(away);
    EXPECT_THAT(drawnBy([this] { scale().choose(1.5F); }), testing::UnorderedElementsAreArray(first));
    EXPECT_THAT(drawnBy(grip), testing::IsSubsetOf({"scaleGrip", "sign"}));
}

TEST_F(SlantwiseEditorScale, AFrameOfTheHostsIsFollowedAndRememberedWhereItHasTheShape) {
    editor_->setSize(600, 400);
    time_.advance(1);
    EXPECT_EQ(scale().current(), 1.25F);
    EXPECT_THAT(PreferenceFile::ofUser().read(), IsEmpty()) << "what the host has kept";
    time_.advance(1);
    editor_->setSize(960, 640);
    EXPECT_EQ(scale().current(), 2);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 0, 960, 640));
    EXPECT_EQ(editor_->view().frame(), (Rect{0, 0, 960, 640}));
    time_.advance(1);
    EXPECT_THAT(PreferenceFile::ofUser().read(), ElementsAre(Pair("scale", 2)));
    editor_->setSize(600, 500);
    EXPECT_EQ(scale().current(), 1.25F);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 50, 600, 400)) << "all of it, in the middle";
    time_.advance(1);
    EXPECT_THAT(PreferenceFile::ofUser().read(), ElementsAre(Pair("scale", 2))) << "no size that anybody wanted";
}

TEST_F(SlantwiseEditorScale, AFrameThatIsTooSmallOrTooLargeHasAllOfTheEditor) {
    editor_->setSize(240, 160);
    EXPECT_EQ(scale().current(), 0.75F);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 0, 240, 160));
    editor_->setSize(2000, 1500);
    EXPECT_EQ(scale().current(), 3);
    EXPECT_EQ(place(), juce::Rectangle<int>(280, 270, 1440, 960));
    for (const auto& [width, height] : {std::pair(1, 1), std::pair(0, 0), std::pair(3, 900), std::pair(480, 320)})
        editor_->setSize(width, height);
    EXPECT_EQ(scale().current(), 1);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 0, 480, 320));
}

TEST_F(SlantwiseEditorScale, WhatComesAtOnceAfterAQuestionIsItsAnswer) {
    show();
    scale().choose(2);
    editor_->setSize(700, 500); // all that the host gives
    EXPECT_EQ(scale().current(), 2) << "what the user wants";
    EXPECT_NEAR(scale().shown(), 700.0 / 480, 0.01) << "and what there is";
    time_.advance(1);
    editor_->setSize(720, 480);
    EXPECT_EQ(scale().current(), 1.5F) << "the host's own doing";
}

TEST_F(SlantwiseEditorScale, ToFitTheWindowIsToFollowEachOfItsSizes) {
    show();
    scale().choose(2);
    editor_->setSize(720, 480);
    scale().fitWindow();
    EXPECT_EQ(scale().current(), 1.5F);
    EXPECT_EQ(frame(), (Size{720, 480})) << "the window is not asked for another";
    editor_->setSize(1200, 800);
    EXPECT_EQ(scale().current(), 2.5F);
    EXPECT_THAT(PreferenceFile::ofUser().read(), ElementsAre(Pair("scale", 0)));
}

TEST_F(SlantwiseEditorScale, OneThatFitsItsWindowShowsEachFormWholeInAnyWindowAndKeepsItsSize) {
    show();
    scale().fitWindow();
    time_.advance(1);
    editor_->setSize(400, 300); // no form has such a shape
    const float fitting = scale().current();
    EXPECT_NEAR(fitting, 400.0 / 480, 1e-4);
    QVMGenericUI& ui = editor_->view().ui();
    for (const std::int32_t form : {QVMAltFrameDoubleWide, QVMAltFrameNormal, QVMAltFrameCompact, QVMAltFrameNormal}) {
        time_.advance(1);
        ui.requestFrame(form);
        const Size content = EditorLayoutForAltFrame(form).editor.size();
        EXPECT_EQ(ui.altFrame(), form);
        EXPECT_EQ(editor_->view().bounds().size(), content) << form;
        EXPECT_NEAR(place().getWidth(), content.width * double{fitting}, 1) << form;
        EXPECT_NEAR(frame().width, content.width * double{fitting}, 1) << form;
        EXPECT_EQ(scale().current(), fitting) << form;
    }
}

TEST_F(SlantwiseEditorScale, AnotherSizeThatIsGivenWithinTheQuestionHasTheFormThatWasAskedFor) {
    show();
    scale().fitWindow();
    QVMGenericUI& ui = editor_->view().ui();
    for (const auto& [form, given] :
         {std::pair(QVMAltFrameDoubleWide, Size{600, 300}), std::pair(QVMAltFrameNormal, Size{500, 300}),
          std::pair(QVMAltFrameCompact, Size{300, 260}), std::pair(QVMAltFrameNormal, Size{900, 420})}) {
        time_.advance(1);
        desktop_->answer = given;
        ui.requestFrame(form);
        const Size content = EditorLayoutForAltFrame(form).editor.size();
        const double fitting = std::min(given.width / content.width, given.height / content.height);
        EXPECT_EQ(frame(), given);
        EXPECT_EQ(ui.altFrame(), form);
        EXPECT_EQ(editor_->view().bounds().size(), content) << form;
        EXPECT_EQ(ui.frame().size(), content) << form;
        EXPECT_NEAR(double{scale().current()}, fitting, 1e-4) << form;
        EXPECT_NEAR(place().getWidth(), content.width * fitting, 1) << form;
        EXPECT_NEAR(place().getCentreX(), given.width / 2, 1) << "all of it, in the middle";
        EXPECT_NEAR(place().getCentreY(), given.height / 2, 1);
    }
}

TEST_F(SlantwiseEditorScale, ADrawerThatGetsNoRoomIsOverTheControlsAndTheSizeStays) {
    scale().fitWindow();
    show();
    editor_->view().ui().requestFrame(QVMAltFrameDoubleWide);
    EXPECT_EQ(frame(), (Size{680, 320}));
    editor_->setSize(480, 320);
    EXPECT_EQ(scale().current(), 1);
    EXPECT_EQ(editor_->view().ui().advClumpsView()->frame().x, 218);
}

TEST_F(SlantwiseEditorScale, ASliderFollowsThePointerExactlyAtEveryScale) {
    const auto drag = [this](double pixels) {
        FakePeer& peer = desktop_->peer();
        const double shown = scale().shown();
        const Point from = handle(1);
        const auto at = [&](double dx) {
            return juce::Point<float>(static_cast<float>(from.x * shown + dx), static_cast<float>(from.y * shown));
        };
        const juce::int64 ms = juce::Time::currentTimeMillis();
        const int left = juce::ModifierKeys::leftButtonModifier;
        peer.mouse(at(0), 0, ms);
        peer.mouse(at(0), left, ms + 10);
        for (int i = 1; i <= 4; ++i)
            peer.mouse(at(pixels * i / 4), left, ms + 10 + 10 * i);
        frame();
        const double moved = (handle(1).x - from.x) * shown;
        peer.mouse(at(pixels), 0, ms + 60);
        settle();
        return moved;
    };
    show();
    for (const float chosen : {1.0F, 0.75F, 1.5F, 3.0F}) {
        scale().choose(chosen);
        draw();
        EXPECT_NEAR(drag(45), 45, 2.0 * double{chosen}) << chosen; // a step of the value is a point and a half
        EXPECT_NEAR(drag(-45), -45, 2.0 * double{chosen}) << chosen;
    }
}

TEST_F(SlantwiseEditorScale, TheGripHasTheCornerUnderThePointerWhileItIsDragged) {
    FakePeer& peer = show();
    const juce::int64 ms = juce::Time::currentTimeMillis();
    const int left = juce::ModifierKeys::leftButtonModifier;
    const auto to = [&](float x, float y, int buttons, int after) {
        time_.advance(0.02);
        peer.mouse({x, y}, buttons, ms + after);
    };
    to(470, 310, 0, 0);
    to(470, 310, left, 10);
    for (const float part : {0.1F, 0.4F, 0.7F, 1.0F}) {
        to(470 + 360 * part, 310 + 240 * part, left, 10 + int(100 * part));
        EXPECT_NEAR(frame().width, 480 + 360 * double{part}, 1);
        EXPECT_NEAR(frame().height, 320 + 240 * double{part}, 1);
    }
    to(830, 550, 0, 200);
    EXPECT_EQ(scale().current(), 1.75F);
    EXPECT_THAT(PreferenceFile::ofUser().read(), ElementsAre(Pair("scale", 1.75)));
}

TEST_F(SlantwiseEditorScale, TheGripOfAWindowWithMarginsBeginsWithThePresentSize) {
    FakePeer& peer = show();
    scale().fitWindow();
    time_.advance(1);
    editor_->setSize(900, 420);
    ASSERT_EQ(place(), juce::Rectangle<int>(135, 0, 630, 420));
    const juce::int64 ms = juce::Time::currentTimeMillis();
    const int left = juce::ModifierKeys::leftButtonModifier;
    const auto to = [&](float dx, float dy, int buttons, int after) {
        time_.advance(0.02);
        peer.mouse({135 + 617 + dx, 407 + dy}, buttons, ms + after);
    };
    to(0, 0, 0, 0);
    to(0, 0, left, 10);
    for (const float part : {0.01F, 0.1F, 0.5F, 1.0F}) {
        to(180 * part, 120 * part, left, 10 + int(100 * part));
        EXPECT_NEAR(place().getWidth(), 630 + 180 * double{part}, 2) << part;
        EXPECT_NEAR(place().getHeight(), 420 + 120 * double{part}, 2) << part;
        EXPECT_EQ(place().getX(), 0) << "the window has no margins any more";
    }
    to(180, 120, 0, 200);
    EXPECT_NEAR(double{scale().current()}, 810.0 / 480, 0.003);
}

TEST_F(SlantwiseEditorScale, TheNextEditorHasItFromTheFirstFrameOn) {
    scale().choose(1.5F);
    editor_.reset();
    editor_ = std::make_unique<SlantwiseEditor>(processor_);
    EXPECT_EQ(frame(), (Size{720, 480}));
    EXPECT_TRUE(editor_->isResizable());
    ASSERT_TRUE(editor_->getConstrainer());
    EXPECT_EQ(editor_->getConstrainer()->getMinimumWidth(), 360);
    EXPECT_EQ(editor_->getConstrainer()->getMaximumWidth(), 1440);
}

TEST_F(SlantwiseEditorScale, MakingAProcessorReadsAndWritesNoPreferences) {
    PreferenceFile::ofUser().remember("scale", 2);
    std::filesystem::permissions(std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "slantwise" / "preferences",
                                 std::filesystem::perms::none);
    std::vector<std::string> logged;
    const ScopedLogSink sink([&logged](const std::string& line) { logged.push_back(line); });
    SlantwiseProcessor other;
    other.prepareToPlay(48000, 512);
    juce::MemoryBlock state;
    other.getStateInformation(state);
    EXPECT_THAT(logged, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
