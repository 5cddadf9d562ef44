// What the meter makes of its levels: bars, colours and when it is drawn.
#include "LevelMeterFixture.h"

#include "description/ValueMapping.h"
#include "platform/surface/CpuDrawingSurface.h"

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

TEST_F(QVMLevelMeterTest, TheFillIsClampedUnlessToldOtherwise) {
    for (const bool clamped : {true, false}) {
        QVMLevelMeter::Channel& c = meter.channel(clamped ? 0 : 1);
        c.clampFill = clamped;
        c.slewEnabled = false;
        c.level = 12;
        meter.prepareForDrawing(0.01f);
        EXPECT_EQ(c.fill, clamped ? 1 : 12);
        c.level = -5;
        meter.prepareForDrawing(0.01f);
        EXPECT_EQ(c.fill, clamped ? 0 : -5);
    }
}

TEST_F(QVMLevelMeterTest, AMappingGivesTheFill) {
    meter.channel(0).slewEnabled = false;
    meter.channel(0).level = -24;
    meter.prepareForDrawingWithMapping(0.01f, [](float level) { return -level / 48; });
    EXPECT_EQ(meter.channel(0).fill, 0.5f);
}

TEST_F(QVMLevelMeterTest, TheMarkerIsTheParametersPlaceOnTheScale) {
    meter.prepareForDrawingWithParameterValue(0.01f, 0, ParameterFloatValueToPercentage, 7);
    EXPECT_EQ(meter.marker(), ParameterFloatValueToPercentage(7, 0));
    meter.prepareForDrawingWithParameterValue(0.01f, 40, ParameterFloatValueToPercentage, 7);
    EXPECT_EQ(meter.marker(), 1);
}

TEST_F(QVMLevelMeterTest, AFadeSnapsToItsTargetWithinAHundredth) {
    QVMLevelMeter::Channel& c = meter.channel(0);
    c.opacityTarget = 0;
    int frames = 0;
    while (!c.atRest && frames < 1000) {
        frame();
        ++frames;
        EXPECT_TRUE(c.opacity >= 0.01f || c.opacity == 0) << c.opacity;
    }
    // e^(-4 t) falls below a hundredth at 1.15 s.
    EXPECT_NEAR(frames, 1.1513 * 60, 1.01);
    EXPECT_EQ(c.opacity, 0);
    c.opacityTarget = 1;
    frame();
    EXPECT_FALSE(c.atRest);
}

TEST_F(QVMLevelMeterTest, ColoursMixByFillThenByClipThenFade) {
    QVMLevelMeter::Channel& c = meter.channel(0);
    c.colourEmpty = {0, 0, 0, 0.2f};
    c.colourFull = {0, 1, 0, 0.6f};
    c.colourClip = {1, 0, 0, 1};
    c.fill = 0.5f;
    EXPECT_FLOAT_EQ(meter.barColour(0).g, 0.5f);
    EXPECT_FLOAT_EQ(meter.barColour(0).a, 0.4f);
    c.clip = 0.5f;
    c.opacity = 0.5f;
    const Color colour = meter.barColour(0);
    EXPECT_FLOAT_EQ(colour.r, 0.5f);
    EXPECT_FLOAT_EQ(colour.g, 0.25f);
    EXPECT_FLOAT_EQ(colour.a, 0.35f);
}

TEST_F(QVMLevelMeterTest, AVerticalBarGrowsUpFromTheTracksBottom) {
    meter.channel(0).fill = 0.5f;
    meter.channel(0).offset = {-3, 2};
    EXPECT_EQ(meter.barRect(meterCanvas(), 0), (PBRect{30.5f, 40, 6, 70.5f}));
}

TEST_F(QVMLevelMeterTest, AHorizontalBarGrowsToTheRight) {
    PBGLCanvas canvas = meterCanvas();
    canvas.parameter.flags = PBParameterHorizontal;
    canvas.parameter.track = {10, 20, 100, 6};
    meter.channel(0).fill = 0.25f;
    meter.channel(0).offset = {1, -2};
    EXPECT_EQ(meter.barRect(canvas, 0), (PBRect{11, 18, 25, 6}));
}

