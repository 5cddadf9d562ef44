#include "tools/gallery/TestSignal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr double kSineSeconds = 1, kSineHz = 1000, kSineLevel = 0.5;
constexpr float kMiddleOfWide = 0.3f;

// What a signal makes of a sample of each side of the noise.
using Mix = void (*)(float& left, float& right);

void keep(float&, float&) {}
void toMono(float& left, float& right) {
    right = left;
}
void widen(float& left, float& right) {
    const float middle = kMiddleOfWide * (left + right) / 2, side = (left - right) / 2;
    left = middle + side;
    right = middle - side;
}
void invert(float& left, float& right) {
    right = -left;
}

AudioClip mixedNoise(double sampleRateHz, Mix mix) {
    AudioClip clip = pinkNoise(sampleRateHz);
    for (std::size_t i = 0; i < clip.frames(); ++i)
        mix(clip.channels[0][i], clip.channels[1][i]);
    return clip;
}

AudioClip sine(double sampleRateHz) {
    std::vector<float> tone(static_cast<std::size_t>(kSineSeconds * sampleRateHz));
    for (std::size_t i = 0; i < tone.size(); ++i) {
        const double phase = 2 * std::numbers::pi * kSineHz * static_cast<double>(i) / sampleRateHz;
        tone[i] = static_cast<float>(kSineLevel * std::sin(phase));
    }
    return {sampleRateHz, {tone, tone}};
}

struct NoiseSignal {
    std::string_view name;
    Mix mix;
};
constexpr std::array<NoiseSignal, 4> kNoises = {
    {{"noise", keep}, {"mono", toMono}, {"wide", widen}, {"antiphase", invert}}};
constexpr std::array<std::string_view, 5> kNames = {"sine", "noise", "mono", "wide", "antiphase"};

} // namespace

std::span<const std::string_view> testSignalNames() {
    return kNames;
}

std::optional<AudioClip> testSignal(std::string_view name, double sampleRateHz) {
    if (name == kNames.front()) return sine(sampleRateHz);
    const auto found = std::ranges::find(kNoises, name, &NoiseSignal::name);
    if (found == kNoises.end()) return std::nullopt;
    return mixedNoise(sampleRateHz, found->mix);
}

} // namespace QVM_NAMESPACE
