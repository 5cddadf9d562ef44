// Long use in little time: what is left behind, or takes longer each time, shows.
//
// slantwise_soak reopen|windows|crowd|hour COUNT [SEED]
//
// reopen: COUNT times an editor is opened, shown for a second of virtual time into a picture in memory, and closed,
// with a render thread playing. windows: the same in real windows of the given display, in real time. crowd: 20
// instances play, and COUNT times one that the seed chooses has its editor opened, used or closed. hour: COUNT seconds
// of virtual time in which a host and a user do anything. Fails where something grows with the turns (Course.h), or
// where this process's handler is told of an error of the X server, which would end many a host.
#include "Course.h"
#include "HostStorm.h"
#include "PlayingPlugins.h"

#include "description/ParameterIDs.h"
#include "editor/surface/QVMGenericUI.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/system/Workspace.h"
#include "toolkit/ToolkitRasterBackend.h"
#include "toolkit/ToolkitRasterTarget.h"
#include "toolkit/ToolkitRuntime.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace juce {
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
}

namespace {

using namespace slantwise;
using slantwise_tests::Course;

long serverErrors = 0;

int countError(Display*, XErrorEvent* error) {
    ++serverErrors;
    std::printf("  X error %d of request %d\n", error->error_code, error->request_code);
    return 0;
}

void pumpFor(double seconds) {
    const double end = juce::Time::getMillisecondCounterHiRes() + 1000 * seconds;
    while (juce::Time::getMillisecondCounterHiRes() < end)
        if (!juce::dispatchNextMessageOnSystemQueue(true)) juce::Thread::sleep(1);
}

// The desktop but for its browser, which chance would ask for again and again.
class WithoutBrowser final : public Workspace {
public:
    WithoutBrowser() { install(this); }
    ~WithoutBrowser() override { install(&desktop_); }

