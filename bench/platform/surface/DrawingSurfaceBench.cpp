// Pictures like the product's, on both back ends, at scale 1 and 2.
#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

enum Backend : int { cpu, gl };

std::unique_ptr<DrawingSurface> makeSurface(benchmark::State& state) {
    if (state.range(0) == cpu) {
        state.SetLabel("CPU");
        return std::make_unique<CpuDrawingSurface>();
    }
    std::string problem;
    auto surface = GlDrawingSurface::make(GlRenderer::any, problem);
    if (surface)
        state.SetLabel(surface->rendererName());
    else
        state.SkipWithError(problem.c_str());
    return surface;
}

template <class Draw>
void pictures(benchmark::State& state, Size size, Draw&& draw) {
    const auto surface = makeSurface(state);
    if (!surface) return;
    Image image;
    for (auto _ : state) {
        surface->begin(size, static_cast<double>(state.range(1)));
        draw(*surface);
        surface->finish(image);
        benchmark::DoNotOptimize(image.pixels.data());
    }
}

void BM_EmptyPicture(benchmark::State& state) {
    pictures(state, {54, 62}, [](DrawingSurface&) {});
}

// A response curve over a grid and a dashed line, one point a pixel.
void BM_Curve(benchmark::State& state, Size size) {
    const auto points = static_cast<int>(size.width) * static_cast<int>(state.range(1));
    std::vector<Vertex> curve;
    for (int i = 0; i < points; ++i) {
        const float x = -1 + 2 * static_cast<float>(i) / static_cast<float>(points - 1);
        curve.push_back({x, 0.8f * std::tanh(4 * x)});
    }
    pictures(state, size, [&](DrawingSurface& s) {
        s.setProjection(-1, 1, -1, 1);
        s.drawLineStrip(std::vector<Vertex>{{-1, 0.1f}, {1, 0.1f}}, {1, 4, 2}, Color{0.5f, 0.5f, 0.5f, 0.5f});
        for (const float y : {-0.8f, 0.8f})
            s.drawLineStrip(std::vector<Vertex>{{-1, y}, {1, y}}, {0.5f}, Color{0.5f, 0.5f, 0.5f, 0.5f});
        s.drawLineStrip(curve, {2}, Color::white(1));
    });
}

// Two bars side by side in a slider's track.
void BM_Meter(benchmark::State& state) {
    pictures(state, {97, 217}, [](DrawingSurface& s) {
        for (const float x : {42.5f, 48.5f}) {
            s.fillTriangles(std::vector<Vertex>{{x, 10}, {x + 6, 10}, {x, 180.3f}, {x + 6, 180.3f}},
                            TriangleMode::strip, Color{0, 0, 0, 0.25f});
        }
    });
}

void bothBackends(benchmark::internal::Benchmark* b) {
    for (const int backend : {cpu, gl})
        for (const int scale : {1, 2})
            b->Args({backend, scale});
}
BENCHMARK(BM_EmptyPicture)->Apply(bothBackends);
BENCHMARK_CAPTURE(BM_Curve, powerBox, Size{54, 62})->Apply(bothBackends);
BENCHMARK_CAPTURE(BM_Curve, compactForm, Size{200, 200})->Apply(bothBackends);
BENCHMARK(BM_Meter)->Apply(bothBackends);

} // namespace
} // namespace QVM_NAMESPACE
