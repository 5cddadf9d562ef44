#include "tools/render/LoudnessMeter.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

#include <ebur128.h>
#include <sndfile.h>

namespace QVM_NAMESPACE {
namespace render {

namespace {

int placeOf(int code) {
    switch (code) {
    case SF_CHANNEL_MAP_MONO:
    case SF_CHANNEL_MAP_CENTER:
    case SF_CHANNEL_MAP_FRONT_CENTER:
        return EBUR128_CENTER;
    case SF_CHANNEL_MAP_LEFT:
    case SF_CHANNEL_MAP_FRONT_LEFT:
        return EBUR128_LEFT;
    case SF_CHANNEL_MAP_RIGHT:
    case SF_CHANNEL_MAP_FRONT_RIGHT:
        return EBUR128_RIGHT;
    case SF_CHANNEL_MAP_LFE:
        return EBUR128_UNUSED;
    case SF_CHANNEL_MAP_SIDE_LEFT:
        return EBUR128_Mp090;
    case SF_CHANNEL_MAP_SIDE_RIGHT:
        return EBUR128_Mm090;
    case SF_CHANNEL_MAP_REAR_LEFT:
        return EBUR128_Mp135;
    case SF_CHANNEL_MAP_REAR_RIGHT:
        return EBUR128_Mm135;
    case SF_CHANNEL_MAP_REAR_CENTER:
        return EBUR128_Mp180;
    default:
        return EBUR128_CENTER; // it counts, and no more than once
    }
}

// Where each channel stands in files without a map.
std::vector<int> usualPlaces(int channels) {
    constexpr int left = EBUR128_LEFT, right = EBUR128_RIGHT, centre = EBUR128_CENTER, low = EBUR128_UNUSED;
    constexpr int leftSurround = EBUR128_LEFT_SURROUND, rightSurround = EBUR128_RIGHT_SURROUND;
    switch (channels) {
    case 1:
        return {centre};
    case 2:
        return {left, right};
    case 3:
        return {left, right, centre};
    case 4:
        return {left, right, leftSurround, rightSurround};
    case 5:
        return {left, right, centre, leftSurround, rightSurround};
    case 6:
        return {left, right, centre, low, leftSurround, rightSurround};
    case 7:
        return {left, right, centre, low, EBUR128_Mp180, EBUR128_Mp090, EBUR128_Mm090};
    default:
        return {left, right, centre, low, EBUR128_Mp135, EBUR128_Mm135, EBUR128_Mp090, EBUR128_Mm090};
    }
}

// In a file of five channels and one of low frequencies, those behind are the surround ones, whatever the map calls
// them.
std::vector<int> places(int channels, std::span<const int> map) {
    if (map.size() != static_cast<std::size_t>(channels)) return usualPlaces(channels);
    std::vector<int> result(map.size());
    std::ranges::transform(map, result.begin(), placeOf);
    const bool hasSides = std::ranges::count(result, int{EBUR128_Mp090}) > 0;
    for (int& place : result) {
        if (hasSides) break;
        if (place == EBUR128_Mp135) place = EBUR128_LEFT_SURROUND;
        if (place == EBUR128_Mm135) place = EBUR128_RIGHT_SURROUND;
    }
    return result;
}

std::optional<double> finite(int status, double value) {
    return status == EBUR128_SUCCESS && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

double decibels(double amplitude) {
    return 20 * std::log10(amplitude);
}

void LoudnessMeter::Destroyer::operator()(ebur128_state* state) const {
    ebur128_destroy(&state);
}

LoudnessMeter::LoudnessMeter(int channels, int sampleRateHz, std::span<const int> channelMap, Measures measures)
    : channels_(static_cast<std::size_t>(channels)), peaks_(channels_, TruePeakMeter(sampleRateHz)) {
    if (measures == Measures::peaks) return;
    const auto count = static_cast<unsigned>(channels);
    state_.reset(ebur128_init(count, static_cast<unsigned long>(sampleRateHz), EBUR128_MODE_I | EBUR128_MODE_LRA));
    if (!state_) throw std::bad_alloc();
    const std::vector<int> map = places(channels, channelMap);
    for (unsigned channel = 0; channel < count; ++channel)
        ebur128_set_channel(state_.get(), channel, map[channel]);
}

LoudnessMeter::~LoudnessMeter() = default;

void LoudnessMeter::add(std::span<const double> interleaved) {
    if (interleaved.empty()) return;
    for (std::size_t channel = 0; channel < channels_; ++channel)
        peaks_[channel].add(interleaved.subspan(channel), channels_);
    if (state_) ebur128_add_frames_double(state_.get(), interleaved.data(), interleaved.size() / channels_);
}

Loudness LoudnessMeter::result() const {
    Loudness result;
    for (const TruePeakMeter& peak : peaks_) {
        result.samplePeak = std::max(result.samplePeak, peak.samplePeak());
        result.truePeak = std::max(result.truePeak, peak.truePeak());
    }
    if (!state_) return result;
    double value = 0;
    const int loudness = ebur128_loudness_global(state_.get(), &value);
    result.integratedLufs = finite(loudness, value);
    const int range = ebur128_loudness_range(state_.get(), &value);
    if (result.integratedLufs) result.rangeLu = finite(range, value);
    return result;
}

} // namespace render
} // namespace QVM_NAMESPACE
