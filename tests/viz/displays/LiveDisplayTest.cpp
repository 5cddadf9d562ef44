// The pictures of the goniometer and the stereoscope for signals of which theory says what they look like, on both back
// ends. Every question is also asked of pictures that must fail: none, a shifted one, and those of other signals.
#include "viz/displays/LiveDisplays.h"

#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"
#include "viz/analysis/StereoSignals.h"
#include "viz/displays/QVMGoniometer.h"
#include "viz/displays/QVMStereoscope.h"
#include "viz/sketches/RecordingSurface.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

constexpr int kSide = 240;
constexpr double kRate = 48000;

enum class Backend { cpu, gl };

#ifdef __SANITIZE_THREAD__ // reports from inside a software renderer's threads say nothing about this code
constexpr Backend kBackends[] = {Backend::cpu};
#else
constexpr Backend kBackends[] = {Backend::cpu, Backend::gl};
#endif

Image shifted(const Image& picture, int dx, int dy) {
    Image result = picture;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const int fromX = x - dx, fromY = y - dy;
            const bool isThere = fromX >= 0 && fromX < kSide && fromY >= 0 && fromY < kSide;
            result.pixels[static_cast<std::size_t>(y * kSide + x)] =
                isThere ? picture.pixels[static_cast<std::size_t>(fromY * kSide + fromX)] : 0;
        }
    }
    return result;
}

// Calls `f(x, y, alpha)` for every pixel, by its centre, y upwards from the bottom.
template <class F>
double sumOver(const Image& picture, F&& f) {
    double sum = 0;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            sum += f(x + 0.5, kSide - y - 0.5, picture.pixels[static_cast<std::size_t>(y * kSide + x)] >> 24);
    return sum / 255;
}
double lightOf(const Image& picture) {
    return sumOver(picture, [](double, double, double alpha) { return alpha; });
}

class LiveDisplayPicture : public testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        std::string problem;
        if (GetParam() == Backend::cpu) surface = std::make_unique<CpuDrawingSurface>();
        if (GetParam() == Backend::gl) surface = GlDrawingSurface::make(GlRenderer::any, problem);
        ASSERT_NE(surface, nullptr) << problem;
    }
    template <class Draw>
    Image picture(Draw&& draw) {
        surface->begin({kSide, kSide}, 1);
        draw(*surface);
        Image result;
        EXPECT_TRUE(surface->finish(result));
        return result;
    }
    Image goniometer(Signal signal) {
        QVMGoniometer display;
        display.init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
        SignalSource source(signal, kRate);
        play(
            source, kRate, 90, [&](auto& block, unsigned n) { display.processAudio(&block, n, false); },
            [&](float dt) { display.prepareForDrawing(dt); });
        return picture([&](DrawingSurface& s) { display.glDraw(s, displayCanvas().sketch.color); });
    }
    Image stereoscope(Signal signal) {
        QVMStereoscope display;
        display.init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
        SignalSource source(signal, kRate);
        play(
            source, kRate, 90, [&](auto& block, unsigned n) { display.processAudio(&block, n); },
            [&](float dt) { display.prepareForDrawing(dt); });
        return picture([&](DrawingSurface& s) { display.glDraw(s); });
    }
    // Whether `holds` is true of the picture of `of` and of no other one.
    void expectOnly(Signal of, const std::function<Image(Signal)>& make,
                    const std::function<bool(const Image&)>& holds) {
        const Image right = make(of);
        EXPECT_TRUE(holds(right));
        EXPECT_FALSE(holds(picture([](DrawingSurface&) {}))) << "blank";
        // Along a line, a shift changes little.
        EXPECT_FALSE(holds(shifted(right, 14, 0)) && holds(shifted(right, 0, -14))) << "shifted";
        for (const NamedSignal& other : kSignals) {
            const bool isSameKind = other.signal == Signal::sine && of == Signal::mono;
            if (other.signal == of || isSameKind) continue;
            EXPECT_FALSE(holds(make(other.signal))) << other.name;
        }
    }

    std::unique_ptr<DrawingSurface> surface;
};
INSTANTIATE_TEST_SUITE_P(Backends, LiveDisplayPicture, testing::ValuesIn(kBackends),
                         [](const auto& test) { return test.param == Backend::cpu ? "cpu" : "gl"; });

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

TEST_P(LiveDisplayPicture, TheGoniometerDrawsMonoUpright) {
    expectOnly(
        Signal::mono, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, 0, 1); });
    EXPECT_TRUE(isLineThroughTheMiddle(goniometer(Signal::sine), 0, 1));
}

TEST_P(LiveDisplayPicture, TheGoniometerDrawsOppositePhasesFlat) {
    expectOnly(
        Signal::opposite, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, 1, 0); });
}

