// What a block costs on the render thread, on each way through the unit. Items are stereo frames.
#include "unit/QVM0015_AudioUnit.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

enum Way : std::int64_t { settled, ramping, switchedOff };

template <class Sample>
void processBlock(benchmark::State& state) {
    const auto frames = static_cast<std::uint32_t>(state.range(0));
    const auto way = static_cast<Way>(state.range(1));
    QVM0015_AudioUnit unit;
    if (unit.prepare(48000, frames, 2, 2) != noErr) return state.SkipWithError("format refused");
    unit.setParameter(pidMasterOnOff, kAudioUnitScope_Global, 0, way == switchedOff ? 0 : 1, 0);
    std::vector<Sample> left(frames), right(frames), outLeft(frames), outRight(frames);
    for (std::uint32_t i = 0; i < frames; ++i)
        left[i] = right[i] = static_cast<Sample>(std::sin(0.1 * i));
    const Sample* in[] = {left.data(), right.data()};
    Sample* out[] = {outLeft.data(), outRight.data()};
    float gainDb = -3;
    for (auto _ : state) {
        // A new target every block keeps the gain moving.
        if (way == ramping) unit.setParameter(pidOutputGain, kAudioUnitScope_Global, 0, gainDb = -9 - gainDb, 0);
        unit.process(in, out, frames);
        benchmark::DoNotOptimize(outLeft.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * frames);
}

void ways(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"frames", "way"});
    for (const std::int64_t frames : {64, 512}) {
        for (const Way way : {settled, ramping, switchedOff})
            bench->Args({frames, way});
    }
}

BENCHMARK_TEMPLATE(processBlock, float)->Apply(ways);
BENCHMARK_TEMPLATE(processBlock, double)->Apply(ways);

} // namespace
} // namespace QVM_NAMESPACE
