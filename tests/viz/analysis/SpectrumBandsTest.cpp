#include "viz/analysis/SpectrumBands.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

// What each band has of one bin, or of all.
std::vector<float> of(const SpectrumBands& spectrum, const std::vector<float>& powers) {
    std::vector<float> out(bands::count);
    spectrum.add(powers.data(), out.data());
    return out;
}
std::vector<float> only(std::size_t bin, std::size_t bins) {
    std::vector<float> powers(bins);
    powers[bin] = 1;
    return powers;
}

TEST(SpectrumBands, SpanTheCurvesBand) {
    EXPECT_EQ(bands::hertz(0), model::lowestHertz);
    EXPECT_NEAR(bands::hertz(24) / bands::hertz(0), 2, 1e-12);
    EXPECT_LE(bands::hertz(bands::count - 1), model::highestHertz);
    EXPECT_GT(bands::hertz(bands::count), model::highestHertz);
}

TEST(SpectrumBands, AreASixthOfAnOctaveWideBetweenTheHalves) {
    const SpectrumBands spectrum(1, 24000, 0, 0);
    const std::vector<float> found = of(spectrum, only(1000, 24000));
    for (std::size_t i = 0; i < bands::count; ++i) {
        const double octaves = std::abs(std::log2(bands::hertz(i) / 1000));
        if (octaves < 0.04) {
            EXPECT_EQ(found[i], 1) << octaves;
        } else if (octaves < 1.0 / 12 - 0.004) {
            EXPECT_GT(found[i], 0.5) << octaves;
        } else if (octaves > 0.13) {
            EXPECT_EQ(found[i], 0) << octaves;
        } else if (octaves > 1.0 / 12 + 0.004) {
            EXPECT_LT(found[i], 0.5) << octaves;
        }
    }
}

TEST(SpectrumBands, OfEqualBinsRiseByThreeDecibelsAnOctave) {
    const SpectrumBands spectrum(5, 4800, 0, 0);
    const std::vector<float> found = of(spectrum, std::vector<float>(4800, 1.0f));
    for (std::size_t i = 0; i < bands::count; ++i) {
        const double hertz = bands::hertz(i);
        if (hertz < 5 * SpectrumBands::leastBins || hertz > 20000) continue;
        const double width = hertz * std::log(2.0) / 6 / 5; // in bins
        EXPECT_NEAR(10 * std::log10(double{found[i]} / width), 0, 0.1) << hertz;
    }
}

TEST(SpectrumBands, TwoTransformsHandOverWithoutAGapOrAnOverlap) {
    const SpectrumBands upper(4, 6000, 500, 0), lower(4, 6000, 0, 500), all(4, 6000, 0, 0);
    const std::vector<float> flat(6000, 1.0f);
    const std::vector<float> expected = of(all, flat);
    std::vector<float> sum = of(upper, flat);
    EXPECT_EQ(sum[160], 0) << "at " << bands::hertz(160);
    lower.add(flat.data(), sum.data());
    for (std::size_t i = 0; i < bands::count; ++i)
        EXPECT_NEAR(sum[i], expected[i], 1e-4 * expected[i]) << i;
}

TEST(SpectrumBands, LeaveOutWhatStandsStillAndWhatABinCannotBe) {
    const SpectrumBands spectrum(100, 100, 0, 0); // up to 10 kHz
    const std::vector<float> still = of(spectrum, only(0, 100)), first = of(spectrum, only(1, 100));
    for (std::size_t i = 0; i < bands::count; ++i)
        EXPECT_EQ(still[i] + first[i], 0) << "an offset reaches the first bin";
    EXPECT_EQ(of(spectrum, std::vector<float>(100, 1.0f)).back(), 0) << "beyond half of the rate";
}

} // namespace
} // namespace QVM_NAMESPACE
