#include "platform/surface/CpuDrawingSurface.h"
#include "viz/displays/QVMStereoscope.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <fftw3.h>
#include <random>

namespace QVM_NAMESPACE {
namespace {

constexpr unsigned kBlock = 512;

PBGLCanvas canvas(float scale) {
    PBGLCanvas result;
    result.sketch.color = {0.3f, 0.7f, 0.95f};
    result.width = 240;
    result.height = 180;
    result.scale = scale;
    return result;
}

QVMAudioBuffer<float> noise(unsigned frames) {
    QVMAudioBuffer<float> buffer(2);
    buffer.alloc(frames);
    std::mt19937 random(1);
    std::normal_distribution<float> values(0, 0.2f);
    std::generate_n(buffer.block.get(), std::size_t{frames} * 2, [&] { return values(random); });
    return buffer;
}

void fillWindow(QVMStereoscope& stereoscope) {
    QVMAudioBuffer<float> buffer = noise(stereoscope.tap().capacity());
    stereoscope.processAudio(&buffer, stereoscope.tap().capacity());
}

// A real transform of the library and nothing else, planned as ours are.
class BareTransform {
public:
    explicit BareTransform(unsigned n)
        : in_(fftwf_alloc_real(n)), out_(fftwf_alloc_real(n + 2)),
          plan_(
              fftwf_plan_dft_r2c_1d(static_cast<int>(n), in_, reinterpret_cast<fftwf_complex*>(out_), FFTW_ESTIMATE)) {
        std::fill_n(in_, n, 0.25f);
    }
    ~BareTransform() {
        fftwf_destroy_plan(plan_);
        fftwf_free(in_);
        fftwf_free(out_);
    }
    BareTransform(const BareTransform&) = delete;
    BareTransform& operator=(const BareTransform&) = delete;
    void run() {
        fftwf_execute(plan_);
        benchmark::DoNotOptimize(out_[1]);
    }

private:
    float *in_, *out_;
    fftwf_plan plan_;
};

// One analysis against the library's own calls for four transforms of its size, in turns, so that both see the same
// machine. `times_four_transforms` is what counts: least times of a turn, since the machine has others to serve.
void BM_StereoscopeAnalysisAgainstFourTransforms(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    QVMStereoscope stereoscope;
    stereoscope.init(canvas(2), static_cast<float>(state.range(0)), kBlock);
    fillWindow(stereoscope);
    BareTransform bare(stereoscope.fftSize());
    double ours = 1e9, theirs = 1e9;
    for (auto _ : state) {
        const auto start = Clock::now();
        stereoscope.processAudioData(0);
        const auto middle = Clock::now();
        for (int i = 0; i < 4; ++i)
            bare.run();
        const auto end = Clock::now();
        ours = std::min(ours, std::chrono::duration<double, std::micro>(middle - start).count());
        theirs = std::min(theirs, std::chrono::duration<double, std::micro>(end - middle).count());
    }
    state.counters["points"] = stereoscope.fftSize();
    state.counters["ours_us"] = ours;
    state.counters["four_transforms_us"] = theirs;
    state.counters["times_four_transforms"] = ours / theirs;
}

// A display frame of the stereoscope, drawn on the processor.
void BM_StereoscopeFrameDrawn(benchmark::State& state) {
    QVMStereoscope stereoscope;
    const PBGLCanvas place = canvas(static_cast<float>(state.range(0)));
    stereoscope.init(place, 48000, kBlock);
    QVMAudioBuffer<float> block = noise(kBlock);
    for (int i = 0; i < 16; ++i) {
        stereoscope.processAudio(&block, kBlock);
        stereoscope.prepareForDrawing(1.0f / 60);
    }
    CpuDrawingSurface surface;
    Image picture;
    for (auto _ : state) {
        stereoscope.processAudio(&block, kBlock);
        stereoscope.prepareForDrawing(1.0f / 60);
        surface.begin({place.width, place.height}, place.scale);
        stereoscope.glDraw(surface);
        surface.finish(picture);
    }
}

// What the render thread pays for a block.
void BM_StereoscopeTakesABlock(benchmark::State& state) {
    QVMStereoscope stereoscope;
    stereoscope.init(canvas(2), 48000, kBlock);
    QVMAudioBuffer<float> block = noise(kBlock);
    for (auto _ : state)
        stereoscope.processAudio(&block, kBlock);
}

BENCHMARK(BM_StereoscopeAnalysisAgainstFourTransforms)->Arg(48000)->Arg(96000)->Arg(192000);
BENCHMARK(BM_StereoscopeFrameDrawn)->Arg(1)->Arg(2);
BENCHMARK(BM_StereoscopeTakesABlock);

} // namespace
} // namespace QVM_NAMESPACE
