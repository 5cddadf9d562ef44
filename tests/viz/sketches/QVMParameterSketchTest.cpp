// The frame loop of an editor's sketches, and their visibility.
#include "ParameterSketchFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using QVMParameterSketchTest = ParameterSketchFixture;

TEST_F(QVMParameterSketchTest, IsSetUpForTheResponseCurve) {
    EXPECT_EQ(view.glSketch()->sketch(), PB_Sketches[0]);
    EXPECT_EQ(view.glSketch()->frame(), (Rect{0, 0, 54, 62}));
    EXPECT_EQ(view.glSketch()->look().contentsScale(), 2);
    EXPECT_EQ(view.numParams(), 24);
    EXPECT_EQ(object().paramCount(), 24u);
    EXPECT_EQ(object().refCount, 1u);
    EXPECT_TRUE(view.vizVisible());
}

TEST_F(QVMParameterSketchTest, RunsWhileItIsInAWindow) {
    EXPECT_TRUE(view.hasGL());
    EXPECT_TRUE(view.isRunning());
    EXPECT_TRUE(ticks.isStarted());
    EXPECT_EQ(view.glSketch()->tree().superlayer(), view.layer().get());
    const std::unique_ptr<View> taken = view.removeFromSuperview();
    EXPECT_FALSE(view.isRunning());
    EXPECT_FALSE(ticks.isStarted());
}

TEST_F(QVMParameterSketchTest, StopsWhileItsWindowIsHidden) {
    window.setVisible(false);
    EXPECT_FALSE(view.isRunning());
    EXPECT_FALSE(ticks.isStarted());
    window.setVisible(true);
    EXPECT_TRUE(view.isRunning());
    EXPECT_TRUE(ticks.isStarted());
}

TEST_F(QVMParameterSketchTest, DoesNotStartInAHiddenWindow) {
    std::unique_ptr<View> taken = window.takeContentView();
    window.setVisible(false);
    window.setContentView(std::move(taken));
    EXPECT_FALSE(ticks.isStarted());
    window.setVisible(true);
    EXPECT_TRUE(ticks.isStarted());
    taken = window.takeContentView();
    window.setVisible(false);
    window.setVisible(true);
    EXPECT_FALSE(ticks.isStarted()) << "the window is no longer its own";
}

TEST_F(QVMParameterSketchTest, KnowsTheFocusedParameter) {
    EXPECT_EQ(view.focusedPid(), -1);
    view.setFocusedPid(7);
    EXPECT_EQ(view.focusedPid(), 7);
}

TEST_F(QVMParameterSketchTest, StopsWhenItIsDestroyed) {
    window.takeContentView().reset();
    EXPECT_FALSE(ticks.isStarted());
}

TEST_F(QVMParameterSketchTest, AFrameThatArrivesAfterTheLinkStoppedIsDropped) {
    Reader reader;
    view.setDelegate(&reader);
    ticks.tick();
    const std::unique_ptr<View> taken = view.removeFromSuperview();
    time.settle();
    EXPECT_EQ(reader.frames, 0);
}

TEST_F(QVMParameterSketchTest, TellsItsDelegateTheStatesOnceAFrame) {
    Reader reader;
    view.setDelegate(&reader);
    object().parameterStates()[pidTiltGain].value = 4.5f;
    frame();
    EXPECT_EQ(reader.frames, 1);
    EXPECT_EQ(reader.tiltGain, 4.5f);
    frame();
    EXPECT_EQ(reader.frames, 2);
}

TEST_F(QVMParameterSketchTest, SaysWhichValuesWereStoredOncePerStoring) {
    Reader reader;
    reader.statesAre = StatesAre::theUnits;
    view.setDelegate(&reader);
    view.setValues(&reader);
    object().sharedState.storedParameters.setBits(1U << 1 | 1U << 7);
    frame();
    frame();
    EXPECT_EQ(reader.stored, (std::vector<std::uint32_t>{1, 7}));
}

