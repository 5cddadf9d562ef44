#include "BenchValues.h"
#include "description/ValueText.h"

#include <benchmark/benchmark.h>

namespace QVM_NAMESPACE {
namespace {

void BM_ValueString(benchmark::State& state) {
    const QVMParameter& parameter = *GetParameter(static_cast<std::uint32_t>(state.range(0)));
    const auto values = BenchValues(parameter);
    state.SetLabel(parameter.codesafeName);
    std::string text;
    std::optional<std::string> suffix;
    for (auto _ : state) {
        for (const float value : values) {
            parameter.valueString(&text, &suffix, value);
            benchmark::DoNotOptimize(text.data());
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void BM_CueText(benchmark::State& state) {
    const QVMParameter& output = *GetParameter(pidOutputGain);
    for (auto _ : state) {
        for (const float mark : output.displayTickmarks) {
            benchmark::DoNotOptimize(output.displayStringFromCueValue(mark));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(output.displayTickmarks.size()));
}

// All texts of the editor at once, as after a preset change.
void BM_AllValueStrings(benchmark::State& state) {
    std::string text;
    std::optional<std::string> suffix;
    for (auto _ : state) {
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            GetParameter(pid)->valueString(&text, &suffix, GetParameter(pid)->initialValue);
            benchmark::DoNotOptimize(text.data());
        }
    }
}

BENCHMARK(BM_ValueString)->Arg(1)->Arg(2)->Arg(6)->Arg(7);
BENCHMARK(BM_CueText);
BENCHMARK(BM_AllValueStrings);

} // namespace
} // namespace QVM_NAMESPACE
