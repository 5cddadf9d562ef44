#include "unit/VizLink.h"

#include "description/Description.h"
#include "unit/QVM0015_AudioUnit.h"
#include "unit/Signals.h"
#include "viz/QVM0015GLSketch.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>
#include <random>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

std::unique_ptr<QVM0015GLSketch> makeDrawing() {
    auto drawing = std::make_unique<QVM0015GLSketch>();
    drawing->init({PBSketchLevelMeter, PB_Sketches[1], PB_Parameters[7], 97, 217, 1}, 44100, 512);
    drawing->sizeStates(QVMParameterCount);
    return drawing;
}

float hostValue(std::uint32_t pid, float shown) {
    return GetParameter(pid)->reverseCastValue(shown);
}

class VizLinkTest : public testing::Test {
protected:
    float posted(std::uint32_t pid) const { return drawing->parameterStates[pid].value; }
    float level(int channel) const { return drawing->levelMeter()->channel(channel).level; }
    void endGlide() {
        for (int i = 0; i < 8; ++i)
            drawing->performInterp();
    }
    void set(std::uint32_t pid, float value) {
        ASSERT_EQ(parameters.set(pid, value), noErr);
        link.parameterChanged(pid);
    }

    UnitParameters parameters;
    VizLink link{parameters};
    std::unique_ptr<QVM0015GLSketch> drawing = makeDrawing();
};

TEST_F(VizLinkTest, ANewObjectGetsEveryParameterAndGlidesThere) {
    set(1, -7);
    link.exchange(drawing.get());
    EXPECT_EQ(link.vizRef(), drawing.get());
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const float shown = GetParameter(pid)->heldValueFromHostValue(parameters.value(pid));
        EXPECT_EQ(posted(pid), shown) << pid;
        EXPECT_EQ(drawing->interpTargets[pid], shown) << pid;
    }
    EXPECT_EQ(posted(1), -7);
    EXPECT_TRUE(drawing->isInterpolating);
    endGlide();
    EXPECT_EQ(drawing->parameterStates[1].displayValue, -7);
}

TEST_F(VizLinkTest, AnObjectThatShowsTheValuesAlreadyGlidesAllTheSame) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        drawing->parameterStates[pid].value = drawing->interpTargets[pid] =
            GetParameter(pid)->heldValueFromHostValue(parameters.value(pid));
    link.exchange(drawing.get());
    EXPECT_TRUE(drawing->isInterpolating) << "its first picture is made in a glide";
}

TEST_F(VizLinkTest, AChangeIsPostedAtOnceInTheShownDomain) {
    link.exchange(drawing.get());
    endGlide();
    ASSERT_FALSE(drawing->isInterpolating);
    set(2, 12005);
    EXPECT_NEAR(posted(2), 489.9f, 1e-3);
    EXPECT_EQ(drawing->interpTargets[2], posted(2));
    EXPECT_TRUE(drawing->parameterStates[2].interpolating);
    EXPECT_FALSE(drawing->parameterStates[3].interpolating);
    EXPECT_TRUE(drawing->isInterpolating);
}

TEST_F(VizLinkTest, AValueThatIsThereAlreadyStartsNoGlide) {
    link.exchange(drawing.get());
    set(2, 12005);
    endGlide();
    set(2, 12005);
    link.allParametersChanged();
    EXPECT_FALSE(drawing->isInterpolating);
    EXPECT_FALSE(drawing->parameterStates[2].interpolating);
}

