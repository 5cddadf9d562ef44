// The longest block of a storm of parameter changes against the mean: what a host must leave room for.
//
// Every block is timed by itself, by the thread's processor time. Compare the time that one block in a hundred or in a
// thousand exceeds with the mean; the longest one of all is also what else the machine did at that moment.
#include "description/Description.h"
#include "unit/QVM0015_AudioUnit.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <random>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

enum Storm : std::int64_t { gliding, leaping, listening };

double threadMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

// Gliding: corners, slopes and resonances move a little before every block. Leaping: every tenth block all of them go
// anywhere, and switches with them, so that fades follow each other. Listening: both filters, gliding.
void worstBlock(benchmark::State& state) {
    const auto frames = static_cast<std::uint32_t>(state.range(0));
    const auto storm = static_cast<Storm>(state.range(1));
    QVM0015_AudioUnit unit;
    const auto set = [&unit](std::uint32_t pid, float shown) {
        unit.setParameter(pid, kAudioUnitScope_Global, 0, GetParameter(pid)->reverseCastValue(shown), 0);
    };
    if (unit.prepare(48000, frames, 2, 2) != noErr) return state.SkipWithError("format refused");
    std::vector<float> left(frames), right(frames), outLeft(frames), outRight(frames);
    for (std::uint32_t i = 0; i < frames; ++i)
        left[i] = right[i] = static_cast<float>(std::sin(0.05 * i) * 0.3);
    const float* in[] = {left.data(), right.data()};
    float* out[] = {outLeft.data(), outRight.data()};
    std::mt19937 random(1);
    const auto uniform = [&random] { return static_cast<float>(random() % 65536) / 65536; };
    std::vector<double> times;
    for (auto _ : state) {
        const bool leaps = storm == leaping && times.size() % 10 == 0;
        const float far = storm == leaping ? (leaps ? 1.0F : 0.0F) : 0.1F;
        if (far > 0) {
            set(pidTiltGain, far * 18 * (uniform() * 2 - 1));
            set(pidFilterRangeLow, 60 * (1 + far * 50 * uniform()));
            set(pidFilterRangeHigh, 12000 / (1 + far * 20 * uniform()));
            set(pidFilterSlopeLow, 24 + far * 24 * uniform());
            set(pidFilterResonanceLow, 6 + far * 12 * uniform());
            set(pidFilterSlopeHigh, 24 + far * 24 * uniform());
            set(pidFilterResonanceHigh, 6 + far * 12 * uniform());
        }
        if (times.empty() && storm == listening) {
            set(pidFilterListenLow, 1);
            set(pidFilterListenHigh, 1);
        }
        if (leaps) {
            for (const std::uint32_t pid : {pidFilterListenLow, pidFilterListenHigh, pidHQMode})
                set(pid, static_cast<float>(random() % 2));
        }
        const double start = threadMicroseconds();
        unit.process(in, out, frames);
        times.push_back(threadMicroseconds() - start);
    }
    double sum = 0;
    for (const double time : times)
        sum += time;
    std::sort(times.begin(), times.end());
    const double mean = sum / static_cast<double>(times.size());
    const auto at = [&times](double share) {
        return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
    };
    state.counters["mean_us"] = mean;
    state.counters["p99_us"] = at(0.99);
    state.counters["p999_us"] = at(0.999);
    state.counters["longest_us"] = times.back();
    state.counters["p999_over_mean"] = at(0.999) / mean;
}

BENCHMARK(worstBlock)
    ->ArgNames({"frames", "storm"})
    ->ArgsProduct({{64, 1024}, {gliding, leaping, listening}})
    ->Iterations(20000);

} // namespace
} // namespace QVM_NAMESPACE
