// What an open, a refresh and a frame cost, with no display: pixels go to a picture in memory.
#include "controls/QVMSymbolButton.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "plugin/SlantwiseEditor.h"
#include "toolkit/ToolkitRasterBackend.h"
#include "toolkit/ToolkitRasterTarget.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

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

// An editor in virtual time, with display ticks by hand, drawn by a renderer of its own at scale 1 or 2 with its
// pictures from one back end.
class Frames {
public:
    enum Backend : std::int64_t { cpu, gl };

    explicit Frames(int scale, Backend backend = cpu)
        : picture_(juce::Image::ARGB, 480 * scale, 320 * scale, true, juce::SoftwareImageType()) {
        setenv("SLANTWISE_RENDERER", backend == gl ? "gl" : "cpu", 1);
        editor_ = std::make_unique<SlantwiseEditor>(processor_);
        editor_->window().setBackingScaleFactor(scale);
        renderer_.setRootLayer(editor_->window().contentView()->layer());
        renderer_.setScale(scale);
        processor_.prepareToPlay(48000, frames);
        for (int i = 0; i < 200; ++i) { // until every animation of the opening is over
            tick();
            draw();
        }
    }

    // What a display frame does before anything is drawn.
    void tick() {
        time_.advance(1.0 / 60);
        ticks_.tick(time_.now());
        time_.settle();
    }
    // What was damaged, in device pixels.
    double draw() {
        const RenderStatistics& statistics = renderer_.update(time_.now());
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

    QVMGenericUI& ui() { return editor_->view().ui(); }
    void automate(float position) { processor_.parameter(tiltGain).setValue(position); }
    void play(float amplitude) {
        for (int channel = 0; channel < 2; ++channel)
            std::fill_n(audio_.getWritePointer(channel), frames, amplitude);
        processor_.processBlock(audio_, midi_);
    }

private:
    static constexpr int frames = 512;

    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    ManualTickSource ticks_;
    VirtualTime time_;
    SlantwiseProcessor processor_;
    std::unique_ptr<SlantwiseEditor> editor_;
    ToolkitRasterBackend backend_{runtime_->faces()};
    LayerRenderer renderer_{backend_};
    juce::Image picture_;
    juce::AudioBuffer<float> audio_{2, frames};
    juce::MidiBuffer midi_;
};

// One frame each, after `change`, with how much of the picture it damaged.
template <class Change>
void measureFrames(benchmark::State& state, Frames& frames, Change change) {
    double pixels = 0;
    for (int frame = 0; auto _ : state) {
        change(frame++);
        frames.tick();
        pixels += frames.draw();
    }
    state.counters["damage_px"] = benchmark::Counter(pixels, benchmark::Counter::kAvgIterations);
}

Frames framesOf(const benchmark::State& state) {
    return Frames(static_cast<int>(state.range(0)), static_cast<Frames::Backend>(state.range(1)));
}

// A display tick while nothing changes, and nothing is drawn.
void BM_IdleTick(benchmark::State& state) {
    Frames frames(1);
    for (auto _ : state)
        frames.tick();
}

// The same, with the renderer looking whether anything changed.
void BM_IdleFrame(benchmark::State& state) {
    Frames frames = framesOf(state);
    measureFrames(state, frames, [](int) {});
}

// The tilt gain under automation: the handle, its text and the curve change in each frame.
void BM_AutomatedFrame(benchmark::State& state) {
    Frames frames = framesOf(state);
    measureFrames(state, frames, [&](int frame) { frames.automate(static_cast<float>(frame % 100) / 100); });
}

// Audio whose level never settles: the meter changes in each frame.
void BM_MeterFrame(benchmark::State& state) {
    Frames frames = framesOf(state);
    measureFrames(state, frames, [&](int frame) { frames.play(frame % 2 ? 0.5f : 0.03f); });
}

// One of the user's commands with the display tick that follows, in which the values come back from the unit; what it
// changes on screen is a frame like any other. Half of the iterations go there, half go back.
template <class Command>
void measureCommand(benchmark::State& state, Frames& frames, Command command) {
    for (int i = 0; auto _ : state) {
        command(i++ % 2 != 0);
        frames.tick();
    }
}

void choose(Frames& frames, const char* preset) {
    frames.ui().requestPresetNamed(preset);
    for (int i = 0; i < 60; ++i) // until undo has it
        frames.tick();
}

void BM_ChoosePreset(benchmark::State& state) {
    Frames frames(1);
    measureCommand(state, frames, [&](bool back) { frames.ui().requestPresetNamed(back ? "Air" : "Cellphone"); });
}

void BM_UndoAndRedo(benchmark::State& state) {
    Frames frames(1);
    choose(frames, "Cellphone");
    QVMKeyboardHandler& keyboard = frames.ui().keyboard();
    measureCommand(state, frames, [&](bool back) {
        const bool isDone = back ? keyboard.keyboardShortcutRedo() : keyboard.keyboardShortcutUndo();
        if (!isDone) state.SkipWithError("nothing to undo");
    });
}

void BM_FlipAB(benchmark::State& state) {
    Frames frames(1);
    choose(frames, "Cellphone");
    QVMABControl& ab = frames.ui().presetBar()->ab();
    measureCommand(state, frames, [&](bool) { ab.handleTap(ab.b()); });
}

void BM_Paste(benchmark::State& state) {
    Frames frames(1);
    choose(frames, "Cellphone");
    QVMKeyboardHandler& keyboard = frames.ui().keyboard();
    const std::string full = keyboard.currentParametersURLEncoded(), empty = full.substr(0, full.find('?') + 1);
    measureCommand(state, frames, [&](bool back) {
        if (!keyboard.applyURLEncodedPreset(back ? full : empty)) state.SkipWithError("refused");
    });
}

void scalesAndBackends(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"scale", "gl"})->ArgsProduct({{1, 2}, {Frames::cpu, Frames::gl}})->Unit(benchmark::kMicrosecond);
}

BENCHMARK(BM_OpenAndCloseEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IdleTick)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_IdleFrame)->Apply(scalesAndBackends);
BENCHMARK(BM_AutomatedFrame)->Apply(scalesAndBackends);
BENCHMARK(BM_MeterFrame)->Apply(scalesAndBackends);
BENCHMARK(BM_ChoosePreset)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_UndoAndRedo)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FlipAB)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Paste)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace QVM_NAMESPACE

int main(int argumentCount, char* arguments[]) {
    const juce::ScopedJuceInitialiser_GUI toolkit;
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
