// Signals and block-wise rendering for the tests of the audio path.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace signals {

template <class Sample>
using Channels = std::vector<std::vector<Sample>>;

template <class Sample>
std::vector<Sample> tone(std::size_t frames, double hertz, double amplitude, double rateHz = 48000) {
    std::vector<Sample> samples(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        samples[i] = static_cast<Sample>(amplitude * std::sin(6.283185307179586 * hertz / rateHz * double(i)));
    }
    return samples;
}

template <class Sample>
std::vector<Sample*> pointers(Channels<Sample>& channels) {
    std::vector<Sample*> result;
    for (auto& channel : channels)
        result.push_back(channel.data());
    return result;
}

// Renders `in` in blocks of `blockFrames`; `process` is called with pointers and the block's length.
template <class Sample, class Process>
Channels<Sample> render(Channels<Sample> in, std::size_t chanOut, std::size_t blockFrames, Process process) {
    const std::size_t frames = in.front().size();
    Channels<Sample> out(chanOut, std::vector<Sample>(frames, Sample(9)));
    std::vector<Sample*> inAt = pointers(in), outAt = pointers(out);
    for (std::size_t at = 0; at < frames; at += blockFrames) {
        const std::size_t count = std::min(blockFrames, frames - at);
        process(inAt.data(), outAt.data(), static_cast<std::uint32_t>(count));
        for (Sample*& channel : inAt)
            channel += count;
        for (Sample*& channel : outAt)
            channel += count;
    }
    return out;
}

// The largest step from one sample to the next.
template <class Sample>
double largestStep(const std::vector<Sample>& samples) {
    double largest = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        largest = std::max(largest, std::abs(double(samples[i]) - double(samples[i - 1])));
    }
    return largest;
}

} // namespace signals
