#include "tools/render/UnitChain.h"

#include "unit/QVM0015_AudioUnit.h"

#include <algorithm>
#include <array>
#include <cstdint>

#ifdef __SSE2__
#include <xmmintrin.h>
#endif

namespace QVM_NAMESPACE {
namespace render {

namespace {

constexpr std::size_t stretch = 1024; // frames

// The processor's mode in which the plug-in renders: numbers too small to be normal ones count as 0, in and out.
class SmallestAreZero {
public:
#ifdef __SSE2__
    SmallestAreZero() : before_(_mm_getcsr()) {
        constexpr unsigned flushResults = 0x8000, flushOperands = 0x0040;
        _mm_setcsr(before_ | flushResults | flushOperands);
    }
    ~SmallestAreZero() {
        _mm_setcsr(before_);
    }
    SmallestAreZero(const SmallestAreZero&) = delete;
    SmallestAreZero& operator=(const SmallestAreZero&) = delete;

private:
    unsigned before_;
#endif
};

} // namespace

UnitChain::UnitChain(const ChosenSettings& settings, int channels, double sampleRateHz, SampleWidth width)
    : channels_(static_cast<std::size_t>(channels)), width_(width) {
    for (std::size_t first = 0; first < channels_; first += 2) {
        auto& unit = *units_.emplace_back(std::make_unique<QVM0015_AudioUnit>());
        settings.applyTo(unit);
        const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(channels_ - first, 2));
        unit.prepare(sampleRateHz, stretch, count, count); // everything stands at its target
    }
}

UnitChain::~UnitChain() = default;

void UnitChain::process(std::span<double> interleaved) {
    const std::size_t step = stretch * channels_;
    for (std::size_t at = 0; at < interleaved.size(); at += step) {
        const auto part = interleaved.subspan(at, std::min(step, interleaved.size() - at));
        for (std::size_t i = 0; i < units_.size(); ++i) {
            const std::size_t count = std::min<std::size_t>(channels_ - 2 * i, 2);
            if (width_ == SampleWidth::single) {
                processPair<float>(*units_[i], part, 2 * i, count);
            } else {
                processPair<double>(*units_[i], part, 2 * i, count);
            }
        }
    }
}

template <class Sample>
void UnitChain::processPair(QVM0015_AudioUnit& unit, std::span<double> interleaved, std::size_t first,
                            std::size_t count) {
    std::array<std::array<Sample, stretch>, 2> samples;
    const std::size_t frames = interleaved.size() / channels_;
    for (std::size_t channel = 0; channel < count; ++channel) {
        for (std::size_t i = 0; i < frames; ++i)
            samples[channel][i] = static_cast<Sample>(interleaved[i * channels_ + first + channel]);
    }
    const std::array<Sample*, 2> channels = {samples[0].data(), samples[1].data()};
    {
        const SmallestAreZero mode;
        unit.process(channels.data(), channels.data(), static_cast<std::uint32_t>(frames));
    }
    for (std::size_t channel = 0; channel < count; ++channel) {
        for (std::size_t i = 0; i < frames; ++i)
            interleaved[i * channels_ + first + channel] = static_cast<double>(samples[channel][i]);
    }
}

} // namespace render
} // namespace QVM_NAMESPACE
