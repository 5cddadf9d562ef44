#include "ScalarCurve.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <benchmark/benchmark.h>
#include <chrono>

namespace QVM_NAMESPACE {
namespace {

constexpr float kFrameSeconds = 1.0f / 60;

enum Case : std::int64_t { tiltOnly, everything };

scalar::Settings settingsFor(std::int64_t which) {
    if (which == tiltOnly) return {.gain = 4.5, .low = 125, .high = 6300};
    return {.gain = 4.5,
            .low = 125,
            .high = 6300,
            .mode = 0,
            .lowOn = true,
            .highOn = true,
            .lowCorner = 32,
            .highCorner = 15000,
            .lowOrder = 3,
            .highOrder = 4.5,
            .lowReso = 3,
            .highReso = 6};
}

struct Display {
    PBGLCanvas canvas;
    QVM0015GLSketch sketch;

    Display(std::int64_t points, const scalar::Settings& s) {
        canvas.sketch = PB_Sketches[0];
        canvas.width = static_cast<float>(points) / 2;
        canvas.height = 62;
        canvas.scale = 2;
        sketch.init(canvas, 48000, 512);
        sketch.sizeStates(24);
        set(pidTiltGain, s.gain);
        set(pidTiltRangeLow, s.low);
        set(pidTiltRangeHigh, s.high);
        set(pidTiltLoudnessMode, s.mode);
        set(pidFilterRangeLow, s.lowOn ? s.lowCorner : 4);
        set(pidFilterRangeHigh, s.highOn ? s.highCorner : 24000);
        set(pidFilterSlopeLow, 6 * s.lowOrder);
        set(pidFilterResonanceLow, s.lowReso);
        set(pidFilterSlopeHigh, 6 * s.highOrder);
        set(pidFilterResonanceHigh, s.highReso);
    }
    void set(std::uint32_t pid, double value) { sketch.standAt(pid, static_cast<float>(value)); }
    void frame() { sketch.prepareForDrawing(canvas, kFrameSeconds); }
};

// A frame of the curve against the same in scalar double precision, in turns, so that both see the same machine.
// `times_faster` is what counts; the time shown is that of both. `largest_difference_db` keeps the comparison honest.
void BM_CurveFrameAgainstScalar(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const scalar::Settings settings = settingsFor(state.range(1));
    Display display(state.range(0), settings);
    scalar::Curve reference(static_cast<int>(state.range(0)), 2);
    constexpr int kTurns = 32;
    Clock::duration ours{}, theirs{};
    for (auto _ : state) {
        const auto start = Clock::now();
        for (int i = 0; i < kTurns; ++i)
            display.frame();
        const auto middle = Clock::now();
        for (int i = 0; i < kTurns; ++i)
            benchmark::DoNotOptimize(reference.frame(settings));
        theirs += Clock::now() - middle;
        ours += middle - start;
    }
    double largest = std::abs(display.sketch.responseDisplay().referenceLevel - reference.referenceLevel());
    for (std::size_t i = 0; i < reference.response().size(); ++i)
        largest = std::max(largest, std::abs(display.sketch.response()[i] - reference.response()[i]));
    const auto microseconds = [&](Clock::duration time) {
        return std::chrono::duration<double, std::micro>(time).count() / (kTurns * double(state.iterations()));
    };
    state.counters["ours_us"] = microseconds(ours);
    state.counters["scalar_us"] = microseconds(theirs);
    state.counters["times_faster"] = microseconds(theirs) / microseconds(ours);
    state.counters["largest_difference_db"] = largest;
    state.SetLabel(state.range(1) == tiltOnly ? "tilt only" : "tilt, filters and resonances");
}

// What every display frame costs that finds no glide under way.
void BM_GlideStepWithNothingToDo(benchmark::State& state) {
    Display display(108, settingsFor(tiltOnly));
    for (auto _ : state)
        display.sketch.performInterp();
}

void BM_GlideStep(benchmark::State& state) {
    Display display(108, settingsFor(tiltOnly));
    for (auto _ : state) {
        display.sketch.restartGlide();
        display.sketch.performInterp();
    }
}

BENCHMARK(BM_CurveFrameAgainstScalar)->ArgsProduct({{54, 108, 1080}, {tiltOnly, everything}});
BENCHMARK(BM_GlideStepWithNothingToDo);
BENCHMARK(BM_GlideStep);

} // namespace
} // namespace QVM_NAMESPACE
