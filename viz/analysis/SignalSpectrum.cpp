#include "viz/analysis/SignalSpectrum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

// At 48 kHz, or the nearest power of two times that.
constexpr double kUsualRate = 48000;
constexpr unsigned kShortest = 2048, kDecimation = 16;
constexpr int kFewestOctaves = -4, kMostOctaves = 5; // of rates: below 3 kHz and above 1.5 MHz lengths stay
// At the lower rate, whatever that is: four and sixteen times as long as the shortest.
constexpr unsigned kMiddle = 4 * kShortest / kDecimation, kLongest = 16 * kShortest / kDecimation;

constexpr float kLoudest = 1e4f; // 80 dB above full scale

int octavesFor(double sampleRateHz) {
    const double octaves = std::round(std::log2(sampleRateHz / kUsualRate));
    return static_cast<int>(std::clamp(octaves, double{kFewestOctaves}, double{kMostOctaves}));
}

unsigned scaled(unsigned length, double sampleRateHz) {
    const int octaves = octavesFor(sampleRateHz);
    return octaves < 0 ? length >> -octaves : length << octaves;
}

} // namespace

SignalSpectrum::Transform::Transform(unsigned points, double rateHz, double fromHz, double toHz)
    : window_(points), transform_(points, QVMDFT2ComplexForward), left_(points), right_(points), real_(points),
      imaginary_(points), powers_(points / 2), bands_(rateHz / points, points / 2, fromHz, toHz) {
    reset();
    const double scale = std::sqrt(8.0 / 3) / points; // the sum of the squares is the reciprocal of the points
    for (unsigned i = 0; i < points; ++i)
        window_[i] = static_cast<float>(scale * (0.5 - 0.5 * std::cos(2 * std::numbers::pi * i / points)));
}

void SignalSpectrum::Transform::append(const float* left, const float* right, std::size_t frames) {
    // The buffer only carries the pointers: nothing is written through it.
    block_.channels = {const_cast<float*>(left), const_cast<float*>(right)}; // NOLINT
    heard_.append(block_, static_cast<unsigned>(frames));
}

void SignalSpectrum::Transform::addTo(float* powers) {
    const auto points = static_cast<unsigned>(window_.size());
    heard_.copyFrom(0, points, left_.data(), right_.data());
    for (unsigned i = 0; i < points; ++i) {
        left_[i] *= window_[i];
        right_[i] *= window_[i];
    }
    transform_.process(left_.data(), right_.data(), real_.data(), imaginary_.data());
    const auto squared = [this](std::size_t bin) {
        return real_[bin] * real_[bin] + imaginary_[bin] * imaginary_[bin];
    };
    for (std::size_t bin = 1; bin < powers_.size(); ++bin)
        powers_[bin] = squared(bin) + squared(points - bin);
    bands_.add(powers_.data(), powers);
}

SignalSpectrum::SignalSpectrum(double sampleRateHz)
    : decimator_(scaled(kDecimation, sampleRateHz)), powers_(bands::count) {
    const unsigned shortest = scaled(kShortest, sampleRateHz);
    const double lowRate = sampleRateHz / scaled(kDecimation, sampleRateHz);
    const double fromShort = SpectrumBands::leastBins * sampleRateHz / shortest;
    const double fromMiddle = SpectrumBands::leastBins * lowRate / kMiddle;
    transforms_[0] = std::make_unique<Transform>(shortest, sampleRateHz, fromShort, 0);
    transforms_[1] = std::make_unique<Transform>(kMiddle, lowRate, fromMiddle, fromShort);
    transforms_[2] = std::make_unique<Transform>(kLongest, lowRate, 0, fromMiddle);
}

void SignalSpectrum::reset() {
    decimator_.reset();
    for (const auto& transform : transforms_)
        transform->reset();
    std::ranges::fill(powers_, 0.0f);
    isNew_ = false;
}

void SignalSpectrum::take(const float* left, const float* right, std::size_t frames) {
    if (frames == 0) return;
    const std::array<const float*, 2> in = {left, right};
    for (std::size_t side = 0; side < 2; ++side) {
        taken_[side].resize(frames);
        std::transform(in[side], in[side] + frames, taken_[side].begin(),
                       [](float sample) { return std::abs(sample) <= kLoudest ? sample : 0; }); // NaN is not
    }
    const auto& slower = decimator_.process(taken_[0].data(), taken_[1].data(), frames);
    transforms_[0]->append(taken_[0].data(), taken_[1].data(), frames);
    for (std::size_t i = 1; i < transforms_.size(); ++i)
        transforms_[i]->append(slower[0].data(), slower[1].data(), slower[0].size());
    isNew_ = true;
}

std::span<const float> SignalSpectrum::powers() {
    if (!isNew_) return powers_;
    isNew_ = false;
    std::ranges::fill(powers_, 0.0f);
    for (const auto& transform : transforms_)
        transform->addTo(powers_.data());
    return powers_;
}

} // namespace QVM_NAMESPACE
