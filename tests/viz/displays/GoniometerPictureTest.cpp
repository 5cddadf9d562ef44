// What the goniometer draws for signals of which theory says what they look like.
#include "LiveDisplayFixture.h"
#include "viz/sketches/RecordingSurface.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace QVM_NAMESPACE {
namespace {

using GoniometerPicture = LiveDisplayPicture;
INSTANTIATE_TEST_SUITE_P(Backends, GoniometerPicture, testing::ValuesIn(kBackends), nameOfBackend);

// A thin line through the middle in the direction (dx, dy) and nothing else, at least 50 pixels to both sides.
bool isLineThroughTheMiddle(const Image& picture, double dx, double dy) {
    const double length = std::hypot(dx, dy), middle = kSide / 2.0;
    double far = 0, near = 0, off = 0;
    sumOver(picture, [&](double x, double y, double alpha) {
        const double along = ((x - middle) * dx + (y - middle) * dy) / length;
        const double aside = ((x - middle) * dy - (y - middle) * dx) / length;
        if (alpha < 32) return 0.0;
        far = std::max(far, along);
        near = std::min(near, along);
        off = std::max(off, std::abs(aside));
        return alpha;
    });
    return far > 50 && near < -50 && off < 3;
}

// Light spreads evenly around the middle: as far across as up, and in each quarter about as much.
bool isCloud(const Image& picture) {
    const double light = lightOf(picture), middle = kSide / 2.0;
    if (light < 2000) return false;
    double quarters[4] = {};
    double across = 0, up = 0;
    sumOver(picture, [&](double x, double y, double alpha) {
        quarters[(x > middle ? 1 : 0) + (y > middle ? 2 : 0)] += alpha / 255 / light;
        across += alpha / 255 / light * (x - middle) * (x - middle);
        up += alpha / 255 / light * (y - middle) * (y - middle);
        return 0.0;
    });
    for (const double quarter : quarters)
        if (quarter < 0.19 || quarter > 0.31) return false;
    return across / up > 0.75 && across / up < 1.33;
}

TEST_P(GoniometerPicture, TheGoniometerDrawsMonoUpright) {
    expectOnly(
        Signal::mono, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, 0, 1); });
    EXPECT_TRUE(isLineThroughTheMiddle(goniometer(Signal::sine), 0, 1));
}

TEST_P(GoniometerPicture, TheGoniometerDrawsOppositePhasesFlat) {
    expectOnly(
        Signal::opposite, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, 1, 0); });
}

TEST_P(GoniometerPicture, TheGoniometerLeansToTheSideThatSoundsAlone) {
    expectOnly(
        Signal::left, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, -1, 1); });
    expectOnly(
        Signal::right, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, 1, 1); });
}

TEST_P(GoniometerPicture, TheGoniometerDrawsIndependentSidesAsACloud) {
    expectOnly(
        Signal::wide, [this](Signal s) { return goniometer(s); }, isCloud);
}

TEST_P(GoniometerPicture, TheGoniometerDrawsNothingForSilence) {
    EXPECT_EQ(lightOf(goniometer(Signal::silence)), 0);
}

// What a display is given are the sides: middle and difference would stand upright.
TEST(GoniometerDisplay, TakesItsSoundAsLeftAndRight) {
    for (const Signal signal : {Signal::left, Signal::right}) {
        const std::unique_ptr<LiveDisplay> display = std::make_unique<GoniometerDisplay>();
        display->init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
        SignalSource source(signal, kRate);
        play(
            source, kRate, 60, [&](auto& block, unsigned n) { display->processAudio(block, n); },
            [&](float dt) { display->prepareForDrawing(dt); });
        RecordingSurface surface;
        surface.begin({kSide, kSide}, 1);
        display->draw(surface);
        const float lean = signal == Signal::left ? -1 : 1, middle = kSide / 2.0f;
        float farthest = 0;
        for (const StrokeSegment& dot : surface.shapes.back().line) {
            const float x = (dot.from.x + dot.to.x) / 2 - middle, up = middle - dot.from.y;
            ASSERT_NEAR(x, lean * up, 1e-3);
            farthest = std::max(farthest, std::abs(x));
        }
        EXPECT_GT(farthest, 25) << "pixels";
    }
}

} // namespace
} // namespace QVM_NAMESPACE
