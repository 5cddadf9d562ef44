#include "description/ValueMapping.h"
#include "platform/surface/CpuDrawingSurface.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

PBGLCanvas meterCanvas(float scale) {
    PBGLCanvas canvas;
    canvas.sketch = PB_Sketches[1];
    canvas.sid = canvas.sketch.sid;
    canvas.parameter = PB_Parameters[pidOutputGain];
    canvas.width = canvas.sketch.outer.w;
    canvas.height = canvas.sketch.outer.h;
    canvas.scale = scale;
    return canvas;
}

// Levels that never settle: every frame looks different.
void move(QVMLevelMeter& meter, unsigned frame) {
    for (int i = 0; i < meter.numChannels(); ++i)
        meter.channel(i).level = frame % 2 ? -6.0f : -30.0f;
}

void BM_MeterFrame(benchmark::State& state) {
    const PBGLCanvas canvas = meterCanvas(2);
    QVM0015GLSketch sketch;
    sketch.init(canvas, 48000, 512);
    unsigned frame = 0;
    for (auto _ : state) {
        move(*sketch.levelMeter(), ++frame);
        benchmark::DoNotOptimize(sketch.prepareForDrawing(canvas, 1.0f / 60));
    }
}

// The same, drawn on the processor.
void BM_MeterFrameDrawn(benchmark::State& state) {
    const PBGLCanvas canvas = meterCanvas(static_cast<float>(state.range(0)));
    QVM0015GLSketch sketch;
    sketch.init(canvas, 48000, 512);
    CpuDrawingSurface surface;
    Image picture;
    unsigned frame = 0;
    for (auto _ : state) {
        move(*sketch.levelMeter(), ++frame);
        sketch.prepareForDrawing(canvas, 1.0f / 60);
        surface.begin({canvas.width, canvas.height}, canvas.scale);
        sketch.glDraw(canvas, surface);
        surface.finish(picture);
        benchmark::DoNotOptimize(picture.pixels.data());
    }
}

// What the render thread pays for a block of stereo audio.
void BM_MeterTakesABlock(benchmark::State& state) {
    QVMLevelMeter meter(meterCanvas(2), 2);
    const auto frames = static_cast<unsigned>(state.range(0));
    const std::vector<float> samples(frames, 0.25f);
    for (auto _ : state) {
        for (int i = 0; i < 2; ++i)
            meter.processAudio(samples.data(), frames, {-96, 12}, i);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(BM_MeterFrame);
BENCHMARK(BM_MeterFrameDrawn)->Arg(1)->Arg(2);
BENCHMARK(BM_MeterTakesABlock)->Arg(64)->Arg(512);

} // namespace
} // namespace QVM_NAMESPACE