// What any control of the editor can send, for every parameter but the hidden link switches, which read clamped.
TEST_F(VizLinkTest, AValueThatTheEditorSentComesBackBitForBit) {
    link.exchange(drawing.get());
    std::mt19937 random(15);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        std::uniform_real_distribution<float> position(0, 1);
        for (int i = 0; i < 3000; ++i) {
            const std::uint32_t granularity = i % 2 ? QVMGranularityFine : QVMGranularityNormal;
            const float sent = parameter.normalizedFloatValueFromPercent(position(random), granularity);
            if (parameter.castValue(hostValue(pid, sent)) < parameter.minValue) continue;
            set(pid, hostValue(pid, sent));
            ASSERT_EQ(posted(pid), parameter.heldValueFromHostValue(hostValue(pid, sent)));
            ASSERT_NEAR(posted(pid), sent, parameter.fineGranularity * 0.51f) << pid;
            if (i % 2 == 0) continue;
            ASSERT_EQ(posted(pid), sent) << pid;
        }
    }
}

TEST_F(VizLinkTest, NothingIsWrittenBeforeAnObjectIsThereOrAfterItWasTaken) {
    set(1, 3);
    link.exchange(drawing.get());
    EXPECT_EQ(posted(1), 3);
    link.exchange(nullptr);
    EXPECT_EQ(link.vizRef(), nullptr);
    set(1, 5);
    link.postLevels(std::array{1.0f, 1.0f});
    EXPECT_EQ(posted(1), 3);
    EXPECT_EQ(level(0), -96);
    link.exchange(drawing.get());
    EXPECT_EQ(posted(1), 5) << "the next one is up to date";
}

TEST_F(VizLinkTest, AnObjectWithFewerParametersGetsThose) {
    drawing->sizeStates(2);
    link.exchange(drawing.get());
    set(7, -3);
    set(1, 4);
    EXPECT_EQ(posted(1), 4);
}

TEST_F(VizLinkTest, ABlocksPeaksAreTheMetersLevels) {
    link.exchange(drawing.get());
    link.postLevels(std::array{1.0f, 0.1f});
    EXPECT_NEAR(level(0), 0, 1e-4);
    EXPECT_NEAR(level(1), -20, 1e-4);
    link.postLevels(std::array{0.0f, 8.0f});
    EXPECT_EQ(level(0), -96);
    EXPECT_EQ(level(1), 12);
}

TEST_F(VizLinkTest, OneOutputShowsOnBothChannels) {
    link.exchange(drawing.get());
    link.postLevels(std::array{0.5f});
    EXPECT_NEAR(level(0), -6.0206f, 1e-3);
    EXPECT_EQ(level(1), level(0));
}

TEST_F(VizLinkTest, AnObjectWithoutAMeterGetsNoLevels) {
    drawing = std::make_unique<QVM0015GLSketch>();
    drawing->sizeStates(QVMParameterCount);
    link.exchange(drawing.get());
    link.postLevels(std::array{1.0f, 1.0f});
    EXPECT_EQ(drawing->levelMeter(), nullptr);
}

class UnitViz : public testing::Test {
protected:
    void SetUp() override { give(drawing.get()); }
    ~UnitViz() override { close(); }
    void give(PBGLSketchAbstract* vizRef) { AudioUnitSetProperty(&unit, 64011, 0, 0, &vizRef, sizeof(void*)); }
    void close() {
        const std::uint32_t one = 1;
        AudioUnitSetProperty(&unit, 64012, 0, 0, &one, sizeof one);
    }
    void play(float amplitude, std::uint32_t frames) {
        std::vector<float> left = signals::tone<float>(frames, 1000, amplitude), right = left;
        float* channels[] = {left.data(), right.data()};
        unit.process(channels, channels, frames);
    }

    std::unique_ptr<QVM0015GLSketch> drawing = makeDrawing();
    QVM0015_AudioUnit unit;
};

TEST_F(UnitViz, AChangeOfTheHostsIsPostedWithNoAudio) {
    AudioUnitSetParameter(&unit, 1, 0, 0, -4, 0);
    EXPECT_EQ(drawing->parameterStates[1].value, -4);
}

TEST_F(UnitViz, ARestoredStateIsPosted) {
    QVM0015_AudioUnit other;
    AudioUnitSetParameter(&other, 1, 0, 0, 9, 0);
    ASSERT_EQ(unit.restoreState(other.saveState()), UnitStateResult::ok);
    EXPECT_EQ(drawing->parameterStates[1].value, 9);
}