TEST_P(LiveDisplayPicture, TheGoniometerLeansToTheSideThatSoundsAlone) {
    expectOnly(
        Signal::left, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, -1, 1); });
    expectOnly(
        Signal::right, [this](Signal s) { return goniometer(s); },
        [](const Image& p) { return isLineThroughTheMiddle(p, 1, 1); });
}

TEST_P(LiveDisplayPicture, TheGoniometerDrawsIndependentSidesAsACloud) {
    expectOnly(
        Signal::wide, [this](Signal s) { return goniometer(s); }, isCloud);
}

TEST_P(LiveDisplayPicture, TheGoniometerDrawsNothingForSilence) {
    EXPECT_EQ(lightOf(goniometer(Signal::silence)), 0);
}

// The stereoscope's light by direction, in nine sectors of equal angle from hard left to hard right, as shares, and
// what lies beyond the half disc.
struct Directions {
    double light = 0, outside = 0;
    std::array<double, 9> sectors{};
};
Directions directionsOf(const Image& picture) {
    Directions result;
    result.light = lightOf(picture);
    sumOver(picture, [&](double x, double y, double alpha) {
        const double position = std::atan2(x - kSide / 2.0, y) * 2 / std::numbers::pi;
        const auto sector = static_cast<std::size_t>(std::clamp((position + 1) * 4.5, 0.0, 8.0));
        result.sectors[sector] += alpha / 255 / result.light;
        if (std::hypot(x - kSide / 2.0, y) > kSide / 2.0) result.outside += alpha / 255;
        return 0.0;
    });
    return result;
}
// All light lies within three pixels of the ray in a direction, which is lit over most of its length.
bool isOnRay(const Image& picture, double position) {
    const double angle = position * std::numbers::pi / 2, dx = std::sin(angle), dy = std::cos(angle);
    double off = 0, light = lightOf(picture), before = 0;
    sumOver(picture, [&](double x, double y, double alpha) {
        const double along = (x - kSide / 2.0) * dx + y * dy, aside = (x - kSide / 2.0) * dy - y * dx;
        if (alpha > 8) off = std::max(off, std::abs(aside));
        if (alpha > 8 && along < 0) before += alpha;
        return 0.0;
    });
    return light > 100 && off < 3.5 && before == 0;
}
bool fillsTheHalfDisc(const Image& picture) {
    const Directions d = directionsOf(picture);
    return d.light > 8000 && d.outside < 20 && d.sectors.front() > 0.03 && d.sectors.back() > 0.03;
}
// Most light in the middle, as much on both sides, little at the ends.
bool isSpreadAroundTheMiddle(const Image& picture) {
    const Directions d = directionsOf(picture);
    const double left = d.sectors[0] + d.sectors[1] + d.sectors[2], right = d.sectors[6] + d.sectors[7] + d.sectors[8];
    return d.light > 4000 && d.outside < 20 && std::abs(left - right) < 0.06 && d.sectors[3] > 0.1 &&
           d.sectors[5] > 0.1 && d.sectors.front() < 0.03 && d.sectors.back() < 0.03 && left > 0.05;
}

