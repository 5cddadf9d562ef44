// How many times faster than it plays a stereo file of a minute at 48 kHz is rendered, by one core: read, equalised,
// measured before and after, and written, on the disk that has the temporary files.
#include "description/Description.h"
#include "tools/render/RenderFile.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <vector>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

constexpr int rateHz = 48000, seconds = 60, channels = 2;

// White noise, 12 dB below full scale.
void writeNoise(const std::string& path, int format) {
    SF_INFO info{};
    info.samplerate = rateHz;
    info.channels = channels;
    info.format = format;
    SNDFILE* const file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) return;
    std::vector<float> samples(std::size_t{rateHz} * seconds * channels);
    std::uint32_t seed = 1;
    for (float& sample : samples) {
        seed = seed * 1664525u + 1013904223u;
        sample = (static_cast<float>(seed) / 2147483648.0f - 1) / 4;
    }
    sf_writef_float(file, samples.data(), std::int64_t{rateHz} * seconds);
    sf_close(file);
}

void renderMinute(benchmark::State& state, int format, bool normalises) {
    const auto folder = std::filesystem::temp_directory_path() / ("slantwise-bench-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    const FilePair files = {folder / "in", folder / "out"};
    writeNoise(files.input, format);
    RenderOptions options;
    options.force = true;
    if (normalises) options.normaliseDb = -1;
    if (const std::string wrong = options.settings.choosePreset("Air"); !wrong.empty())
        state.SkipWithError(wrong.c_str());
    RenderProgress progress = 0;
    for (auto _ : state) {
        const RenderResult result = renderFile(files, options, progress, [] { return false; });
        if (!result.isWritten()) state.SkipWithError(result.failure.c_str());
    }
    // Per second of the processor's, which the counter is divided by.
    state.counters["times_real_time"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * seconds, benchmark::Counter::kIsRate);
    std::filesystem::remove_all(folder);
}

BENCHMARK_CAPTURE(renderMinute, wav24, SF_FORMAT_WAV | SF_FORMAT_PCM_24, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(renderMinute, wavFloat, SF_FORMAT_WAV | SF_FORMAT_FLOAT, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(renderMinute, flac24, SF_FORMAT_FLAC | SF_FORMAT_PCM_24, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(renderMinute, wav24Normalised, SF_FORMAT_WAV | SF_FORMAT_PCM_24, true)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
