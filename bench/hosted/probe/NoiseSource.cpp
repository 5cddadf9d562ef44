#include "bench/hosted/probe/NoiseSource.h"

#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string>

namespace slantwise_bench {

NoiseSource::NoiseSource() : client_(jack_client_open("noise", JackNoStartServer, nullptr)) {
    if (!client_) throw std::runtime_error("no JACK server");
    for (std::size_t i = 0; i < outputs_.size(); ++i)
        outputs_[i] = jack_port_register(client_, ("out_" + std::to_string(i + 1)).c_str(), JACK_DEFAULT_AUDIO_TYPE,
                                         JackPortIsOutput, 0);
    jack_set_process_callback(client_, &process, this);
    jack_activate(client_);
}

NoiseSource::~NoiseSource() {
    jack_client_close(client_);
}

void NoiseSource::connect() {
    const char** const inputs = jack_get_ports(client_, nullptr, JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput);
    std::size_t next = 0;
    for (const char** input = inputs; input && *input && next < outputs_.size(); ++input) {
        if (!(jack_port_flags(jack_port_by_name(client_, *input)) & JackPortIsPhysical))
            jack_connect(client_, jack_port_name(outputs_[next++]), *input);
    }
    jack_free(inputs);
}

double NoiseSource::blocksPerSecond() const {
    return static_cast<double>(jack_get_sample_rate(client_)) / jack_get_buffer_size(client_);
}

int NoiseSource::process(jack_nframes_t frames, void* self) {
    static_cast<NoiseSource*>(self)->fill(frames);
    return 0;
}

void NoiseSource::fill(std::uint32_t frames) {
    const bool isPlaying = isPlaying_;
    phase_ = std::fmod(phase_ + 2 * std::numbers::pi * frames / jack_get_sample_rate(client_), 2 * std::numbers::pi);
    const double gain = isPlaying ? 0.25 - 0.24 * std::cos(phase_) : 0;
    for (jack_port_t* const output : outputs_) {
        auto* const samples = static_cast<float*>(jack_port_get_buffer(output, frames));
        for (std::uint32_t i = 0; i < frames; ++i) {
            random_ = random_ * 1664525U + 1013904223U;
            samples[i] = static_cast<float>(gain * (random_ / 2147483648.0 - 1));
        }
    }
}

} // namespace slantwise_bench
