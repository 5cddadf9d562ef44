#include "description/Description.h"
#include "description/QVMConfig.h"
#include "description/tables/RecordBuilder.h"

#include <benchmark/benchmark.h>

namespace QVM_NAMESPACE {
namespace {

// What the first editor of a process pays: every record from the tables.
void BM_BuildAllRecords(benchmark::State& state) {
    for (auto _ : state) {
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            QVMParameter parameter;
            tables::FillParameter(parameter, pid);
            benchmark::DoNotOptimize(parameter);
        }
        for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
            QVMClump clump;
            tables::FillClump(clump, cid);
            benchmark::DoNotOptimize(clump);
        }
        QVMMetadata metadata;
        tables::FillMetadata(metadata);
        benchmark::DoNotOptimize(metadata);
        QVMParameter presets;
        tables::FillPresets(presets);
        benchmark::DoNotOptimize(presets);
    }
}

// What every later editor pays.
void BM_BuildConfig(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(QVMConfig::inlinedConfig());
}

void BM_LookUpByCodename(benchmark::State& state) {
    const auto config = QVMConfig::inlinedConfig();
    for (auto _ : state)
        benchmark::DoNotOptimize(config->parameterForCodename("HQMode"));
}

void BM_PresetValues(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(PresetIndexToPresetValues(22));
}

BENCHMARK(BM_BuildAllRecords);
BENCHMARK(BM_BuildConfig);
BENCHMARK(BM_LookUpByCodename);
BENCHMARK(BM_PresetValues);

} // namespace
} // namespace QVM_NAMESPACE
