#include "viz/displays/SpectrumTrace.h"

#include "viz/analysis/SpectrumBands.h"
#include "viz/analysis/SpectrumLevels.h"
#include "viz/sketches/QVMFreqResp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {
namespace {

constexpr float kBottom = SpectrumLevels::range.min;

std::vector<float> empty() {
    return std::vector<float>(bands::count, kBottom);
}
// A level in one band.
std::vector<float> peak(std::size_t band, float level) {
    std::vector<float> levels = empty();
    levels[band] = level;
    return levels;
}
int highestColumn(const SpectrumTrace& trace) {
    return static_cast<int>(std::ranges::min_element(trace.tops()) - trace.tops().begin());
}

TEST(SpectrumTrace, OfNothingLiesAtTheBottom) {
    const SpectrumTrace trace(empty(), 200, 100);
    EXPECT_TRUE(trace.isEmpty());
    EXPECT_EQ(trace.tops(), std::vector<float>(200, 100.0f));
    EXPECT_FALSE(SpectrumTrace(peak(150, -60), 200, 100).isEmpty());
}

TEST(SpectrumTrace, FrequenciesStandWhereTheCurveHasThem) {
    for (const int width : {200, 400, 600}) {
        QVMFreqResp curve;
        PBGLCanvas canvas;
        canvas.width = static_cast<float>(width);
        curve.init(canvas, 0.5f, {4, 24000}, {-7.5f, 7.5f}, 1);
        for (const std::size_t band : {60u, 130u, 191u, 280u}) {
            const auto hertz = static_cast<float>(bands::hertz(band));
            const auto above =
                static_cast<std::size_t>(std::ranges::lower_bound(curve.freqs(), hertz) - curve.freqs().begin());
            const float way = (hertz - curve.freqs()[above - 1]) / (curve.freqs()[above] - curve.freqs()[above - 1]);
            const float at = (std::lerp(curve.xs()[above - 1], curve.xs()[above], way) + 1) / 2;
            const float middle = static_cast<float>(highestColumn(SpectrumTrace(peak(band, -10), width, 100))) + 0.5f;
            EXPECT_NEAR(middle, at * static_cast<float>(width), 0.75) << hertz << " in " << width;
        }
    }
}

TEST(SpectrumTrace, LevelsStandOnTheAxis) {
    const auto topOf = [](float level) {
        return SpectrumTrace(std::vector<float>(bands::count, level), 200, 144).tops()[100];
    };
    EXPECT_FLOAT_EQ(topOf(0), 0);
    EXPECT_FLOAT_EQ(topOf(-36), 72);
    EXPECT_FLOAT_EQ(topOf(-72), 144);
    EXPECT_FLOAT_EQ(topOf(20), 0) << "no higher than the top";
    EXPECT_FLOAT_EQ(topOf(-100), 144) << "no lower than the bottom";
}

TEST(SpectrumTrace, ATonesHeightDoesNotDependOnTheSizeOfThePicture) {
    for (const int width : {54, 81, 108, 200}) // a pixel is a band or wider
        for (std::size_t band = 24; band < 300; ++band) {
            const SpectrumTrace trace(peak(band, -18), width, 72);
            EXPECT_NEAR(*std::ranges::min_element(trace.tops()), 18, 1e-3) << band << " in " << width;
        }
}

TEST(SpectrumTrace, DiffersFromOneThatLooksDifferent) {
    const SpectrumTrace trace(peak(150, -20), 200, 100);
    EXPECT_FALSE(trace.differsFrom(SpectrumTrace(peak(150, -20.1f), 200, 100))) << "by a seventh of a pixel";
    EXPECT_TRUE(trace.differsFrom(SpectrumTrace(peak(150, -20.3f), 200, 100)));
    EXPECT_TRUE(trace.differsFrom(SpectrumTrace(peak(156, -20), 200, 100)));
    EXPECT_TRUE(trace.differsFrom(SpectrumTrace(peak(150, -20), 100, 100)));
}

} // namespace
} // namespace QVM_NAMESPACE
