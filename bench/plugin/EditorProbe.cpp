// Opens one editor in a real window and measures it:
// bench_editor_probe open|idle|meters|spectrum|compact|automated|dragging ours|empty SCALE [SECONDS].
//
// open: milliseconds from making the editor to its first pixels on the screen, those of them that the process itself
// worked, and private kilobytes that it and a second one took. The others: percent of one core over the time, with
// nothing happening, with the meter moving up and down, with the spectra of input and output beside it ("compact": in
// the small window, which they fill), with one parameter automated 60 times a second, or with the pointer dragging the
// tilt gain's handle and moving 100 times a second (needs xdotool). What the processing of the sound takes is left out.
// "empty" is the toolkit's own editor class filled with one colour: the floor.
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "plugin/SlantwiseEditor.h"
#include "plugin/host/XScreen.h"
#include "toolkit/ContentHolder.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include <sys/resource.h>
#include <time.h>

namespace juce {
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
}

namespace {

using slantwise::SlantwiseEditor;
using slantwise::SlantwiseProcessor;

class EmptyEditor final : public juce::AudioProcessorEditor {
public:
    explicit EmptyEditor(juce::AudioProcessor& owner) : juce::AudioProcessorEditor(owner) { setSize(480, 320); }
    void paint(juce::Graphics& g) override { g.fillAll(juce::Colours::white); }
};

class ProbeWindow final : public juce::DocumentWindow {
public:
    ProbeWindow(juce::AudioProcessorEditor& editor, float scale)
        : juce::DocumentWindow("probe", juce::Colours::black, closeButton) {
        setUsingNativeTitleBar(true);
        editor.setScaleFactor(scale);
        setContentOwned(new slantwise::ContentHolder(editor), true);
        setTopLeftPosition(100, 100);
        setVisible(true);
    }
};

struct Opened {
    SlantwiseProcessor processor;
    std::unique_ptr<juce::AudioProcessorEditor> editor;
    std::unique_ptr<ProbeWindow> window;
    ~Opened() {
        window.reset();
        editor.reset();
    }
};

double nowMs() {
    return juce::Time::getMillisecondCounterHiRes();
}

long privateKb() {
    std::ifstream rollup("/proc/self/smaps_rollup");
    long sum = 0;
    for (std::string line; std::getline(rollup, line);) {
        if (line.rfind("Private_", 0) == 0) sum += std::strtol(line.c_str() + line.find(':') + 1, nullptr, 10);
    }
    return sum;
}

double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void pumpUntil(const std::function<bool()>& done) {
    while (!done()) {
        if (!juce::dispatchNextMessageOnSystemQueue(true)) juce::Thread::sleep(1);
    }
}

void pumpFor(double seconds) {
    const double end = nowMs() + 1000 * seconds;
    pumpUntil([end] { return nowMs() >= end; });
}

void openEditor(Opened& opened, bool ours, float scale) {
    if (ours)
        opened.editor = std::make_unique<SlantwiseEditor>(opened.processor);
    else
        opened.editor = std::make_unique<EmptyEditor>(opened.processor);
    opened.window = std::make_unique<ProbeWindow>(*opened.editor, scale);
}

// The part of the editor where both are light.
bool isOnScreen(const Opened& opened, slantwise_tests::XScreen& screen, float scale) {
    const auto at = opened.window->getScreenPosition();
    const auto picture =
        screen.capture(at.x + static_cast<int>(200 * scale), at.y + static_cast<int>(300 * scale), 1, 1);
    return !picture.pixels.empty() && (picture.pixels.front() & 0xFF) > 200;
}

int measureOpening(bool ours, float scale) {
    slantwise_tests::XScreen screen;
    Opened first, second;
    pumpFor(0.2);
    const long before = privateKb();
    const double start = nowMs(), cpuBefore = cpuSeconds();
    openEditor(first, ours, scale);
    pumpUntil([&] { return isOnScreen(first, screen, scale) || nowMs() > start + 5000; });
    const double firstPixels = nowMs() - start, cpuMs = 1000 * (cpuSeconds() - cpuBefore);
    pumpFor(1);
    const long one = privateKb();
    openEditor(second, ours, scale);
    pumpFor(1);
    std::printf("%.1f %.1f %ld %ld\n", firstPixels, cpuMs, one - before, privateKb() - one);
    return firstPixels < 5000 ? 0 : 1;
}

// A host's audio thread: noise that swells and fades every second, in blocks of 512 frames at 48 kHz.
class Sound {
public:
    explicit Sound(SlantwiseProcessor& processor) : processor_(processor) {
        processor_.setRateAndBufferSizeDetails(rate, frames);
        processor_.prepareToPlay(rate, frames);
        thread_ = std::thread([this] { run(); });
    }
    ~Sound() {
        isOver_ = true;
        thread_.join();
        processor_.releaseResources();
    }
    // What the thread has worked so far.
    double cpuSeconds() const { return seconds_; }

private:
    static constexpr int rate = 48000, frames = 512;

