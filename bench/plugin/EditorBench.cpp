// What an open, a refresh and a frame cost, with no display: pixels go to a picture in memory.
#include "platform/LayerRenderer.h"
#include "platform/juce/ToolkitRasterBackend.h"
#include "platform/juce/ToolkitRasterTarget.h"
#include "plugin/SlantwiseEditor.h"

#include "host/QVM0015_CocoaView2.h"

#include <benchmark/benchmark.h>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t tiltGain = 1;

void BM_OpenAndCloseEditor(benchmark::State& state) {
    SlantwiseProcessor processor;
    for (auto _ : state) {
        SlantwiseEditor editor(processor);
        benchmark::DoNotOptimize(&editor);
    }
}

// What the display-rate timer does while nothing changes.
void BM_IdleRefresh(benchmark::State& state) {
    SlantwiseProcessor processor;
    SlantwiseEditor editor(processor);
    for (auto _ : state)
        editor.refresh();
}

// An editor drawn by a renderer of its own, at the scale of the benchmark's argument.
class Frames {
public:
    explicit Frames(int scale)
        : picture_(juce::Image::ARGB, 480 * scale, 320 * scale, true, juce::SoftwareImageType()),
          time_(RunLoop::main().now()) {
        editor_.window().setBackingScaleFactor(scale);
        renderer_.setRootLayer(editor_.window().contentView()->layer());
        renderer_.setScale(scale);
        editor_.refresh();
        for (int i = 0; i < 200; ++i)
            draw(); // until every animation of the opening is over
    }

    // One frame, a sixtieth of a second after the last. What was damaged, in device pixels.
    double draw() {
        time_ += 1.0 / 60;
        const RenderStatistics& statistics = renderer_.update(time_);
        if (statistics.damage.empty()) return 0;
        juce::Graphics graphics(picture_);
        ToolkitRasterTarget target(graphics);
        double pixels = 0;
        for (const Rect& rect : statistics.damage) {
            renderer_.compose(target, rect);
            pixels += rect.width * rect.height;
        }
        return pixels;
    }

    void automate(float position) {
        processor_.parameter(tiltGain).setValue(position);
        editor_.refresh();
    }

private:
    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    SlantwiseProcessor processor_;
    SlantwiseEditor editor_{processor_};
    ToolkitRasterBackend backend_{runtime_->faces()};
    LayerRenderer renderer_{backend_};
    juce::Image picture_;
    double time_;
};

void BM_IdleFrame(benchmark::State& state) {
    Frames frames(static_cast<int>(state.range(0)));
    double pixels = 0;
    for (auto _ : state)
        pixels += frames.draw();
    state.counters["damage_px"] = benchmark::Counter(pixels, benchmark::Counter::kAvgIterations);
}

// The tilt gain under automation: the handle and its text change in each frame.
void BM_BusyFrame(benchmark::State& state) {
    Frames frames(static_cast<int>(state.range(0)));
    double pixels = 0;
    int frame = 0;
    for (auto _ : state) {
        frames.automate(static_cast<float>(frame++ % 100) / 100);
        pixels += frames.draw();
    }
    state.counters["damage_px"] = benchmark::Counter(pixels, benchmark::Counter::kAvgIterations);
}

BENCHMARK(BM_OpenAndCloseEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IdleRefresh)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_IdleFrame)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BusyFrame)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace QVM_NAMESPACE

int main(int argumentCount, char* arguments[]) {
    const juce::ScopedJuceInitialiser_GUI toolkit;
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
