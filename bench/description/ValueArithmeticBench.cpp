#include "BenchValues.h"

#include <benchmark/benchmark.h>

namespace QVM_NAMESPACE {
namespace {

// Applies an operation to every value in turn and reports the time of one.
template <typename Operation>
void MeasureEach(benchmark::State& state, Operation operation) {
    const QVMParameter& parameter = *GetParameter(static_cast<std::uint32_t>(state.range(0)));
    const auto values = BenchValues(parameter);
    state.SetLabel(parameter.codesafeName);
    for (auto _ : state) {
        for (const float value : values)
            benchmark::DoNotOptimize(operation(parameter, value));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void BM_Cast(benchmark::State& state) {
    MeasureEach(state, [](const QVMParameter& parameter, float value) { return parameter.castValue(value); });
}

void BM_ReverseCast(benchmark::State& state) {
    MeasureEach(state, [](const QVMParameter& parameter, float value) { return parameter.reverseCastValue(value); });
}

void BM_NormalizeFine(benchmark::State& state) {
    MeasureEach(state, [](const QVMParameter& parameter, float value) {
        return parameter.normalizeFloatValue(value, QVMGranularityFine);
    });
}

void BM_NormalizeCoarse(benchmark::State& state) {
    MeasureEach(state, [](const QVMParameter& parameter, float value) {
        return parameter.normalizeFloatValue(value, QVMGranularityCoarse);
    });
}

void BM_Position(benchmark::State& state) {
    MeasureEach(state,
                [](const QVMParameter& parameter, float value) { return parameter.percentageFromFloatValue(value); });
}

void BM_FromPosition(benchmark::State& state) {
    MeasureEach(state, [](const QVMParameter& parameter, float value) {
        const float position = (value - parameter.minValue) / parameter.valueRange();
        return parameter.normalizedFloatValueFromPercent(position, QVMGranularityFine);
    });
}

void BM_Cycle(benchmark::State& state) {
    MeasureEach(state,
                [](const QVMParameter& parameter, float value) { return parameter.floatValueAfter(value, true); });
}

void EachKind(benchmark::internal::Benchmark* benchmark) {
    for (const std::int64_t pid : kBenchPids)
        benchmark->Arg(pid);
}

BENCHMARK(BM_Cast)->Apply(EachKind);
BENCHMARK(BM_ReverseCast)->Apply(EachKind);
BENCHMARK(BM_NormalizeFine)->Apply(EachKind);
BENCHMARK(BM_NormalizeCoarse)->Apply(EachKind);
BENCHMARK(BM_Position)->Apply(EachKind);
BENCHMARK(BM_FromPosition)->Apply(EachKind);
BENCHMARK(BM_Cycle)->Apply(EachKind);

} // namespace
} // namespace QVM_NAMESPACE