    std::optional<std::string> clipboardString() override { return desktop_.clipboardString(); }
    void setClipboardString(const std::string& text) override { desktop_.setClipboardString(text); }
    void openUrl(const std::string&, std::function<void()>) override {}
    std::optional<std::string> fileOpenedFor(const std::string& address) override {
        return desktop_.fileOpenedFor(address);
    }

private:
    juce::SharedResourcePointer<ToolkitRuntime> runtime_; // or the first editor would install the desktop's
    Workspace& desktop_ = current();
};

// Frames of an editor that has no window, drawn into memory.
class Pictures {
public:
    void show(SlantwiseEditor& editor, VirtualTime& time, ManualTickSource& ticks) {
        LayerRenderer renderer(backend_);
        renderer.setRootLayer(editor.window().contentView()->layer());
        renderer.setScale(1);
        for (const double wait : {0.0, 0.3, 0.3, 0.4, 1.0 / 60, 1.0 / 60}) {
            time.advance(wait);
            ticks.tick(time.now());
            time.settle();
            draw(renderer, time.now());
        }
    }

private:
    void draw(LayerRenderer& renderer, double now) {
        const RenderStatistics& statistics = renderer.update(now);
        juce::Graphics graphics(picture_);
        ToolkitRasterTarget target(graphics);
        for (const Rect& rect : statistics.damage)
            renderer.compose(target, rect);
    }

    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    ToolkitRasterBackend backend_{runtime_->faces()};
    juce::Image picture_{juce::Image::ARGB, 700, 340, true, juce::SoftwareImageType()};
};

bool reopen(long count, unsigned seed) {
    PlayingPlugins plugins(1, PlayingPlugins::Editors::inMemory);
    ManualTickSource ticks;
    VirtualTime time;
    Pictures pictures;
    PlayingPlugins::Random random(seed);
    return Course(count).run({.measured =
                                  [&] {
                                      plugins.open(0);
                                      plugins.disturb(0, random);
                                      pictures.show(plugins.editor(0), time, ticks);
                                      plugins.disturb(0, random);
                                      plugins.close(0);
                                      time.advance(1);
                                      return Course::Kind{0};
                                  },
                              .rest = [] { pumpFor(0.2); }});
}

bool reopenWindows(long count, unsigned seed) {
    PlayingPlugins plugins(1, PlayingPlugins::Editors::inWindows);
    PlayingPlugins::Random random(seed);
    return Course(count).run({.measured =
                                  [&] {
                                      plugins.open(0);
                                      const bool isLong =
                                          random() % 16 == 0; // now and then until its live pictures are there
                                      pumpFor(isLong ? 0.7 : 0.02);
                                      plugins.disturb(0, random);
                                      pumpFor(0.01);
                                      plugins.close(0);
                                      return Course::Kind{isLong};
                                  },
                              .rest = [] { pumpFor(1); }});
}

// A turn opens an editor, closes one or uses one.
bool crowd(long count, unsigned seed) {
    constexpr Course::Kind opens = 0, closes = 1, uses = 2;
    constexpr std::size_t instances = 20;
    PlayingPlugins plugins(instances, PlayingPlugins::Editors::inWindows);
    PlayingPlugins::Random random(seed);
    return Course(count).run(
        {.measured =
             [&] {
                 const std::size_t at = random() % plugins.count();
                 const Course::Kind kind = !plugins.isOpen(at) ? opens : random() % 4 == 0 ? closes : uses;
                 if (kind == opens)
                     plugins.open(at);
                 else if (kind == closes)
                     plugins.close(at);
                 else
                     plugins.disturb(at, random);
                 pumpFor(0.01);
                 return kind;
             },
         .rest =
             [&] {
                 plugins.closeAll();
                 pumpFor(1);
             }});
}

// What decides how much of an editor moves with a value.
Course::Kind kindOf(slantwise_fuzz::HostedUnit& host) {
    if (!host.isEditorOpen() || !host.window().isVisible()) return 0;
    const bool isPowered = host.ui().getMemoizedPValueDirectly(pidMasterOnOff) != 0;
    const bool hasSketches = host.ui().sketch() && !host.ui().sketches().areHidden();
    const auto spectrum = static_cast<Course::Kind>(host.ui().sketches().spectrum().mode());
    const auto altFrame = static_cast<Course::Kind>(host.ui().altFrame());
    return 1 + (isPowered ? 1U : 0U) + (hasSketches ? 2U : 0U) + 4U * spectrum + 16U * altFrame;
}

// The most that is made at its first use and stays, which chance may bring late.
void showSpectrumOnce(slantwise_fuzz::HostedUnit& host) {
    host.openEditor();
    host.wait(1);
    host.ui().sketches().spectrum().setMode(SpectrumMode::inputAndOutput);
    host.wait(1);
    host.unit().prepare(48000, 512, 2, 2);
    host.play(512, 0.5F);
    host.wait(1);
    host.closeEditor();
}

// A turn is a second of virtual time; then a value moves, which is work for an editor that is open and seen.
bool hour(long seconds, unsigned seed) {
    slantwise_fuzz::HostedUnit host;
    showSpectrumOnce(host);
    slantwise_fuzz::HostStorm storm(host);
    PlayingPlugins::Random random(seed);
    std::vector<std::uint8_t> bytes(1024);
    float gain = 0;
    double end = host.now();
    return Course(seconds).run(
        {.before =
             [&] {
                 end += 1;
                 while (host.now() < end) {
                     std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
                     slantwise_fuzz::ByteSource in(bytes);
                     storm.step(in);
                 }
             },
         .measured =
             [&] {
                 gain = 1 - gain;
                 AudioUnitSetParameter(&host.unit(), pidOutputGain, kAudioUnitScope_Global, 0, gain, 0);
                 for (int frames = 0; frames < 12; ++frames)
                     host.frame();
                 return kindOf(host);
             },
         .rest =
             [&] {
                 host.closeEditor();
                 host.unit().prepare(48000, 512, 2, 2); // its buffers are as large as it was told last
                 host.wait(1);
             }});
}

int usage() {
    std::fprintf(stderr, "usage: slantwise_soak reopen|windows|crowd|hour COUNT [SEED]\n");
    return 2;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    if (argumentCount < 3) return usage();
    const std::string_view what = arguments[1];
    const long count = std::atol(arguments[2]);
    const auto seed = static_cast<unsigned>(argumentCount > 3 ? std::atol(arguments[3]) : 1);
    if (count < 10) return usage();
    const juce::ScopedJuceInitialiser_GUI toolkit;
    const WithoutBrowser desktop;
    XSetErrorHandler(countError);
    const double start = juce::Time::getMillisecondCounterHiRes();
    std::printf("%s %ld, seed %u\n", arguments[1], count, seed);
    std::fflush(stdout);
    bool isFlat = false;
    if (what == "reopen")
        isFlat = reopen(count, seed);
    else if (what == "windows")
        isFlat = reopenWindows(count, seed);
    else if (what == "crowd")
        isFlat = crowd(count, seed);
    else if (what == "hour")
        isFlat = hour(count, seed);
    else
        return usage();
    std::printf("  %s after %.0f s, %ld X errors\n", isFlat ? "flat" : "NOT FLAT",
                (juce::Time::getMillisecondCounterHiRes() - start) / 1000, serverErrors);
    return isFlat && serverErrors == 0 ? 0 : 1;
}