    void run() {
        juce::AudioBuffer<float> buffer(2, frames);
        juce::MidiBuffer none;
        juce::Random random(1);
        auto next = std::chrono::steady_clock::now();
        for (int block = 0; !isOver_; ++block) {
            const double phase = 2 * juce::MathConstants<double>::pi * block * frames / rate;
            const auto gain = static_cast<float>(0.25 - 0.24 * std::cos(phase));
            for (int channel = 0; channel < 2; ++channel)
                for (int i = 0; i < frames; ++i)
                    buffer.setSample(channel, i, gain * (2 * random.nextFloat() - 1));
            processor_.processBlock(buffer, none);
            timespec worked{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &worked);
            seconds_ = static_cast<double>(worked.tv_sec) + 1e-9 * static_cast<double>(worked.tv_nsec);
            std::this_thread::sleep_until(next += std::chrono::nanoseconds(1'000'000'000ll * frames / rate));
        }
    }

    SlantwiseProcessor& processor_;
    std::atomic<bool> isOver_{false};
    std::atomic<double> seconds_{0};
    std::thread thread_;
};

// Lets the toolkit wait by itself: nothing of ours wakes the process.
void waitFor(double seconds) {
    struct End final : juce::Timer {
        bool over = false;
        void timerCallback() override { over = true; }
    } end;
    end.startTimer(static_cast<int>(1000 * seconds));
    while (!end.over)
        juce::dispatchNextMessageOnSystemQueue(false);
}

void automateFor(SlantwiseProcessor& processor, double seconds) {
    const double start = nowMs();
    for (int frame = 0; nowMs() < start + 1000 * seconds; ++frame) {
        processor.parameter(1).setValue(static_cast<float>(frame % 100) / 100);
        pumpUntil([&] { return nowMs() >= start + 1000.0 * (frame + 1) / 60; });
    }
}

// Another program's hand on the mouse.
class Drag {
public:
    // Of the tilt gain's handle, to and fro from its middle, for some seconds.
    Drag(const Opened& opened, float scale, double seconds) : hand_(popen("xdotool -", "w"), &pclose) {
        constexpr double middle = 160, row = 76, reach = 60; // points of the editor
        const juce::Point<int> at = opened.window->getScreenPosition();
        const auto moveTo = [&](double x) {
            std::fprintf(hand_.get(), "mousemove %ld %ld\n", at.x + std::lround(x * scale),
                         at.y + std::lround(row * scale));
        };
        moveTo(middle);
        std::fprintf(hand_.get(), "sleep 0.1\nmousedown 1\n");
        for (int i = 0; i < static_cast<int>(100 * seconds); ++i) {
            moveTo(middle + reach * std::sin(0.05 * i));
            std::fprintf(hand_.get(), "sleep 0.01\n");
        }
        std::fprintf(hand_.get(), "mouseup 1\n");
        std::fflush(hand_.get());
    }

private:
    std::unique_ptr<FILE, int (*)(FILE*)> hand_; // closing it waits for the last move
};

int measureRunning(bool ours, float scale, double seconds, const std::string& mode) {
    Opened opened;
    openEditor(opened, ours, scale);
    std::optional<Sound> sound;
    const bool hasSpectrum = mode == "spectrum" || mode == "compact";
    if (mode == "meters" || hasSpectrum) sound.emplace(opened.processor);
    if (auto* const editor = dynamic_cast<SlantwiseEditor*>(opened.editor.get()); editor && hasSpectrum) {
        slantwise::QVMGenericUI& ui = editor->view().ui();
        ui.sketches().spectrum().setMode(slantwise::SpectrumMode::inputAndOutput);
        if (mode == "compact") ui.requestFrame(slantwise::QVMAltFrameCompact);
    }
    std::optional<Drag> drag;
    constexpr double opening = 3; // until that is over
    if (mode == "dragging") drag.emplace(opened, scale, seconds + opening);
    pumpFor(opening);
    const auto worked = [&] { return cpuSeconds() - (sound ? sound->cpuSeconds() : 0); };
    const double before = worked(), start = nowMs();
    if (mode == "automated")
        automateFor(opened.processor, seconds);
    else
        waitFor(seconds);
    if (drag) std::fprintf(stderr, "tilt gain %g\n", opened.processor.parameter(1).getValue());
    std::printf("%.3f\n", 100000 * (worked() - before) / (nowMs() - start));
    return 0;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    if (argumentCount < 4)
        return std::fputs("usage: bench_editor_probe open|idle|meters|spectrum|compact|automated|dragging ours|empty "
                          "SCALE [SECONDS]\n",
                          stderr),
               2;
    const std::string mode = arguments[1];
    const bool ours = std::string(arguments[2]) == "ours";
    const float scale = std::strtof(arguments[3], nullptr);
    const double seconds = argumentCount > 4 ? std::strtod(arguments[4], nullptr) : 10;
    const juce::ScopedJuceInitialiser_GUI toolkit;
    if (mode == "open") return measureOpening(ours, scale);
    return measureRunning(ours, scale, seconds, mode);
}
