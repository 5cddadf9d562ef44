// Opens one editor in a real window and measures it: bench_editor_probe open|idle|busy ours|empty SCALE [SECONDS].
//
// open: milliseconds from making the editor to its first pixels on the screen, those of them that the process itself
// worked, and private kilobytes that it and a second one took. idle and busy: percent of one core over the time, with
// nothing happening or with one parameter automated 60 times a second. "empty" is the toolkit's own editor class filled
// with one colour: the floor.
#include "platform/juce/ContentHolder.h"
#include "plugin/SlantwiseEditor.h"
#include "plugin/host/XScreen.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include <sys/resource.h>

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

int measureRunning(bool ours, float scale, double seconds, bool busy) {
    Opened opened;
    openEditor(opened, ours, scale);
    pumpFor(2); // until the opening is over
    const double cpu = cpuSeconds(), start = nowMs();
    if (busy) {
        for (int frame = 0; nowMs() < start + 1000 * seconds; ++frame) {
            opened.processor.parameter(1).setValue(static_cast<float>(frame % 100) / 100);
            pumpUntil([&] { return nowMs() >= start + 1000.0 * (frame + 1) / 60; });
        }
    } else {
        // Nothing of ours may wake the process here, so the toolkit waits by itself.
        juce::MessageManager::callAsync([] {});
        const double end = start + 1000 * seconds;
        struct End final : juce::Timer {
            bool over = false;
            void timerCallback() override { over = true; }
        } timer;
        timer.startTimer(static_cast<int>(end - nowMs()));
        while (!timer.over)
            juce::dispatchNextMessageOnSystemQueue(false);
    }
    std::printf("%.3f\n", 100000 * (cpuSeconds() - cpu) / (nowMs() - start));
    return 0;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    if (argumentCount < 4)
        return std::fputs("usage: bench_editor_probe open|idle|busy ours|empty SCALE [SECONDS]\n", stderr), 2;
    const std::string mode = arguments[1];
    const bool ours = std::string(arguments[2]) == "ours";
    const float scale = std::strtof(arguments[3], nullptr);
    const double seconds = argumentCount > 4 ? std::strtod(arguments[4], nullptr) : 10;
    const juce::ScopedJuceInitialiser_GUI toolkit;
    if (mode == "open") return measureOpening(ours, scale);
    return measureRunning(ours, scale, seconds, mode == "busy");
}
