// The way of the audio through the unit: input, equaliser, output gain, master switch, output, and the peaks of what
// the level meter is to show.
//
// Blocks are worked off in short stretches whose inputs are all read before any output is written. So a block may be of
// any length, and inputs and outputs may be the same memory in any order. Render thread, except where a function says
// otherwise; nothing here allocates, locks or calls the system.
#pragma once

#include "unit/BypassFade.h"
#include "unit/GainRamp.h"
#include "unit/SignalListener.h"
#include "unit/dsp/Equaliser.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace QVM_NAMESPACE {

// What the level meter shows: the input, the output, or what the unit adds to the one to make the other.
enum class MeterMode : unsigned char { pre, post, difference };

// What the path plays with: the parameters, read once a block.
struct RenderSettings {
    double gain = 1; // amplitude
    BypassFade::Switch master = BypassFade::Switch::on;
    dsp::EqSettings equaliser{};
    MeterMode meter = MeterMode::post;
};

class RenderPath {
public:
    static constexpr std::uint32_t maxChannels = 2;

    // Not while a render call is running, and not on the render thread. Everything stands at its target at once; the
    // peaks are 0.
    void prepare(double sampleRateHz, std::uint32_t chanIn, std::uint32_t chanOut, const RenderSettings& settings);

    // `in` and `out` hold a pointer for each channel of the prepared configuration. A missing input is silence, a
    // missing output is left out. An output channel without an input of its own gets the last input. To the
    // equaliser, and in the processed signal, a sample that is no finite number is silence; a unit that is switched off
    // passes it on. `listener`, which may be null, hears it all.
    template <class Sample>
    void process(const Sample* const* in, Sample* const* out, std::uint32_t frames, const RenderSettings& settings,
                 SignalListener* listener = nullptr);

    // The largest absolute samples of the last block of what the level meter is to show, one for each output.
    std::span<const float> blockPeaks() const { return {blockPeaks_.data(), chanOut_}; }

private:
    static constexpr std::uint32_t stretch = 128; // frames
    template <class Sample>
    using Frames = std::array<std::array<Sample, stretch>, maxChannels>;

    template <class Sample>
    void read(const Sample* const* in, std::uint32_t offset, std::uint32_t frames, Frames<Sample>& dry);
    template <class Sample>
    void render(Frames<Sample>& signal, std::uint32_t frames, const RenderSettings& settings);
    template <class Sample>
    bool equalise(const Frames<Sample>& signal, std::uint32_t frames, const RenderSettings& settings);
    template <class Sample>
    void addPeaks(const Frames<Sample>& dry, const Frames<Sample>& wet, std::uint32_t frames, MeterMode mode);
    template <class Sample>
    void tell(SignalListener& listener, const Frames<Sample>& dry, const Frames<Sample>& wet, std::uint32_t frames);
    template <class Sample>
    void write(const Frames<Sample>& signal, Sample* const* out, std::uint32_t offset, std::uint32_t frames);

    std::uint32_t chanIn_ = 2;
    std::uint32_t chanOut_ = 2;
    GainRamp gain_;
    BypassFade bypass_;
    dsp::Equaliser equaliser_;
    bool isEqualising_ = false;                                      // it heard the signal up to now
    std::array<double, std::size_t{maxChannels} * stretch> pairs_{}; // the equaliser's work
    std::array<float, maxChannels> blockPeaks_{};                    // amplitudes
};

} // namespace QVM_NAMESPACE