TEST_F(QVMLevelMeterTest, AsksToBeDrawnOnlyWhenItLooksDifferent) {
    EXPECT_EQ(frame(), Redraw::yes); // the first picture
    EXPECT_EQ(frame(), Redraw::no);
    meter.channel(1).level = -6;
    EXPECT_EQ(frame(), Redraw::yes);
    int frames = 0;
    while (frame() == Redraw::yes)
        ++frames;
    EXPECT_LT(frames, 60);
    for (int i = 0; i < 600; ++i)
        EXPECT_EQ(frame(), Redraw::no);
    meter.setCanvas(meterCanvas(1));
    EXPECT_EQ(frame(), Redraw::yes);
}

// A move that shows on a finer display, as when a window is moved to one, may be too small to show on a coarser one.
TEST_F(QVMLevelMeterTest, IsDrawnAtEverySixteenthOfAPixelOfTheDisplayItIsOn) {
    QVMLevelMeter::Channel& c = meter.channel(0);
    c.slewEnabled = false;
    for (const float scale : {1.0f, 2.0f, 3.0f, 1.0f}) {
        const PBGLCanvas canvas = meterCanvas(scale);
        meter.setCanvas(canvas);
        c.level = 0;
        meter.prepareForDrawing(0.01f);
        int pictures = 0;
        for (int step = 1; step <= 1000; ++step) { // two points in all
            c.level = static_cast<float>(step) / 500 / canvas.parameter.track.h;
            pictures += meter.prepareForDrawing(0.01f) == Redraw::yes;
        }
        EXPECT_NEAR(pictures, 2 * 16 * scale, 1) << scale;
    }
}

class QVMLevelMeterPicture : public QVMLevelMeterTest {
protected:
    void SetUp() override {
        for (int i = 0; i < 2; ++i) {
            meter.channel(i).offset.x = i == 0 ? -3.0f : 3.0f;
            meter.channel(i).fill = i == 0 ? 0.2f : 0.4f;
        }
    }
    void draw() {
        surface.begin({97, 217}, 1);
        PBGLCanvas canvas = meterCanvas(1);
        canvas.parameter.track = {45, 26, 6, 165};
        meter.glDraw(canvas, surface);
        ASSERT_TRUE(surface.finish(picture));
    }
    // y upwards, in points.
    unsigned alphaAt(int x, int y) const { return picture.pixels[static_cast<std::size_t>((216 - y) * 97 + x)] >> 24; }

    CpuDrawingSurface surface;
    Image picture;
};

TEST_F(QVMLevelMeterPicture, BarsCoverExactlyTheirPartOfTheTrack) {
    draw();
    for (int y = 0; y < 217; ++y) {
        for (int x = 0; x < 97; ++x) {
            const bool inLeft = x >= 42 && x < 48 && y >= 26 && y < 26 + 33;
            const bool inRight = x >= 48 && x < 54 && y >= 26 && y < 26 + 66;
            ASSERT_NEAR(alphaAt(x, y), inLeft || inRight ? 128 : 0, 1) << x << ", " << y;
        }
    }
}

TEST_F(QVMLevelMeterPicture, InAnInkAllChannelsAreAlikeAndApart) {
    const MeterInk ink = {{0.5f, 0.5f, 0.5f, 1}, {1, 0, 0, 1}, 2};
    PBGLCanvas canvas = meterCanvas(1);
    canvas.parameter.track = {45, 26, 6, 165};
    canvas.meterInk = ink;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(meter.barColour(i, ink), ink.bar);
        meter.channel(i).clip = 1;
        EXPECT_EQ(meter.barColour(i, ink), ink.clip);
        meter.channel(i).clip = 0;
    }
    surface.begin({97, 217}, 1);
    meter.glDraw(canvas, surface);
    ASSERT_TRUE(surface.finish(picture));
    for (int x = 0; x < 97; ++x) {
        const bool inBar = (x >= 41 && x < 47) || (x >= 49 && x < 55);
        ASSERT_EQ(alphaAt(x, 30), inBar ? 255u : 0u) << x;
    }
}

TEST_F(QVMLevelMeterPicture, NothingIsDrawnBehindAChannelAtRest) {
    meter.channel(0).atRest = true;
    draw();
    for (const std::uint32_t pixel : picture.pixels)
        ASSERT_EQ(pixel, 0u);
    meter.channel(0).atRest = false;
    meter.channel(1).atRest = true;
    draw();
    EXPECT_GT(alphaAt(44, 30), 0u);
    EXPECT_EQ(alphaAt(50, 30), 0u);
}

} // namespace
} // namespace QVM_NAMESPACE