TEST_F(QVMParameterSketchTest, HandsOnOnlyTheStatesThatAreTheUnits) {
    Reader reader;
    view.setDelegate(&reader);
    view.setValues(&reader);
    object().parameterStates()[1].value = 4.5f;
    frame();
    EXPECT_EQ(reader.receivedFrames, 0);
    EXPECT_TRUE(reader.received.empty());
    reader.statesAre = StatesAre::theUnits;
    frame();
    EXPECT_EQ(reader.receivedFrames, 1);
    EXPECT_EQ(reader.received.size(), QVMParameterCount);
    EXPECT_EQ(reader.received[1], 4.5f);
    view.setValues(nullptr);
    frame();
    EXPECT_EQ(reader.frames, 3);
    EXPECT_EQ(reader.receivedFrames, 1);
}

TEST_F(QVMParameterSketchTest, FramesComeOnTheMainQueueOnly) {
    Reader reader;
    view.setDelegate(&reader);
    ticks.tick();
    EXPECT_EQ(reader.frames, 0);
    time.settle();
    EXPECT_EQ(reader.frames, 1);
}

TEST_F(QVMParameterSketchTest, TheCurveIsPreparedWhileItGlidesAndTheMeterAlways) {
    QVMAuxiliarySketch& meter = addMeter();
    frame();
    EXPECT_FALSE(view.glSketch()->canRender());
    EXPECT_TRUE(meter.glSketch()->canRender());

    const reference::Settings settings = initialSettings();
    for (std::size_t pid = 0; pid < settings.size(); ++pid)
        object().interpTargets()[pid] = static_cast<float>(settings[pid]);
    object().restartGlide();
    std::uint64_t version = view.glSketch()->look().version();
    for (int i = 0; i < 7; ++i) {
        frame();
        EXPECT_NE(view.glSketch()->look().version(), version) << i;
        version = view.glSketch()->look().version();
    }
    EXPECT_TRUE(view.glSketch()->canRender());
    for (int i = 0; i < 10; ++i)
        frame();
    EXPECT_EQ(view.glSketch()->look().version(), version);
}

TEST_F(QVMParameterSketchTest, FramesLeftOutCountForTheMetersTime) {
    QVMAuxiliarySketch& meter = addMeter();
    QVMLevelMeter::Channel& channel = object().levelMeter()->channel(0);
    view.getFrameWithDurationAndTime(0.01, 1);
    channel.level = -6;
    view.getFrameWithDurationAndTime(0.01, 1.01);
    EXPECT_NEAR(channel.display, -6 - 90 * std::exp(-1.0), 1e-3);
    channel.display = -96;
    view.getFrameWithDurationAndTime(0.01, 1.04); // two were left out
    EXPECT_NEAR(channel.display, -6 - 90 * std::exp(-3.0), 1e-3);
    (void)meter;
}

TEST_F(QVMParameterSketchTest, WhileNothingMovesNoTickReachesTheMainThread) {
    addMeter();
    Reader reader;
    view.setDelegate(&reader);
    for (int i = 0; i < 600; ++i) // ten seconds
        frame();
    const int before = reader.frames;
    EXPECT_GT(before, 0);
    for (int i = 0; i < 600; ++i)
        frame();
    EXPECT_EQ(reader.frames, before);
    EXPECT_FALSE(view.isFrameWanted());
}

TEST_F(QVMParameterSketchTest, AFrameThatIsAskedForAtRestComesWithTheNextTick) {
    addMeter();
    Reader reader;
    view.setDelegate(&reader);
    for (int i = 0; i < 600; ++i)
        frame();
    for (int i = 0; i < 3; ++i) {
        const int before = reader.frames;
        object().parameterStates()[pidTiltGain].value = static_cast<float>(i);
        object().requestFrame();
        frame();
        EXPECT_EQ(reader.frames, before + 1);
        EXPECT_EQ(reader.tiltGain, static_cast<float>(i));
        for (int j = 0; j < 600; ++j)
            frame();
    }
}

TEST_F(QVMParameterSketchTest, FramesGoOnUntilTheMeterHasFallen) {
    addMeter();
    QVMLevelMeter::Channel& channel = object().levelMeter()->channel(0);
    channel.level = 6;
    object().requestFrame();
    for (int i = 0; i < 60; ++i)
        frame();
    EXPECT_GT(channel.clip, 0.9f);
    channel.level = -96;
    for (int i = 0; i < 1200; ++i)
        frame();
    EXPECT_LT(channel.clip, 2.0f / 255) << "nothing of it is seen";
    EXPECT_LT(channel.display, -95.5f);
    EXPECT_FALSE(view.isFrameWanted());
}

