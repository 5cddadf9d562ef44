// Loudness and peaks as EBU R 128 defines them; the loudness by the library for it.
#pragma once

#include "tools/render/TruePeakMeter.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include <ebur128.h>

namespace QVM_NAMESPACE {
namespace render {

struct Loudness {
    double samplePeak = 0;                // amplitude
    double truePeak = 0;                  // amplitude, between the samples as well
    std::optional<double> integratedLufs; // none of what is silent or shorter than 0.4 s
    std::optional<double> rangeLu;        // none where there is no loudness
};

// "-1.2", and "-Inf" for silence.
double decibels(double amplitude);

class LoudnessMeter {
public:
    enum class Measures : unsigned char { everything, peaks };

    // Channels are those of the file's own map where it has one (`channelMap` holds the sound-file library's codes),
    // otherwise in the usual order: left, right, centre, low frequencies, surround. What is of low frequencies does not
    // count for the loudness.
    LoudnessMeter(int channels, int sampleRateHz, std::span<const int> channelMap, Measures measures);
    ~LoudnessMeter();
    LoudnessMeter(const LoudnessMeter&) = delete;
    LoudnessMeter& operator=(const LoudnessMeter&) = delete;

    // Whole frames of finite samples.
    void add(std::span<const double> interleaved);
    Loudness result() const;

private:
    struct Destroyer {
        void operator()(ebur128_state* state) const;
    };

    std::size_t channels_;
    std::vector<TruePeakMeter> peaks_;                // by channel
    std::unique_ptr<ebur128_state, Destroyer> state_; // null where only peaks are measured
};

} // namespace render
} // namespace QVM_NAMESPACE
