// The vector routines against the same loop over the C library.
#include "platform/vector/VectorMath.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

template <class T>
std::vector<T> frequencies(std::size_t n) {
    std::vector<T> f(n);
    for (std::size_t i = 0; i < n; ++i)
        f[i] = static_cast<T>(4 * std::pow(6000.0, static_cast<double>(i) / static_cast<double>(n - 1)));
    return f;
}

template <class T, class F>
void run(benchmark::State& state, F&& f) {
    const auto n = static_cast<std::size_t>(state.range(0));
    const auto in = frequencies<T>(n);
    std::vector<T> out(n);
    for (auto _ : state) {
        f(in.data(), out.data(), n);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_Log(benchmark::State& state) {
    run<float>(state, [](const float* in, float* out, std::size_t n) { vectors::log(in, out, n); });
}
template <class T>
void BM_LogOfTheLibrary(benchmark::State& state) {
    run<T>(state, [](const T* in, T* out, std::size_t n) {
        for (std::size_t i = 0; i < n; ++i)
            out[i] = std::log(in[i]);
    });
}
void BM_Power(benchmark::State& state) {
    run<float>(state, [](const float* in, float* out, std::size_t n) { vectors::power(in, -1.7f, out, n); });
}
template <class T>
void BM_PowerOfTheLibrary(benchmark::State& state) {
    run<T>(state, [](const T* in, T* out, std::size_t n) {
        for (std::size_t i = 0; i < n; ++i)
            out[i] = std::pow(in[i], T(-1.7));
    });
}

#define POINTS Arg(54)->Arg(108)->Arg(1080)
BENCHMARK(BM_Log)->POINTS;
BENCHMARK(BM_LogOfTheLibrary<float>)->POINTS;
BENCHMARK(BM_LogOfTheLibrary<double>)->POINTS;
BENCHMARK(BM_Power)->POINTS;
BENCHMARK(BM_PowerOfTheLibrary<float>)->POINTS;
BENCHMARK(BM_PowerOfTheLibrary<double>)->POINTS;

} // namespace
} // namespace QVM_NAMESPACE