TEST_F(QVMParameterSketchTest, AfterARestTheMeterMovesAsFarAsInAnyFrame) {
    addMeter();
    QVMLevelMeter::Channel& channel = object().levelMeter()->channel(0);
    for (int i = 0; i < 600; ++i)
        frame();
    channel.level = -6;
    object().requestFrame();
    frame();
    EXPECT_NEAR(channel.display, -6 - 90 * std::exp(-1000.0 / 60 / 10), 0.1);
}

TEST_F(QVMParameterSketchTest, ShowingAnOpaqueViewChangesNothing) {
    QVMAuxiliarySketch& meter = addMeter();
    meter.glSketch()->setShouldRender(false);
    view.setVizVisible(true);
    EXPECT_FALSE(meter.glSketch()->shouldRender());
}

TEST_F(QVMParameterSketchTest, HidingTwiceAndShowingOnceLeavesEveryLayerRendering) {
    QVMAuxiliarySketch& meter = addMeter();
    view.setVizVisible(false);
    view.setVizVisible(false);
    EXPECT_FALSE(view.vizVisible());
    EXPECT_EQ(view.layer()->opacity(), 0);
    EXPECT_FALSE(view.glSketch()->shouldRender());
    EXPECT_FALSE(meter.glSketch()->shouldRender());
    view.setVizVisible(true);
    EXPECT_EQ(view.layer()->opacity(), 1);
    EXPECT_TRUE(view.glSketch()->shouldRender());
    EXPECT_TRUE(meter.glSketch()->shouldRender());
}

TEST_F(QVMParameterSketchTest, HidingAHiddenViewStillStopsASketchThatJoinedSince) {
    view.setVizVisible(false);
    QVMAuxiliarySketch& meter = addMeter();
    EXPECT_TRUE(meter.glSketch()->shouldRender());
    view.setVizVisible(false);
    EXPECT_FALSE(meter.glSketch()->shouldRender());
}

TEST_F(QVMParameterSketchTest, AClickTogglesVisibility) {
    const auto click = [&] {
        Event event;
        event.locationInWindow = {20, 220};
        event.type = EventType::mouseDown;
        window.sendEvent(event);
        event.type = EventType::mouseUp;
        window.sendEvent(event);
    };
    click();
    EXPECT_FALSE(view.vizVisible());
    click();
    EXPECT_TRUE(view.vizVisible());
}

TEST_F(QVMParameterSketchTest, MovingIntoAWindowShowsIt) {
    view.setVizVisible(false);
    std::unique_ptr<View> taken = view.removeFromSuperview();
    window.contentView()->addSubview(std::move(taken));
    EXPECT_TRUE(view.vizVisible());
    EXPECT_EQ(view.layer()->opacity(), 1);
    EXPECT_TRUE(view.isRunning());
}

TEST_F(QVMParameterSketchTest, ChangesOfScaleAndSizeReachTheDrawingObject) {
    QVMAuxiliarySketch& meter = addMeter();
    window.setBackingScaleFactor(1);
    EXPECT_EQ(object().numPoints(), 54);
    EXPECT_EQ(meter.glSketch()->look().contentsScale(), 1);
    view.setFrame({0, 0, 200, 200});
    EXPECT_EQ(object().numPoints(), 200);
    EXPECT_EQ(object().refCount, 2u);
}

TEST_F(QVMParameterSketchTest, PathBoundsAreTheSuperlayersElseTheViews) {
    EXPECT_EQ(view.getPathBounds(nullptr), (Rect{0, 0, 54, 62}));
    EXPECT_EQ(view.getPathBounds(view.glSketch().get()), (Rect{0, 0, 54, 62}));
    EXPECT_EQ(view.getPathBounds(view.layer().get()), (Rect{0, 0, 480, 320}));
}

} // namespace
} // namespace QVM_NAMESPACE
