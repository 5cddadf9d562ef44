// A JACK client that plays noise which swells and fades every second into whatever takes it.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include <jack/jack.h>

namespace slantwise_bench {

class NoiseSource {
public:
    // Silent at first. Throws std::runtime_error when no server answers.
    NoiseSource();
    ~NoiseSource();
    NoiseSource(const NoiseSource&) = delete;
    NoiseSource& operator=(const NoiseSource&) = delete;

    // Plays into the first two inputs that another client has.
    void connect();
    void setPlaying(bool isPlaying) { isPlaying_ = isPlaying; }
    double blocksPerSecond() const;

private:
    static int process(jack_nframes_t frames, void* self);
    void fill(std::uint32_t frames);

    jack_client_t* client_;
    std::array<jack_port_t*, 2> outputs_{};
    std::atomic<bool> isPlaying_{false};
    std::uint32_t random_ = 1; // the audio thread's, as the next
    double phase_ = 0;         // of the swelling
};

} // namespace slantwise_bench