TEST_F(UnitViz, TheMeterShowsTheOutput) {
    AudioUnitSetParameter(&unit, 8, 0, 0, 1, 0); // what leaves, not what comes in
    AudioUnitSetParameter(&unit, 7, 0, 0, -6, 0);
    AudioUnitSetParameter(&unit, 8, 0, 0, 1, 0); // after the gain, not before it
    play(0.5f, 4096);                            // past the gain's ramp
    play(0.5f, 512);
    EXPECT_NEAR(drawing->levelMeter()->channel(0).level, -12.0f, 0.1);
    play(0.5f, 0);
    EXPECT_NEAR(drawing->levelMeter()->channel(0).level, -12.0f, 0.1) << "an empty block says nothing";
}

TEST_F(UnitViz, ANewFormatStartsInSilence) {
    play(0.5f, 512);
    ASSERT_EQ(unit.prepare(48000, 512, 2, 2), noErr);
    EXPECT_EQ(drawing->levelMeter()->channel(0).level, -96);
}

// Under the thread and address sanitizers the test is that they say nothing: each object dies right after it was given
// up, while the render thread and a host's automation go on.
TEST_F(UnitViz, OpensAndClosesThousandsOfTimesWhileRendering) {
    std::atomic<bool> stop = false;
    std::atomic<int> blocks = 0;
    std::thread render([&] {
        for (float amplitude = 0.1f; !stop; amplitude = 1 - amplitude) {
            play(amplitude, 64);
            ++blocks;
        }
    });
    std::thread automation([&] {
        for (int i = 0; !stop; ++i)
            AudioUnitSetParameter(&unit, static_cast<std::uint32_t>(i % 24), 0, 0, static_cast<float>(i % 500), 0);
    });
    int levelled = 0;
    for (int i = 0; i < 3000; ++i) {
        auto next = makeDrawing();
        if (i % 2) close();
        give(next.get());
        drawing = std::move(next); // the earlier one is destroyed here
        drawing->performInterp();
        levelled += drawing->levelMeter()->channel(0).level > -96 ? 1 : 0;
        if (i % 100 == 0) {
            const int seen = blocks;
            while (blocks < seen + 3) // let it play into this one
                std::this_thread::yield();
        }
    }
    // A level is missed only while another thread is inside.
    for (int i = 0; i < 100000 && drawing->levelMeter()->channel(0).level == -96; ++i)
        std::this_thread::yield();
    EXPECT_GT(drawing->levelMeter()->channel(0).level, -96);
    stop = true;
    render.join();
    automation.join();
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        float now = 0;
        AudioUnitGetParameter(&unit, pid, 0, 0, &now);
        EXPECT_EQ(drawing->parameterStates[pid].value, GetParameter(pid)->heldValueFromHostValue(now)) << pid;
    }
}

// Several writers at once: the last value of each parameter is the one that is shown, whoever posted it.
TEST_F(UnitViz, NoChangeIsLeftBehindByThreadsThatMeet) {
    for (int round = 0; round < 200; ++round) {
        std::vector<std::thread> writers;
        for (std::uint32_t pid : {1u, 7u, 15u}) {
            writers.emplace_back([this, pid, round] {
                for (int i = 0; i <= 20; ++i)
                    AudioUnitSetParameter(&unit, pid, 0, 0, static_cast<float>((round + i) % 10), 0);
            });
        }
        for (std::thread& writer : writers)
            writer.join();
        for (const std::uint32_t pid : {1u, 7u, 15u}) {
            float now = 0;
            AudioUnitGetParameter(&unit, pid, 0, 0, &now);
            ASSERT_EQ(drawing->parameterStates[pid].value, GetParameter(pid)->heldValueFromHostValue(now));
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
