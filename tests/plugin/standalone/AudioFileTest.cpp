#include "plugin/standalone/AudioFile.h"

#include "plugin/standalone/AudioFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>

#include <sys/stat.h>

namespace QVM_NAMESPACE {
namespace {

constexpr int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_24, wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT,
              aiff = SF_FORMAT_AIFF | SF_FORMAT_PCM_24, flac = SF_FORMAT_FLAC | SF_FORMAT_PCM_24;

// A different tone in each channel, interleaved.
std::vector<float> tones(int channels, int frames) {
    std::vector<float> samples;
    for (int i = 0; i < frames; ++i)
        for (int c = 0; c < channels; ++c)
            samples.push_back(0.5f * std::sin(0.05f * static_cast<float>((c + 1) * i)));
    return samples;
}

AudioClip clipOf(const std::string& path, double maxSeconds = 600) {
    auto result = readAudioFile(path, maxSeconds);
    if (const auto* error = std::get_if<AudioFileError>(&result)) ADD_FAILURE() << error->message;
    auto* clip = std::get_if<AudioClip>(&result);
    return clip ? std::move(*clip) : AudioClip();
}

std::string errorOf(const std::string& path) {
    const auto result = readAudioFile(path);
    const auto* error = std::get_if<AudioFileError>(&result);
    return error ? error->message : "";
}

std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// The bytes with others in a place of them.
std::string with(std::string bytes, std::size_t at, const std::string& others) {
    return bytes.replace(at, others.size(), others);
}

class AudioFileTest : public testing::Test {
protected:
    audiofiles::Directory directory_;
};

TEST_F(AudioFileTest, WavAiffAndFlacComeBackAsWritten) {
    for (const auto& [format, name] : {std::pair{wav, "a.wav"}, std::pair{aiff, "a.aiff"}, std::pair{flac, "a.flac"}}) {
        for (const int channels : {1, 2}) {
            const auto samples = tones(channels, 9001); // not a whole number of read blocks
            const AudioClip clip = clipOf(directory_.audio(name, format, channels, 44100, samples));
            ASSERT_EQ(clip.channels.size(), static_cast<std::size_t>(channels)) << name;
            ASSERT_EQ(clip.frames(), 9001U) << name;
            EXPECT_EQ(clip.sampleRateHz, 44100) << name;
            for (std::size_t i = 0; i < samples.size(); ++i) {
                const auto at = static_cast<std::size_t>(channels);
                ASSERT_NEAR(clip.channels[i % at][i / at], samples[i], 1e-6) << name << " " << i;
            }
        }
    }
}

TEST_F(AudioFileTest, OfMoreThanTwoChannelsTheFirstTwoAreTaken) {
    const auto samples = tones(5, 500);
    const AudioClip clip = clipOf(directory_.audio("five.wav", wavFloat, 5, 48000, samples));
    ASSERT_EQ(clip.channels.size(), 2U);
    EXPECT_EQ(clip.channels[0][100], samples[500]);
    EXPECT_EQ(clip.channels[1][100], samples[501]);
}

TEST_F(AudioFileTest, SamplesThatAreNotFiniteBecomeSilence) {
    auto samples = tones(1, 100);
    samples[10] = std::numeric_limits<float>::quiet_NaN();
    samples[11] = std::numeric_limits<float>::infinity();
    const AudioClip clip = clipOf(directory_.audio("nan.wav", wavFloat, 1, 48000, samples));
    EXPECT_EQ(clip.channels[0][10], 0);
    EXPECT_EQ(clip.channels[0][11], 0);
    EXPECT_EQ(clip.channels[0][12], samples[12]);
}

TEST_F(AudioFileTest, ALongFileIsReadUpToTheLimit) {
    const AudioClip clip = clipOf(directory_.audio("long.wav", wav, 1, 8000, tones(1, 80000)), 2);
    EXPECT_GE(clip.frames(), 16000U);
    EXPECT_LT(clip.frames(), 16000U + 4096U);
}

TEST_F(AudioFileTest, WhatCannotBeReadIsNamedInTheMessage) {
    const std::string missing = directory_.file("missing.wav");
    const std::string garbage = directory_.bytes("garbage.wav", std::string(5000, 'x'));
    const std::string empty = directory_.bytes("empty.wav", "");
    const std::string headerOnly = directory_.audio("silent.wav", wav, 2, 48000, {});
    for (const std::string& path : {missing, garbage, empty, headerOnly, directory_.file("")}) {
        const std::string message = errorOf(path);
        EXPECT_NE(message.find(path), std::string::npos) << message;
        EXPECT_EQ(message.find('\n'), std::string::npos) << message;
        EXPECT_GT(message.size(), path.size() + 15) << "a reason: " << message;
    }
}

TEST_F(AudioFileTest, ACutFileGivesWhatIsThere) {
    const std::string whole = directory_.audio("whole.wav", wav, 1, 48000, tones(1, 1000));
    std::filesystem::resize_file(whole, std::filesystem::file_size(whole) / 2);
    const AudioClip clip = clipOf(whole);
    EXPECT_GT(clip.frames(), 300U);
    EXPECT_LT(clip.frames(), 1000U);
}

// Nobody has to write into the pipe for this to return.
TEST_F(AudioFileTest, WhatIsNoFileIsRefusedAtOnce) {
    const std::string pipe = directory_.file("pipe.wav");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(errorOf(pipe), "cannot read \"" + pipe + "\": it is no file but a pipe or a device");
    EXPECT_EQ(errorOf("/dev/zero"), "cannot read \"/dev/zero\": it is no file but a pipe or a device");
    EXPECT_EQ(errorOf(directory_.file(".")), "cannot read \"" + directory_.file(".") + "\": it is a directory");
    EXPECT_EQ(errorOf(directory_.bytes("empty.wav", "")),
              "cannot read \"" + directory_.file("empty.wav") + "\": it is empty");
    EXPECT_EQ(errorOf(directory_.file("missing.wav")),
              "cannot read \"" + directory_.file("missing.wav") + "\": No such file or directory");
}

TEST_F(AudioFileTest, ReasonsTellOfTheFileAndNotOfTheLibrary) {
    const auto reasonOf = [](const std::string& path) {
        return errorOf(path).substr(std::string("cannot read \"\": ").size() + path.size());
    };
    EXPECT_EQ(reasonOf(directory_.bytes("text.wav", std::string(5000, 'x'))), "it is in no known format of audio");
    EXPECT_EQ(reasonOf(directory_.audio("silent.wav", wav, 2, 48000, {})), "no audio in it");
    const std::string whole = directory_.audio("whole.wav", wav, 2, 48000, tones(2, 1000));
    EXPECT_EQ(reasonOf(directory_.bytes("head.wav", bytesOf(whole).substr(0, 30))), "it is damaged");
    EXPECT_EQ(reasonOf(directory_.bytes("norate.wav", with(bytesOf(whole), 24, std::string(4, '\0')))),
              "it is damaged");
    EXPECT_EQ(reasonOf(directory_.bytes("mute.wav", with(bytesOf(whole), 22, std::string(2, '\0')))), "it is damaged");
}

TEST_F(AudioFileTest, ASampleRateThatNothingPlaysAtIsNamed) {
    for (const int rateHz : {1, lowestClipRateHz - 1, highestClipRateHz + 1, 2000000000}) {
        const std::string message = errorOf(directory_.audio("rate.wav", wav, 1, rateHz, tones(1, 100)));
        EXPECT_NE(message.find("its sample rate is " + std::to_string(rateHz) + " Hz, and can be 4000 to 1000000 Hz"),
                  std::string::npos)
            << message;
    }
    for (const int rateHz : {lowestClipRateHz, highestClipRateHz})
        EXPECT_EQ(clipOf(directory_.audio("rate.wav", wav, 1, rateHz, tones(1, 100))).sampleRateHz, rateHz);
}

TEST_F(AudioFileTest, OneSampleAndHundredsOfChannelsArePlayed) {
    EXPECT_EQ(clipOf(directory_.audio("one.wav", wav, 1, 48000, tones(1, 1))).frames(), 1U);
    const AudioClip wide = clipOf(directory_.audio("wide.wav", wavFloat, 200, 48000, tones(200, 100)));
    EXPECT_EQ(wide.channels.size(), 2U);
    EXPECT_EQ(wide.frames(), 100U);
    EXPECT_FALSE(wide.isDamaged);
}

// MPEG's decoder writes to the error stream of the process, line after line.
TEST_F(AudioFileTest, ABrokenCompressedFileIsKnownAndItsDecoderKeepsQuiet) {
    for (const auto& [format, name] : {std::pair{SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, "a.mp3"},
                                       std::pair{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, "a.flac"}}) {
        const std::string whole = directory_.audio(name, format, 2, 48000, tones(2, 96000));
        if (whole.empty()) continue; // a library that cannot write it
        testing::internal::CaptureStderr();
        EXPECT_FALSE(clipOf(whole).isDamaged) << name;
        const std::string bytes = bytesOf(whole);
        const AudioClip cut = clipOf(directory_.bytes(std::string("cut-") + name, bytes.substr(0, bytes.size() / 2)));
        EXPECT_TRUE(cut.isDamaged) << name;
        EXPECT_GT(cut.frames(), 10000U) << name;
        std::string holes = bytes;
        for (std::size_t at = bytes.size() / 4; at < bytes.size(); at += 97)
            holes[at] = static_cast<char>(~holes[at]);
        EXPECT_TRUE(clipOf(directory_.bytes(std::string("holes-") + name, holes)).isDamaged) << name;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << name;
    }
}

TEST(PinkNoise, HasItsLevelAndNoOffsetAndTwoUnlikeChannels) {
    const AudioClip clip = pinkNoise(48000);
    ASSERT_EQ(clip.channels.size(), 2U);
    EXPECT_EQ(clip.frames(), 480000U);
    double energy = 0, sum = 0, cross = 0, peak = 0;
    for (std::size_t i = 0; i < clip.frames(); ++i) {
        const double left = clip.channels[0][i], right = clip.channels[1][i];
        energy += left * left;
        cross += left * right;
        sum += left;
        peak = std::max({peak, std::abs(left), std::abs(right)});
    }
    const auto frames = static_cast<double>(clip.frames());
    EXPECT_NEAR(std::sqrt(energy / frames), 0.125, 0.001);
    EXPECT_NEAR(sum / frames, 0, 0.02);
    EXPECT_LT(std::abs(cross) / energy, 0.2);
    EXPECT_LT(peak, 1);
}

// Energy in octave bands is alike, to within what a few first-order stages give.
TEST(PinkNoise, FallsThreeDecibelsAnOctave) {
    const AudioClip clip = pinkNoise(48000);
    const auto bandEnergy = [&](double centreHz) { // a second-order resonator an octave wide
        const double w = 2 * std::numbers::pi * centreHz / 48000, alpha = std::sin(w) / 2 / 1.414, a0 = 1 + alpha;
        double x1 = 0, x2 = 0, y1 = 0, y2 = 0, energy = 0;
        for (const float x : clip.channels[0]) {
            const double y = (alpha * x - alpha * x2 + 2 * std::cos(w) * y1 - (1 - alpha) * y2) / a0;
            x2 = x1, x1 = x, y2 = y1, y1 = y;
            energy += y * y;
        }
        return energy;
    };
    double last = 0;
    for (const double hz : {250.0, 500.0, 1000.0, 2000.0, 4000.0}) {
        const double energy = bandEnergy(hz);
        if (last == 0) last = energy;
        EXPECT_NEAR(10 * std::log10(energy / last), 0, 1.5) << hz;
        last = energy;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
