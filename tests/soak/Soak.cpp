// Long use in little time: what is left behind, or takes longer each time, shows.
//
// slantwise_soak reopen|windows|crowd|hour COUNT [SEED]
//
// reopen: COUNT times an editor is opened, shown for a second of virtual time into a picture in memory, and closed,
// with a render thread playing. windows: the same in real windows of the given display, in real time. crowd: 20
// instances play, and COUNT times one that the seed chooses has its editor opened, used or closed. hour: COUNT seconds
// of virtual time in which a host and a user do anything. Fails where memory, threads, open files or what the X server
// keeps are more at the end than after the first tenth, or a turn takes longer, or where this process's handler is told
// of an error of the X server, which would end many a host.
#include "Footprint.h"
#include "HostStorm.h"
#include "PlayingPlugins.h"
#include "Yardstick.h"

#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "toolkit/ToolkitRasterBackend.h"
#include "toolkit/ToolkitRasterTarget.h"

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
using slantwise_tests::Footprint;
using slantwise_tests::Yardstick;

// Above what the parts of the system need that come and go by themselves.
constexpr long mostBytesATurn = 16, mostBytesOnce = 128 * 1024; // the latter for what is made at its first use
constexpr long mostKb = 1500, mostResources = 20;
constexpr double mostSlowerBy = 1.5;

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

// Counts turns, and compares what is held after the first tenth of them with the end.
class Course {
public:
    explicit Course(long turns) : turns_(turns), tenth_(std::max(turns / 10, 1L)) {}

    // Runs `turn` so often; `rest` brings everything to where a footprint can be taken, `restart` goes on from there.
    bool run(const std::function<void()>& turn, const std::function<void()>& rest) {
        for (long i = 0; i < turns_; ++i) {
            if (i == tenth_) begin(rest);
            const double start = Footprint::threadSeconds();
            turn();
            const double middle = Footprint::threadSeconds();
            yardstick_.run();
            const double end = Footprint::threadSeconds();
            workOf_.push_back(static_cast<float>((middle - start) / (end - middle)));
        }
        rest();
        const Footprint last = Footprint::now();
        first_.print("first:");
        last.print("last:");
        return isFlat(last);
    }

private:
    void begin(const std::function<void()>& rest) {
        rest();
        workOf_.reserve(static_cast<std::size_t>(turns_)); // not to be taken for growth
        first_ = Footprint::now();
    }
    // Of the work of `count` turns, in yardsticks. Turns differ as their seed has it, so that many of them are
    // compared.
    double median(std::size_t from, std::size_t count) const {
        std::vector<float> part(workOf_.begin() + static_cast<std::ptrdiff_t>(from),
                                workOf_.begin() + static_cast<std::ptrdiff_t>(from + count));
        std::nth_element(part.begin(), part.begin() + static_cast<std::ptrdiff_t>(count / 2), part.end());
        return static_cast<double>(part[count / 2]);
    }
    bool isFlat(const Footprint& last) const {
        const auto tenth = static_cast<std::size_t>(tenth_); // the first one warms up
        const std::size_t fifth = std::min(2 * tenth, workOf_.size() - tenth);
        const double before = median(tenth, fifth), after = median(workOf_.size() - fifth, fifth);
        const double kept =
            static_cast<double>(last.heapBytes - first_.heapBytes) / static_cast<double>(turns_ - tenth_);
        std::printf("  kept a turn: %.1f bytes; a turn: %.1f yardsticks, at the end %.1f\n", kept, before, after);
        bool isFlat = true;
        const auto expect = [&](bool holds, const char* what) {
            if (!holds) std::printf("  GROWS: %s\n", what);
            isFlat &= holds;
        };
        expect(last.heapBytes - first_.heapBytes <= mostBytesOnce + mostBytesATurn * (turns_ - tenth_), "heap");
        expect(last.privateDirtyKb - first_.privateDirtyKb <= mostKb, "private memory");
        expect(last.threads <= first_.threads, "threads");
        expect(last.openFiles <= first_.openFiles, "open files");
        expect(last.serverResources - first_.serverResources <= mostResources, "what the X server keeps");
        expect(after <= before * mostSlowerBy, "a turn's work");
        return isFlat;
    }

    const long turns_, tenth_;
    Footprint first_;
    Yardstick yardstick_;
    std::vector<float> workOf_; // the main thread's in each turn, in yardsticks
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
    return Course(count).run(
        [&] {
            plugins.open(0);
            plugins.disturb(0, random);
            pictures.show(plugins.editor(0), time, ticks);
            plugins.disturb(0, random);
            plugins.close(0);
            time.advance(1);
        },
        [&] { pumpFor(0.2); });
}

bool reopenWindows(long count, unsigned seed) {
    PlayingPlugins plugins(1, PlayingPlugins::Editors::inWindows);
    PlayingPlugins::Random random(seed);
    return Course(count).run(
        [&] {
            plugins.open(0);
            pumpFor(random() % 16 == 0 ? 0.7 : 0.02); // now and then until its live pictures are there
            plugins.disturb(0, random);
            pumpFor(0.01);
            plugins.close(0);
        },
        [&] { pumpFor(1); });
}

bool crowd(long count, unsigned seed) {
    constexpr std::size_t instances = 20;
    PlayingPlugins plugins(instances, PlayingPlugins::Editors::inWindows);
    PlayingPlugins::Random random(seed);
    return Course(count).run(
        [&] {
            const std::size_t at = random() % plugins.count();
            if (!plugins.isOpen(at))
                plugins.open(at);
            else if (random() % 4 == 0)
                plugins.close(at);
            else
                plugins.disturb(at, random);
            pumpFor(0.01);
        },
        [&] {
            plugins.closeAll();
            pumpFor(1);
        });
}

// A turn is a second of virtual time.
bool hour(long seconds, unsigned seed) {
    slantwise_fuzz::HostedUnit host;
    slantwise_fuzz::HostStorm storm(host);
    PlayingPlugins::Random random(seed);
    std::vector<std::uint8_t> bytes(1024);
    double end = host.now();
    return Course(seconds).run(
        [&] {
            end += 1;
            while (host.now() < end) {
                std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
                slantwise_fuzz::ByteSource in(bytes);
                storm.step(in);
            }
        },
        [&] {
            host.closeEditor();
            host.wait(1);
        });
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
