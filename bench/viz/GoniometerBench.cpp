#include "platform/surface/CpuDrawingSurface.h"
#include "viz/displays/QVMGoniometer.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>

namespace QVM_NAMESPACE {
namespace {

constexpr float kFrame = 1.0f / 60; // seconds

// A goniometer that is given a frame's worth of independent noise again and again, which makes the largest area.
struct Display {
    PBGLCanvas canvas;
    QVMGoniometer goniometer;
    QVMAudioBuffer<float> block{2};

    Display(std::int64_t rate, float scale) {
        canvas.width = canvas.height = 180;
        canvas.scale = scale;
        const auto frames = static_cast<unsigned>(rate / 60);
        goniometer.init(canvas, static_cast<float>(rate), frames);
        block.alloc(frames);
        std::mt19937 random(1);
        std::normal_distribution<float> values(0, 0.2f);
        std::generate_n(block.block.get(), std::size_t{frames} * 2, [&] { return values(random); });
    }
    void frame() {
        goniometer.processAudio(&block, block.capacity, false);
        goniometer.prepareForDrawing(kFrame);
    }
};

void BM_GoniometerFrame(benchmark::State& state) {
    Display display(state.range(0), 2);
    for (auto _ : state)
        display.frame();
    state.counters["points"] = static_cast<double>(display.goniometer.pointCount());
}

// The same, drawn on the processor.
void BM_GoniometerFrameDrawn(benchmark::State& state) {
    Display display(state.range(0), static_cast<float>(state.range(1)));
    CpuDrawingSurface surface;
    Image picture;
    for (auto _ : state) {
        display.frame();
        surface.begin({display.canvas.width, display.canvas.height}, display.canvas.scale);
        display.goniometer.glDraw(surface, {0.3f, 0.7f, 0.95f});
        surface.finish(picture);
    }
}

// What the render thread pays for a block of a sixtieth of a second.
void BM_GoniometerTakesABlock(benchmark::State& state) {
    Display display(state.range(0), 2);
    for (auto _ : state)
        display.goniometer.processAudio(&display.block, display.block.capacity, false);
}

BENCHMARK(BM_GoniometerFrame)->Arg(48000)->Arg(192000);
BENCHMARK(BM_GoniometerFrameDrawn)->ArgsProduct({{48000, 192000}, {1, 2}});
BENCHMARK(BM_GoniometerTakesABlock)->Arg(48000)->Arg(192000);

} // namespace
} // namespace QVM_NAMESPACE
