// What holds of every display, whatever it shows.
#include "LiveDisplayFixture.h"

#include <chrono>
#include <memory>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

INSTANTIATE_TEST_SUITE_P(Backends, LiveDisplayPicture, testing::ValuesIn(kBackends), nameOfBackend);

// The audio says how much time has gone by, not the clock on the wall.
TEST_P(LiveDisplayPicture, AStalledMachineDrawsTheSamePictures) {
    for (const LiveDisplayEntry& entry : LiveDisplays) {
        Image pictures[2];
        for (const bool isStalled : {false, true}) {
            const std::unique_ptr<LiveDisplay> display = entry.make();
            display->init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
            SignalSource source(Signal::sine, kRate);
            int frames = 0;
            play(
                source, kRate, 40, [&](auto& block, unsigned n) { display->processAudio(block, n); },
                [&](float dt) {
                    if (isStalled && ++frames % 20 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(120));
                    display->prepareForDrawing(dt);
                });
            pictures[isStalled ? 1 : 0] = picture([&](DrawingSurface& s) { display->draw(s); });
        }
        EXPECT_GT(lightOf(pictures[0]), 0) << entry.name;
        EXPECT_EQ(pictures[0].pixels, pictures[1].pixels) << entry.name;
    }
}

// A display that waits for the audio goes back to rest by its own time.
TEST_P(LiveDisplayPicture, WithoutAudioTheReductionGoesBackToRest) {
    const std::unique_ptr<LiveDisplay> display = std::make_unique<GRHistoryDisplay>();
    display->init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
    const auto drawn = [&] { return picture([&](DrawingSurface& s) { display->draw(s); }); };
    const double atRest = [&] {
        for (int i = 0; i < 600; ++i)
            display->prepareForDrawing(kFrame);
        return lightOf(drawn());
    }();
    SignalSource source(Signal::sine, kRate);
    play(
        source, kRate, 60, [&](auto& block, unsigned n) { display->processAudio(block, n); },
        [&](float dt) { display->prepareForDrawing(dt); });
    EXPECT_GT(lightOf(drawn()), 1.5 * atRest);
    for (int i = 0; i < 600; ++i)
        display->prepareForDrawing(kFrame);
    EXPECT_NEAR(lightOf(drawn()), atRest, 0.02 * atRest);
}

TEST_P(LiveDisplayPicture, EveryDisplayDrawsEverySignalAndItsBackgroundForSilence) {
    for (const LiveDisplayEntry& entry : LiveDisplays) {
        for (const NamedSignal& named : kSignals) {
            const auto shown = [&](Signal signal) {
                const std::unique_ptr<LiveDisplay> display = entry.make();
                display->init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
                SignalSource source(signal, kRate);
                play(
                    source, kRate, 40, [&](auto& block, unsigned n) { display->processAudio(block, n); },
                    [&](float dt) { display->prepareForDrawing(dt); });
                return picture([&](DrawingSurface& s) { display->draw(s); });
            };
            const Image silent = shown(Signal::silence), loud = shown(named.signal);
            EXPECT_GT(lightOf(silent), 10) << entry.name;
            EXPECT_NE(silent.pixels, loud.pixels) << entry.name << ", " << named.name;
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
