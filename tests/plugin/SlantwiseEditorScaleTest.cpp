// How large the editor is: by the user's choice.
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/ScaleGrip.h"
#include "platform/system/Log.h"
#include "plugin/SlantwiseEditorScaleFixture.h"
#include "preferences/PreferenceFile.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <utility>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using SlantwiseEditorScale = SlantwiseEditorScaleFixture;

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

TEST_F(SlantwiseEditorScale, TheNextEditorIsAsLargeToThePixel) {
    for (const int width : {361, 479, 481, 601, 719, 721, 1001, 1439}) {
        scale().choose(static_cast<float>(width) / 480);
        const Size was = frame();
        EXPECT_NEAR(was.width, width, 1);
        editor_.reset();
        open();
        EXPECT_EQ(frame(), was) << width;
    }
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
