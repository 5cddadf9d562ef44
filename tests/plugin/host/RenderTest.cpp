// An audio file through the built VST3 and LV2: what comes out depends neither on the format nor on the host's blocks.
#include "description/Description.h"
#include "plugin/HostRange.h"
#include "plugin/host/HostedPlugin.h"
#include "plugin/standalone/AudioFile.h"
#include "plugin/standalone/AudioFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using slantwise_tests::Format;
using slantwise_tests::HostedPlugin;

constexpr int rateHz = 48000, largestBlock = 1024;
constexpr double agreementDb = -120;

using Channels = std::vector<std::vector<float>>;
using Settings = std::vector<std::pair<std::uint32_t, float>>; // pid and shown value
using Blocks = std::vector<int>;                               // frames, over and over

// Everything that sounds, in both qualities, and what the filters remove.
const std::vector<Settings> allSettings = {
    {{1, 7.5F}, {2, 90}, {3, 9000}, {6, 0}, {7, -3}, {9, 55}, {10, 11000}, {14, 18}, {15, 4}, {21, 33}, {22, 6}},
    {{1, -11},
     {2, 200},
     {3, 6000},
     {6, 1},
     {7, 2},
     {9, 80},
     {10, 14000},
     {14, 44},
     {15, 2},
     {21, 12},
     {22, 3},
     {23, 1}},
    {{1, 5}, {6, 3}, {9, 300}, {10, 5000}, {13, 1}, {14, 24}, {20, 1}, {21, 30}},
};

// Three seconds of stereo noise with a beat, as a 24-bit file on disk that is read back.
AudioClip fileClip() {
    AudioClip noise = pinkNoise(rateHz);
    std::vector<float> samples;
    for (std::size_t i = 0; i < 3 * rateHz; ++i) {
        const float beat = std::exp(-static_cast<float>(i % 12000) / 3000);
        for (const std::vector<float>& channel : noise.channels)
            samples.push_back(channel[i] * beat);
    }
    const audiofiles::Directory directory;
    auto result = readAudioFile(directory.audio("beat.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 2, rateHz, samples));
    AudioClip* const clip = std::get_if<AudioClip>(&result);
    return clip ? std::move(*clip) : AudioClip();
}

// The host's side of a render: settings, a second of silence in which they settle, and the clip.
class Render {
public:
    explicit Render(Format format) : format_(format), plugin_(format) {}

    bool isThere() const { return plugin_.instance() != nullptr; }
    int latency() const { return plugin_.instance()->getLatencySamples(); }

    Channels operator()(const AudioClip& clip, const Settings& settings, const Blocks& blocks) {
        juce::AudioPluginInstance& instance = *plugin_.instance();
        instance.releaseResources();
        instance.prepareToPlay(rateHz, largestBlock);
        setAll(settings);
        Channels silence(2, std::vector<float>(rateHz)), audio = clip.channels;
        process(silence, blocks);
        process(audio, blocks);
        return audio;
    }

private:
    void setAll(const Settings& settings) {
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            const QVMParameter& parameter = *GetParameter(pid);
            float shown = parameter.initialValue;
            for (const auto& [which, value] : settings)
                if (which == pid) shown = value;
            // A host's slider is linear over the unit's numbers, in LV2 over those that the user reads.
            const float number = format_ == Format::lv2 ? shown : parameter.reverseCastValue(shown);
            plugin_.parameter(std::string(parameter.name).c_str()).setValue(HostRange(parameter).normalised(number));
        }
    }
    void process(Channels& audio, const Blocks& blocks) {
        const int total = static_cast<int>(audio.front().size());
        std::size_t turn = 0;
        for (int at = 0; at < total;) {
            const int frames = std::min(blocks[turn++ % blocks.size()], total - at);
            float* const here[] = {audio[0].data() + at, audio[1].data() + at};
            juce::AudioBuffer<float> buffer(here, 2, frames);
            plugin_.instance()->processBlock(buffer, midi_);
            at += frames;
        }
    }

    const Format format_;
    HostedPlugin plugin_;
    juce::MidiBuffer midi_;
};

double energyOf(const Channels& audio) {
    double sum = 0;
    for (const std::vector<float>& channel : audio)
        for (const float sample : channel)
            sum += static_cast<double>(sample) * static_cast<double>(sample);
    return sum;
}

// The largest difference of two renders against the loudest sample of the first: dB.
double differenceDb(const Channels& a, const Channels& b) {
    double loudest = 0, largest = 0;
    for (std::size_t c = 0; c < a.size(); ++c) {
        for (std::size_t i = 0; i < a[c].size(); ++i) {
            loudest = std::max(loudest, std::abs(static_cast<double>(a[c][i])));
            largest = std::max(largest, std::abs(static_cast<double>(a[c][i]) - static_cast<double>(b[c][i])));
        }
    }
    return 20 * std::log10(largest / loudest + 1e-30);
}

TEST(RenderedFile, IsTheSameInBothFormatsAndAtEveryBlockSize) {
    const AudioClip clip = fileClip();
    ASSERT_EQ(clip.frames(), 3U * rateHz);
    Render vst3(Format::vst3), lv2(Format::lv2);
    ASSERT_TRUE(vst3.isThere());
    ASSERT_TRUE(lv2.isThere());
    for (std::size_t row = 0; row < allSettings.size(); ++row) {
        const Channels expected = vst3(clip, allSettings[row], {512});
        EXPECT_EQ(vst3.latency(), 0);
        EXPECT_EQ(lv2.latency(), 0);
        EXPECT_GT(energyOf(expected), 1e-4 * energyOf(clip.channels)) << "it is heard";
        EXPECT_GT(differenceDb(clip.channels, expected), -20) << "and it is not what went in";
        double worst = -600;
        for (const Blocks& blocks : {Blocks{32}, {64}, {441}, {512}, {1024}, {1, 1024, 17, 64, 500, 3}}) {
            for (Render* const render : {&vst3, &lv2}) {
                const double difference = differenceDb(expected, (*render)(clip, allSettings[row], blocks));
                EXPECT_LT(difference, agreementDb)
                    << (render == &vst3 ? "VST3" : "LV2") << ", settings " << row << ", blocks of " << blocks[0];
                worst = std::max(worst, difference);
            }
        }
        std::printf("settings %zu: largest difference %.1f dB\n", row, worst);
    }
}

// The negative control: a parameter that is off by a hundredth of a decibel is seen.
TEST(RenderedFile, ShowsTheSmallestDifferenceOfSettings) {
    const AudioClip clip = fileClip();
    Render vst3(Format::vst3);
    ASSERT_TRUE(vst3.isThere());
    Settings other = allSettings[0];
    other[0].second += 0.01F;
    EXPECT_GT(differenceDb(vst3(clip, allSettings[0], {512}), vst3(clip, other, {512})), agreementDb);
}

} // namespace
} // namespace QVM_NAMESPACE
