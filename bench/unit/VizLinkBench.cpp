// What an open editor costs the render thread: a block's levels, and a parameter that it automates.
#include "description/ParameterIDs.h"
#include "unit/UnitParameters.h"
#include "unit/VizLink.h"

#include <benchmark/benchmark.h>

#include <array>

namespace QVM_NAMESPACE {
namespace {

struct OpenEditor {
    OpenEditor() {
        state.glide.sizeStates(QVMParameterCount);
        link.exchange(&state);
    }

    SharedState state;
    UnitParameters parameters;
    VizLink link{parameters};
};

void BM_PostLevels(benchmark::State& state) {
    OpenEditor editor;
    std::array peaks = {0.5f, 0.25f};
    for (auto _ : state) {
        benchmark::DoNotOptimize(peaks);
        editor.link.postLevels(peaks, 64.0 / 48000);
    }
}

void BM_PostParameter(benchmark::State& state) {
    OpenEditor editor;
    float gainDb = -3;
    for (auto _ : state) {
        editor.parameters.set(pidOutputGain, gainDb = -9 - gainDb);
        editor.link.parameterChanged(pidOutputGain);
    }
}

void BM_PostLevelsToNobody(benchmark::State& state) {
    UnitParameters parameters;
    VizLink link(parameters);
    std::array peaks = {0.5f, 0.25f};
    for (auto _ : state) {
        benchmark::DoNotOptimize(peaks);
        link.postLevels(peaks, 64.0 / 48000);
    }
}

BENCHMARK(BM_PostLevels);
BENCHMARK(BM_PostParameter);
BENCHMARK(BM_PostLevelsToNobody);

} // namespace
} // namespace QVM_NAMESPACE
