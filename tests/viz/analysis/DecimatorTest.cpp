#include "viz/analysis/Decimator.h"

#include "viz/analysis/SpectrumSignals.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

constexpr double kRate = 48000;
constexpr unsigned kFactor = 16;

// The loudest frame that stays of a tone of amplitude 1, after what the filter needs to settle.
double loudest(double hertz, std::size_t blockFrames = 512) {
    Decimator decimator(kFactor);
    const std::vector<float> tone = sounds::sine(hertz, 1, kRate, 48000);
    std::vector<float> kept;
    for (std::size_t at = 0; at < tone.size(); at += blockFrames) {
        const auto& out = decimator.process(&tone[at], &tone[at], std::min(blockFrames, tone.size() - at));
        kept.insert(kept.end(), out[0].begin(), out[0].end());
    }
    double found = 0;
    for (std::size_t i = 100; i < kept.size(); ++i)
        found = std::max(found, std::abs(double{kept[i]}));
    return found;
}

TEST(Decimator, KeepsOneFrameInSoMany) {
    Decimator decimator(kFactor);
    const std::vector<float> silence(48000);
    std::size_t kept = 0;
    for (std::size_t at = 0; at < 48000; at += 480)
        kept += decimator.process(&silence[at], &silence[at], 480)[1].size();
    EXPECT_EQ(kept, 3000u);
}

TEST(Decimator, PassesWhatIsBelowItsShareAsItWas) {
    const double end = Decimator::passedShare * kRate / kFactor;
    for (const double hertz : {20.7, 101.3, 503.1, 0.98 * end})
        EXPECT_NEAR(20 * std::log10(loudest(hertz)), 0, 0.02) << hertz;
}

TEST(Decimator, RemovesWhatWouldFoldIntoIt) {
    const double lowRate = kRate / kFactor, end = Decimator::passedShare * lowRate;
    for (const double hertz : {lowRate - 0.98 * end, lowRate + 100.0, 2 * lowRate - 50, 7333.0, 19000.0})
        EXPECT_LT(20 * std::log10(loudest(hertz)), -88) << hertz;
    EXPECT_GT(loudest(lowRate / 2 - 250), 0.5) << "it does hear";
}

TEST(Decimator, BlocksOfAnyLengthGiveTheSame) {
    EXPECT_EQ(loudest(300, 512), loudest(300, 7));
    EXPECT_EQ(loudest(300, 512), loudest(300, 48000));
}

TEST(Decimator, ForgetsWhatCame) {
    Decimator decimator(kFactor);
    const std::vector<float> loud(1000, 1.0f), silence(1000);
    decimator.process(loud.data(), loud.data(), loud.size());
    decimator.reset();
    for (const float sample : decimator.process(silence.data(), silence.data(), silence.size())[0])
        EXPECT_EQ(sample, 0);
}

TEST(Decimator, WithAFactorOfOneEverythingPasses) {
    Decimator decimator(1);
    const std::vector<float> tone = sounds::sine(5000, 0.5, kRate, 100);
    EXPECT_EQ(decimator.process(tone.data(), tone.data(), tone.size())[0], tone);
}

} // namespace
} // namespace QVM_NAMESPACE
