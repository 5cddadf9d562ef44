// The equaliser beside a parametric equaliser of another maker, in one process: nanoseconds a stereo frame.
//
// The peer is the LV2 plug-in that the environment variable SLANTWISE_PEER names, by default the four-band equaliser of
// the Debian package x42-plugins. Items are stereo frames; compare the two rows of one block length.
#include "bench/unit/Peer.h"
#include "description/Description.h"
#include "unit/QVM0015_AudioUnit.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

constexpr double rateHz = 48000;
constexpr int blocksRound = 64; // of an automated sweep

enum Way : std::int64_t { settled, automated };

struct Stereo {
    explicit Stereo(std::uint32_t frames) : left(frames), right(frames), outLeft(frames), outRight(frames) {
        for (std::uint32_t i = 0; i < frames; ++i) {
            left[i] = static_cast<float>(std::sin(0.05 * i) * 0.3);
            right[i] = static_cast<float>(std::sin(0.031 * i) * 0.3);
        }
    }
    std::vector<float> left, right, outLeft, outRight;
};

// A preset with tilt and both filters, and everything of it that glides in motion.
void ours(benchmark::State& state) {
    const auto frames = static_cast<std::uint32_t>(state.range(0));
    const bool moves = state.range(1) == automated;
    QVM0015_AudioUnit unit;
    const auto set = [&unit](std::uint32_t pid, float shown) {
        unit.setParameter(pid, kAudioUnitScope_Global, 0, GetParameter(pid)->reverseCastValue(shown), 0);
    };
    for (const auto& [pid, value] : {std::pair{1U, 6.0F}, {9U, 60.0F}, {10U, 12000.0F}, {15U, 3.0F}, {22U, 3.0F}})
        set(pid, value);
    if (unit.prepare(rateHz, frames, 2, 2) != noErr) return state.SkipWithError("format refused");
    Stereo audio(frames);
    const float* in[] = {audio.left.data(), audio.right.data()};
    float* out[] = {audio.outLeft.data(), audio.outRight.data()};
    int block = 0;
    for (auto _ : state) {
        if (moves) {
            const float phase = static_cast<float>(std::sin(6.2832 * (block++ % blocksRound) / blocksRound));
            set(pidTiltGain, 6 + phase);
            set(pidFilterRangeLow, 60 + 10 * phase);
            set(pidFilterRangeHigh, 12000 + 1000 * phase);
        }
        unit.process(in, out, frames);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * frames);
}

void peer(benchmark::State& state) {
    const auto frames = static_cast<std::uint32_t>(state.range(0));
    const char* const uri = std::getenv("SLANTWISE_PEER");
    bench::Peer plugin(uri ? uri : "http://gareus.org/oss/lv2/fil4#stereo", rateHz);
    if (!plugin.isThere()) return state.SkipWithError("no such plug-in; install x42-plugins");
    Stereo audio(frames);
    plugin.connect({audio.left.data(), audio.right.data()}, {audio.outLeft.data(), audio.outRight.data()});
    int block = 0;
    for (auto _ : state) {
        if (state.range(1) == automated)
            plugin.moveGains(static_cast<float>(6 * std::sin(6.2832 * (block++ % blocksRound) / blocksRound)));
        plugin.run(frames);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * frames);
}

void ways(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"frames", "automated"});
    for (const std::int64_t frames : {64, 1024}) {
        for (const Way way : {settled, automated})
            bench->Args({frames, way});
    }
}

BENCHMARK(ours)->Apply(ways);
BENCHMARK(peer)->Apply(ways);

} // namespace
} // namespace QVM_NAMESPACE
