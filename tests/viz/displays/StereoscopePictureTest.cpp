// What the stereoscope draws for signals of which theory says what they look like.
#include "LiveDisplayFixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace QVM_NAMESPACE {
namespace {

using StereoscopePicture = LiveDisplayPicture;
INSTANTIATE_TEST_SUITE_P(Backends, StereoscopePicture, testing::ValuesIn(kBackends), nameOfBackend);

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

TEST_P(StereoscopePicture, TheStereoscopeDrawsMonoUpright) {
    expectOnly(
        Signal::mono, [this](Signal s) { return stereoscope(s); },
        [](const Image& p) { return isOnRay(p, 0) && !isOnRay(p, 0.1); });
}

TEST_P(StereoscopePicture, TheStereoscopeDrawsOneSideAloneAtItsEnd) {
    expectOnly(
        Signal::left, [this](Signal s) { return stereoscope(s); }, [](const Image& p) { return isOnRay(p, -1); });
    expectOnly(
        Signal::right, [this](Signal s) { return stereoscope(s); }, [](const Image& p) { return isOnRay(p, 1); });
}

TEST_P(StereoscopePicture, TheStereoscopeFillsItsHalfDiscWithOppositePhases) {
    expectOnly(
        Signal::opposite, [this](Signal s) { return stereoscope(s); }, fillsTheHalfDisc);
}

TEST_P(StereoscopePicture, TheStereoscopeSpreadsIndependentSidesAroundTheMiddle) {
    expectOnly(
        Signal::wide, [this](Signal s) { return stereoscope(s); }, isSpreadAroundTheMiddle);
}

TEST_P(StereoscopePicture, TheStereoscopeDrawsNothingForSilence) {
    EXPECT_EQ(lightOf(stereoscope(Signal::silence)), 0);
}

TEST_P(StereoscopePicture, TheStereoscopeDrawsASineOnItsFrequencysRing) {
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
TEST_P(StereoscopePicture, TheStereoscopeShowsOppositePhasesInTheOppositeHue) {
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

} // namespace
} // namespace QVM_NAMESPACE
