// The audio ports of an instance of the toolkit's, which reads what it takes for connected.
//
// A host that leaves an input out is wrong by the format, and no reason to crash: such an input is silent. The toolkit
// lets an output be left out.
#pragma once

#include "BuildNamespace.h"

#include <lv2/core/lv2.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

class AudioPorts {
public:
    // Two inputs and two outputs, as the toolkit numbers them.
    static constexpr std::uint32_t count = 4, inputs = 2;

    // The handle is the descriptor's; both are borrowed.
    AudioPorts(const LV2_Descriptor& toolkit, LV2_Handle handle) : toolkit_(toolkit), handle_(handle) {}

    // `port` is below `count`; null for none. Never while `render` runs.
    void connect(std::uint32_t port, float* frames);
    // Calls `run(frames)` for the block: once, or where an input is silent for one piece after the other. Render
    // thread.
    template <class Run>
    void render(std::uint32_t frames, Run&& run);

private:
    bool isInputMissing() const {
        return std::find(ports_.begin(), ports_.begin() + inputs, nullptr) != ports_.begin() + inputs;
    }
    void connectFrom(std::uint32_t offset);

    static constexpr std::uint32_t pieceFrames = 256;
    const LV2_Descriptor& toolkit_;
    const LV2_Handle handle_;
    std::array<float*, count> ports_{}; // the host's
    std::array<float, pieceFrames> silence_{};
};

template <class Run>
void AudioPorts::render(std::uint32_t frames, Run&& run) {
    if (!isInputMissing()) return run(frames);
    for (std::uint32_t done = 0; done < frames; done += pieceFrames) {
        connectFrom(done);
        run(std::min(frames - done, pieceFrames));
    }
    connectFrom(0);
}

} // namespace QVM_NAMESPACE
