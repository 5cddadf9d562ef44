// Several threads at one unit. The assertions are few; under the thread sanitizer the test is that it says nothing.
#include "unit/QVM0015_AudioUnit.h"

#include "platform/audiounit/AudioUnitListeners.h"
#include "unit/Signals.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <random>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

// Renders on a thread of its own until it is destroyed.
class RenderThread {
public:
    explicit RenderThread(QVM0015_AudioUnit& unit) : thread_([this, &unit] { run(unit); }) {}
    ~RenderThread() {
        stop_ = true;
        thread_.join();
    }
    int blocks() const { return blocks_; }
    double largestSample() const { return largest_; }

private:
    void run(QVM0015_AudioUnit& unit) {
        const std::vector<float> tone = signals::tone<float>(333, 1000, 0.5);
        std::vector<float> left(333), right(333);
        const float* in[] = {tone.data(), tone.data()};
        float* out[] = {left.data(), right.data()};
        while (!stop_) {
            unit.process(in, out, 333);
            for (const float sample : left)
                largest_ = std::max(largest_.load(), double(std::abs(sample)));
            ++blocks_;
        }
    }

    std::atomic<bool> stop_ = false;
    std::atomic<int> blocks_ = 0;
    std::atomic<double> largest_ = 0;
    std::thread thread_;
};

TEST(UnitThreads, AStormOfParameterChangesWhileProcessing) {
    QVM0015_AudioUnit unit;
    std::vector<std::thread> writers;
    {
        const RenderThread render(unit);
        for (unsigned seed = 1; seed <= 2; ++seed) {
            writers.emplace_back([&unit, seed] {
                std::mt19937 random(seed);
                for (int i = 0; i < 20000; ++i) {
                    const AudioUnitParameter parameter{&unit, std::uint32_t(random() % 24)};
                    const float value = float(random() % 40000) - 10000;
                    AUParameterSet(nullptr, nullptr, &parameter, i % 50 ? value : std::nanf(""), 0);
                    float back = 0;
                    AudioUnitGetParameter(&unit, parameter.mParameterID, 0, 0, &back);
                    EXPECT_TRUE(std::isfinite(back));
                }
            });
        }
        for (auto& writer : writers)
            writer.join();
        while (render.blocks() < 10)
            std::this_thread::yield();
        // The tilt, both resonances and the output gain add up to 84 dB.
        EXPECT_LE(render.largestSample(), 0.5 * 16000) << "never louder than the loudest gain";
    }
}

TEST(UnitThreads, StateIsSavedAndRestoredWhileProcessing) {
    QVM0015_AudioUnit unit;
    const std::vector<std::uint8_t> initial = unit.saveState();
    AudioUnitSetParameter(&unit, 7, 0, 0, -12, 0);
    const std::vector<std::uint8_t> quiet = unit.saveState();
    const RenderThread render(unit);
    std::thread saver([&] {
        for (int i = 0; i < 500; ++i)
            EXPECT_EQ(unit.saveState().size(), initial.size());
    });
    for (int i = 0; i < 500; ++i)
        EXPECT_EQ(unit.restoreState(i % 2 ? initial : quiet), UnitStateResult::ok);
    saver.join();
}

TEST(UnitThreads, TextsAreReadWhileAnotherThreadRestores) {
    QVM0015_AudioUnit unit;
    const std::vector<std::uint8_t> initial = unit.saveState();
    std::thread restorer([&] {
        for (int i = 0; i < 2000; ++i)
            EXPECT_EQ(unit.restoreState(initial), UnitStateResult::ok);
    });
    for (int i = 0; i < 2000; ++i) {
        const std::string* name = nullptr;
        std::uint32_t size = sizeof name;
        ASSERT_EQ(AudioUnitGetProperty(&unit, 64004, 0, 0, &name, &size), noErr);
        EXPECT_EQ(*name, "Default");
    }
    restorer.join();
}

} // namespace
} // namespace QVM_NAMESPACE