// What a display is given are the sides: middle and difference would stand upright.
TEST(GoniometerDisplay, TakesItsSoundAsLeftAndRight) {
    for (const Signal signal : {Signal::left, Signal::right}) {
        const std::unique_ptr<LiveDisplay> display = makeGoniometerDisplay();
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

TEST_P(LiveDisplayPicture, TheStereoscopeDrawsMonoUpright) {
    expectOnly(
        Signal::mono, [this](Signal s) { return stereoscope(s); },
        [](const Image& p) { return isOnRay(p, 0) && !isOnRay(p, 0.1); });
}

TEST_P(LiveDisplayPicture, TheStereoscopeDrawsOneSideAloneAtItsEnd) {
    expectOnly(
        Signal::left, [this](Signal s) { return stereoscope(s); }, [](const Image& p) { return isOnRay(p, -1); });
    expectOnly(
        Signal::right, [this](Signal s) { return stereoscope(s); }, [](const Image& p) { return isOnRay(p, 1); });
}

TEST_P(LiveDisplayPicture, TheStereoscopeFillsItsHalfDiscWithOppositePhases) {
    expectOnly(
        Signal::opposite, [this](Signal s) { return stereoscope(s); }, fillsTheHalfDisc);
}

TEST_P(LiveDisplayPicture, TheStereoscopeSpreadsIndependentSidesAroundTheMiddle) {
    expectOnly(
        Signal::wide, [this](Signal s) { return stereoscope(s); }, isSpreadAroundTheMiddle);
}

TEST_P(LiveDisplayPicture, TheStereoscopeDrawsNothingForSilence) {
    EXPECT_EQ(lightOf(stereoscope(Signal::silence)), 0);
}

TEST_P(LiveDisplayPicture, TheStereoscopeDrawsASineOnItsFrequencysRing) {
    QVMStereoscope rings;
    rings.init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
    const auto isOnRing = [&](const Image& p) { // all of the brightest pixels
        double brightest = 0, low = kSide, high = 0;
        sumOver(p, [&](double, double, double alpha) { return brightest = std::max(brightest, alpha); });
        sumOver(p, [&](double x, double y, double alpha) {
            const double distance = std::hypot(x - kSide / 2.0, y);
            if (alpha > 0.9 * brightest) low = std::min(low, distance), high = std::max(high, distance);
            return 0.0;
        });
        const double radius = double{rings.radiusOf(440)};
        return brightest > 100 && low > radius - 4 && high < radius + 4;
    };
    const Image sine = stereoscope(Signal::sine);
    EXPECT_TRUE(isOnRing(sine));
    EXPECT_FALSE(isOnRing(shifted(sine, 0, -14)));
    EXPECT_FALSE(isOnRing(stereoscope(Signal::mono)));
}

// Sides in phase have the sketch's hue, opposite ones the other: this one is blue.
TEST_P(LiveDisplayPicture, TheStereoscopeShowsOppositePhasesInTheOppositeHue) {
    const auto sumOfPart = [](const Image& p, int shift) {
        double sum = 0;
        for (const std::uint32_t pixel : p.pixels)
            sum += pixel >> shift & 255;
        return sum;
    };
    const Image mono = stereoscope(Signal::mono), opposite = stereoscope(Signal::opposite);
    EXPECT_GT(sumOfPart(mono, 0), 1.5 * sumOfPart(mono, 16));
    EXPECT_GT(sumOfPart(opposite, 16), 1.5 * sumOfPart(opposite, 0));
}

// The audio says how much time has gone by, not the clock on the wall.
TEST_P(LiveDisplayPicture, AStalledMachineDrawsTheSamePictures) {
    for (const LiveDisplayEntry& entry : LiveDisplays) {
        Image pictures[2];
        for (const bool isStalled : {false, true}) {
            const std::unique_ptr<LiveDisplay> display = entry.make();
            display->init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
            SignalSource source(Signal::sine, kRate);
            int frames = 0;
            play(
                source, kRate, 40, [&](auto& block, unsigned n) { display->processAudio(block, n); },
                [&](float dt) {
                    if (isStalled && ++frames % 20 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(120));
                    display->prepareForDrawing(dt);
                });
            pictures[isStalled ? 1 : 0] = picture([&](DrawingSurface& s) { display->draw(s); });
        }
        EXPECT_GT(lightOf(pictures[0]), 0) << entry.name;
        EXPECT_EQ(pictures[0].pixels, pictures[1].pixels) << entry.name;
    }
}

// A display that waits for the audio goes back to rest by its own time.
TEST_P(LiveDisplayPicture, WithoutAudioTheReductionGoesBackToRest) {
    const std::unique_ptr<LiveDisplay> display = makeGRHistoryDisplay();
    display->init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
    const auto drawn = [&] { return picture([&](DrawingSurface& s) { display->draw(s); }); };
    const double atRest = [&] {
        for (int i = 0; i < 600; ++i)
            display->prepareForDrawing(kFrame);
        return lightOf(drawn());
    }();
    SignalSource source(Signal::sine, kRate);
    play(
        source, kRate, 60, [&](auto& block, unsigned n) { display->processAudio(block, n); },
        [&](float dt) { display->prepareForDrawing(dt); });
    EXPECT_GT(lightOf(drawn()), 1.5 * atRest);
    for (int i = 0; i < 600; ++i)
        display->prepareForDrawing(kFrame);
    EXPECT_NEAR(lightOf(drawn()), atRest, 0.02 * atRest);
}

TEST_P(LiveDisplayPicture, EveryDisplayDrawsEverySignalAndItsBackgroundForSilence) {
    for (const LiveDisplayEntry& entry : LiveDisplays) {
        for (const NamedSignal& named : kSignals) {
            const auto shown = [&](Signal signal) {
                const std::unique_ptr<LiveDisplay> display = entry.make();
                display->init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
                SignalSource source(signal, kRate);
                play(
                    source, kRate, 40, [&](auto& block, unsigned n) { display->processAudio(block, n); },
                    [&](float dt) { display->prepareForDrawing(dt); });
                return picture([&](DrawingSurface& s) { display->draw(s); });
            };
            const Image silent = shown(Signal::silence), loud = shown(named.signal);
            EXPECT_GT(lightOf(silent), 10) << entry.name;
            EXPECT_NE(silent.pixels, loud.pixels) << entry.name << ", " << named.name;
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
