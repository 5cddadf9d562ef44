// What the drawing object sets up for each canvas, and its meter.
#include "viz/sketches/QVM0015GLSketch.h"

#include "SketchFixture.h"
#include "platform/runloop/NotificationCenter.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

class QVM0015GLSketchTest : public testing::Test {
protected:
    std::unique_ptr<QVM0015GLSketch> sketch = makeCurve(108);
};

TEST_F(QVM0015GLSketchTest, UnknownSketchesAreLeftAlone) {
    QVM0015GLSketch other;
    PBGLCanvas canvas = curveCanvas();
    canvas.sid = 2;
    other.init(canvas, 44100, 512);
    EXPECT_EQ(other.numPoints(), 0);
    EXPECT_EQ(other.levelMeter(), nullptr);
    EXPECT_EQ(other.prepareForDrawing(canvas, 1), Redraw::no);
}

TEST_F(QVM0015GLSketchTest, NothingIsPreparedBeforeThereAreParameters) {
    QVM0015GLSketch other;
    other.init(curveCanvas(), 44100, 512);
    EXPECT_EQ(other.prepareForDrawing(curveCanvas(), 1), Redraw::no);
}

TEST_F(QVM0015GLSketchTest, SetsUpAMeterOfTwoBarsSideBySide) {
    ASSERT_EQ(sketch->levelMeter(), nullptr);
    sketch->init(meterCanvas(), 44100, 512);
    QVMLevelMeter* meter = sketch->levelMeter();
    ASSERT_NE(meter, nullptr);
    ASSERT_EQ(meter->numChannels(), 2);
    EXPECT_EQ(meter->channel(0).offset.x, -3);
    EXPECT_EQ(meter->channel(1).offset.x, 3);
    EXPECT_EQ(meter->channel(0).colourFull, (Color{0, 0, 0, 0.25f}));
    EXPECT_EQ(meter->channel(1).colourEmpty, (Color{0, 0, 0, 0.5f}));
    EXPECT_EQ(meter->channel(0).colourClip, (Color{1, 0, 0, 0.25f}));
    EXPECT_EQ(meter->channel(1).colourClip, (Color{1, 0, 0, 0.5f}));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(meter->channel(i).level, -96);
        EXPECT_EQ(meter->channel(i).display, -96);
    }
    EXPECT_EQ(meter->barRect(meterCanvas(), 0).x + 6, meter->barRect(meterCanvas(), 1).x);
}

TEST_F(QVM0015GLSketchTest, SaysWhenItsMeterReachesFullScaleAndWhenItBeginsAnew) {
    sketch->init(meterCanvas(), 44100, 512);
    std::vector<std::string> heard;
    std::vector<ObservationToken> tokens;
    for (const char* name : {QVMLevelMeter::clippedNotification, QVMLevelMeter::resetNotification})
        tokens.push_back(NotificationCenter::defaultCenter().observe(
            name, static_cast<const PBGLSketchAbstract*>(sketch.get()),
            [&](const Notification& notification) { heard.push_back(notification.name); }));
    const auto frame = [&] {
        heard.clear();
        sketch->prepareForDrawing(meterCanvas(), 0.02f);
        return heard;
    };
    sketch->sharedState.levels.post(1, -0.1f);
    EXPECT_TRUE(frame().empty());
    sketch->sharedState.levels.post(1, 0);
    sketch->sharedState.levels.post(1, -20); // between two frames
    EXPECT_EQ(frame(), std::vector<std::string>{QVMLevelMeter::clippedNotification});
    EXPECT_TRUE(frame().empty());
    sketch->levelMeter()->reset();
    EXPECT_EQ(frame(), std::vector<std::string>{QVMLevelMeter::resetNotification});
}

TEST_F(QVM0015GLSketchTest, ItsMeterShowsTheSharedLevels) {
    sketch->init(meterCanvas(), 44100, 512);
    sketch->sharedState.levels.post(0, -6);
    sketch->sharedState.levels.post(0, -20);
    sketch->levelMeter()->channel(0).slewEnabled = false;
    sketch->prepareForDrawing(meterCanvas(), 0.1f);
    EXPECT_EQ(sketch->levelMeter()->channel(0).display, -6);
    EXPECT_EQ(sketch->levelMeter()->channel(0).level, -20);
}

TEST_F(QVM0015GLSketchTest, AnotherLayerKeepsTheMeterAndItsLevels) {
    sketch->init(meterCanvas(1), 44100, 512);
    QVMLevelMeter* meter = sketch->levelMeter();
    meter->channel(0).level = -12;
    sketch->init(meterCanvas(2), 44100, 512);
    EXPECT_EQ(sketch->levelMeter(), meter);
    EXPECT_EQ(meter->channel(0).level, -12);
}

TEST_F(QVM0015GLSketchTest, TheMeterFollowsTheSlidersScale) {
    sketch->init(meterCanvas(), 44100, 512);
    QVMLevelMeter::Channel& channel = sketch->levelMeter()->channel(0);
    for (const float level : {-96.0f, -24.0f, -6.0f, 0.0f, 12.0f}) {
        channel.level = level;
        for (int frame = 0; frame < 600; ++frame)
            sketch->prepareForDrawing(meterCanvas(), 1.0f / 60);
        EXPECT_NEAR(channel.fill, GetParameter(pidOutputGain)->percentageFromFloatValue(level), 1e-4) << level;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
