// Nothing on the render thread allocates, locks or calls the system, whichever way the audio goes.
#include "unit/QVM0015_AudioUnit.h"

#include "support/RealtimeTrap.h"
#include "unit/Signals.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

struct Format {
    std::uint32_t chanIn, chanOut;
};

template <class Sample>
void everyPath(QVM0015_AudioUnit& unit, Format format) {
    signals::Channels<Sample> in(format.chanIn, signals::tone<Sample>(5000, 1000, 0.5));
    signals::Channels<Sample> out(format.chanOut, std::vector<Sample>(5000));
    const std::vector<Sample*> input = signals::pointers(in), output = signals::pointers(out);
    // Settled, gain ramp, ramp to silence, fade to off, off, fade to on with a new gain, unity again.
    const struct { float master, gainDb; } settings[] = {{1, 0}, {1, 12}, {1, -96}, {0, -96}, {0, 6}, {1, 6}, {1, 0}};
    for (const auto& setting : settings) {
        for (const std::uint32_t frames : {0U, 1U, 64U, 100U, 5000U}) {
            const realtime::Offences seen = realtime::offencesOf([&] {
                // The host automates from the render thread.
                AudioUnitSetParameter(&unit, 0, kAudioUnitScope_Global, 0, setting.master, 0);
                AudioUnitSetParameter(&unit, 7, kAudioUnitScope_Global, 0, setting.gainDb, 0);
                unit.process(input.data(), output.data(), frames);
                unit.process(input.data(), input.data(), frames);
            });
            EXPECT_FALSE(seen.any()) << seen << "; frames " << frames << ", gain " << setting.gainDb;
        }
    }
}

TEST(Realtime, NoPathAllocatesLocksOrCallsTheSystem) {
    for (const Format format : {Format{2, 2}, Format{1, 1}}) {
        QVM0015_AudioUnit unit;
        ASSERT_EQ(unit.prepare(48000, 512, format.chanIn, format.chanOut), noErr);
        everyPath<float>(unit, format);
        everyPath<double>(unit, format);
    }
}

// As above, with an editor open: parameters and levels go into the state it shares.
TEST(Realtime, PostingToAnEditorNeitherAllocatesNorLocks) {
    SharedState state;
    state.glide.sizeStates(UnitParameters::count);
    QVM0015_AudioUnit unit;
    SharedState* vizRef = &state;
    ASSERT_EQ(AudioUnitSetProperty(&unit, 64011, kAudioUnitScope_Global, 0, &vizRef, sizeof(void*)), noErr);
    everyPath<float>(unit, {2, 2});
    everyPath<double>(unit, {2, 2});
    const realtime::Offences seen = realtime::offencesOf([&] {
        for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid)
            AudioUnitSetParameter(&unit, pid, kAudioUnitScope_Global, 0, 5, 0);
    });
    EXPECT_FALSE(seen.any()) << seen;
    EXPECT_EQ(state.glide.parameterStates[pidTiltGain].value, 5);
    std::vector<float> in = signals::tone<float>(5000, 1000, 0.5);
    float* channels[] = {in.data(), in.data()};
    unit.process(channels, channels, 5000);
    EXPECT_GT(state.levels.latest(0), -20);
}

TEST(Realtime, MonoToStereoAndMissingChannelsNeitherAllocateNorLock) {
    QVM0015_AudioUnit unit;
    ASSERT_EQ(unit.prepare(48000, 512, 1, 2), noErr);
    std::vector<float> in = signals::tone<float>(500, 1000, 0.5), left(500), right(500);
    const float* input[] = {in.data()};
    float* output[] = {left.data(), right.data()};
    float* partial[] = {nullptr, right.data()};
    const realtime::Offences seen = realtime::offencesOf([&] {
        unit.process(input, output, 500);
        unit.process(static_cast<const float* const*>(nullptr), output, 500);
        unit.process(input, partial, 500);
    });
    EXPECT_FALSE(seen.any()) << seen;
}

// The negative control: what the unit does off the render thread is seen by the same trap.
TEST(Realtime, SavingStateIsNotForTheRenderThread) {
    QVM0015_AudioUnit unit;
    const realtime::Offences seen = realtime::offencesOf([&] { unit.saveState(); });
    EXPECT_GT(seen.heapCalls, 0U);
    EXPECT_GT(seen.locks, 0U);
}

} // namespace
} // namespace QVM_NAMESPACE
