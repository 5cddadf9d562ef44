#include "tools/render/UnitChain.h"

#include "tools/render/RenderFiles.h"
#include "unit/QVM0015_AudioUnit.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace QVM_NAMESPACE {
namespace render {
namespace {

constexpr double rateHz = 48000;

ChosenSettings preset(const std::string& name) {
    ChosenSettings settings;
    EXPECT_EQ(settings.choosePreset(name), "");
    return settings;
}

std::vector<double> doubles(const std::vector<float>& samples) {
    return {samples.begin(), samples.end()};
}

// What the unit makes of one or two channels of an interleaved sound, in blocks of random lengths.
template <class Sample>
std::vector<std::vector<double>> expected(const std::vector<double>& sound, std::size_t channels, std::size_t first,
                                          std::size_t count, unsigned seed) {
    QVM0015_AudioUnit unit;
    preset("Air").applyTo(unit);
    EXPECT_EQ(unit.prepare(rateHz, 64, static_cast<std::uint32_t>(count), static_cast<std::uint32_t>(count)), noErr);
    const std::size_t frames = sound.size() / channels;
    std::vector<std::vector<Sample>> samples(count, std::vector<Sample>(frames));
    for (std::size_t i = 0; i < frames * count; ++i)
        samples[i % count][i / count] = static_cast<Sample>(sound[i / count * channels + first + i % count]);
    std::minstd_rand random(seed);
    for (std::size_t at = 0; at < frames;) {
        const std::size_t block = std::min<std::size_t>(1 + random() % 700, frames - at);
        std::array<Sample*, 2> io{};
        for (std::size_t c = 0; c < count; ++c)
            io[c] = samples[c].data() + at;
        unit.process(io.data(), io.data(), static_cast<std::uint32_t>(block));
        at += block;
    }
    std::vector<std::vector<double>> result;
    for (const auto& channel : samples)
        result.emplace_back(channel.begin(), channel.end());
    return result;
}

TEST(UnitChain, IsTheUnitBitForBitAtEveryBlockSizeAndWidth) {
    const std::vector<double> sound = doubles(tones(2, 6001));
    for (const unsigned block : {1U, 77U, 1024U, 1025U, 6001U}) {
        for (const SampleWidth width : {SampleWidth::single, SampleWidth::twofold}) {
            const bool isSingle = width == SampleWidth::single;
            const auto wanted =
                isSingle ? expected<float>(sound, 2, 0, 2, block) : expected<double>(sound, 2, 0, 2, block);
            std::vector<double> rendered = sound;
            UnitChain chain(preset("Air"), 2, rateHz, width);
            for (std::size_t at = 0; at < rendered.size(); at += std::size_t{2} * block)
                chain.process(std::span(rendered).subspan(at, std::min<std::size_t>(2 * block, rendered.size() - at)));
            for (std::size_t i = 0; i < rendered.size(); ++i)
                ASSERT_EQ(rendered[i], wanted[i % 2][i / 2]) << block << " " << isSingle << " " << i;
        }
    }
}

TEST(UnitChain, PairsOfChannelsHaveAUnitEachAndALastOneHasAMonoUnit) {
    for (const std::size_t channels : {1U, 3U, 8U}) {
        const std::vector<double> sound = doubles(tones(static_cast<int>(channels), 2000));
        std::vector<double> rendered = sound;
        UnitChain chain(preset("Air"), static_cast<int>(channels), rateHz, SampleWidth::twofold);
        chain.process(rendered);
        for (std::size_t first = 0; first < channels; first += 2) {
            const std::size_t count = std::min<std::size_t>(channels - first, 2);
            const auto wanted = expected<double>(sound, channels, first, count, 3);
            for (std::size_t i = 0; i < 2000 * count; ++i)
                ASSERT_EQ(rendered[i / count * channels + first + i % count], wanted[i % count][i / count]) << channels;
        }
    }
}

TEST(UnitChain, InitialValuesPassEverySampleAtItsPlace) {
    std::vector<double> sound = doubles(tones(2, 3000));
    const std::vector<double> before = sound;
    UnitChain(ChosenSettings(), 2, rateHz, SampleWidth::twofold).process(sound);
    EXPECT_EQ(sound, before);
}

TEST(UnitChain, TheSmallestNumbersAreZeroInsideAndTheModeIsGivenBack) {
    std::vector<double> sound(2 * 48000 * 4);
    sound[0] = sound[1] = 1e-36; // rings down past the smallest normal number of 32 bits
    UnitChain(preset("Air"), 2, rateHz, SampleWidth::single).process(sound);
    for (const double sample : sound)
        ASSERT_TRUE(sample == 0 || std::abs(sample) >= std::numeric_limits<float>::min()) << sample;
    volatile double smallest = std::numeric_limits<double>::min();
    EXPECT_GT(smallest / 4, 0);
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
