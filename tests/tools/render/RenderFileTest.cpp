#include "tools/render/RenderFile.h"

#include "tools/render/FileFormat.h"
#include "tools/render/RenderFiles.h"
#include "tools/render/UnitChain.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace QVM_NAMESPACE {
namespace render {
namespace {

constexpr int wav24 = SF_FORMAT_WAV | SF_FORMAT_PCM_24, wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

class RenderFileTest : public testing::Test {
protected:
    RenderFileTest() { EXPECT_EQ(options_.settings.choosePreset("Air"), ""); }

    RenderResult render(const std::string& from, const std::string& to = "out") {
        return renderFile({from, directory_.file(to)}, options_, progress_, [] { return false; });
    }
    std::string sound(int format, int channels = 2, int frames = 20000, float amplitude = 0.4f) const {
        return directory_.audio("in", format, channels, 48000, tones(channels, frames, amplitude));
    }
    std::vector<double> written() const { return samplesOf(directory_.file("out")); }

    audiofiles::Directory directory_;
    RenderOptions options_;
    RenderProgress progress_ = 0;
};

TEST_F(RenderFileTest, WritesWhatTheUnitMakesOfTheFile) {
    for (const auto& [format, width] : {std::pair{wavFloat, SampleWidth::single},
                                        std::pair{SF_FORMAT_WAV | SF_FORMAT_DOUBLE, SampleWidth::twofold}}) {
        const std::string from = sound(format, 3);
        options_.force = true;
        const RenderResult result = render(from);
        EXPECT_EQ(result.failure, "");
        EXPECT_EQ(result.frames, 20000);
        EXPECT_EQ(progress_, 1);
        std::vector<double> expected = samplesOf(from);
        UnitChain(options_.settings, 3, 48000, width).process(expected);
        EXPECT_EQ(written(), expected);
        EXPECT_NE(written(), samplesOf(from));
        EXPECT_EQ(infoOf(directory_.file("out")).format, format);
    }
}

TEST_F(RenderFileTest, InitialValuesChangeNoBitOfAnyFormat) {
    options_.settings = {};
    options_.force = true;
    for (const int format : {wav24, wavFloat, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, SF_FORMAT_AIFF | SF_FORMAT_PCM_S8}) {
        const std::string from = sound(format);
        EXPECT_EQ(render(from).failure, "");
        EXPECT_EQ(written(), samplesOf(from)) << formatText(format);
    }
}

TEST_F(RenderFileTest, EveryKindOfFileBecomesEveryOther) {
    options_.force = true;
    std::vector<FormatRequest> requests;
    std::istringstream names(containerNames());
    for (std::string name; std::getline(names, name, '|');)
        requests.push_back({containerNamed(name), std::nullopt});
    SF_INFO info{};
    info.samplerate = 48000;
    info.channels = 2;
    info.format = wav24;
    for (const FormatRequest& kind : requests) {
        options_.format = {};
        const auto format = formatToWrite(info, kind, 3000);
        ASSERT_TRUE(format) << kind.container->name;
        const std::string from = sound(format->format, 2, 3000);
        for (const FormatRequest& wanted : requests) {
            options_.format = wanted;
            EXPECT_EQ(render(from).failure, "") << kind.container->name << " to " << wanted.container->name;
            EXPECT_GE(infoOf(directory_.file("out")).frames, 3000)
                << kind.container->name << " to " << wanted.container->name;
        }
    }
}

TEST_F(RenderFileTest, LoudnessIsOfTheFileBeforeAndOfTheFileThatWasWritten) {
    options_.settings = {};
    ASSERT_EQ(options_.settings.chooseAddress("/?out:-6"), "");
    const RenderResult result = render(sound(wav24, 2, 48000));
    ASSERT_TRUE(result.before.integratedLufs && result.after.integratedLufs);
    EXPECT_NEAR(*result.before.integratedLufs - *result.after.integratedLufs, 6, 0.01);
    EXPECT_NEAR(decibels(result.before.truePeak) - decibels(result.after.truePeak), 6, 0.01);
}

TEST_F(RenderFileTest, NormalisingBringsTheTruePeakWhereItIsToBe) {
    for (const double peakDb : {-1.0, -20.0, 0.0}) {
        options_.normaliseDb = peakDb;
        options_.force = true;
        const RenderResult result = render(sound(wavFloat, 2, 20000, 0.01f));
        EXPECT_NEAR(decibels(result.after.truePeak), peakDb, 0.001);
        ASSERT_TRUE(result.gainDb);
        LoudnessMeter meter(2, 48000, {}, LoudnessMeter::Measures::peaks);
        meter.add(written());
        EXPECT_NEAR(decibels(meter.result().truePeak), peakDb, 0.001);
    }
}

TEST_F(RenderFileTest, SilenceCannotBeNormalised) {
    options_.normaliseDb = -1;
    const RenderResult result = render(directory_.audio("in", wav24, 2, 48000, std::vector<float>(2000)));
    EXPECT_EQ(result.failure, "");
    EXPECT_FALSE(result.gainDb);
    EXPECT_EQ(written(), std::vector<double>(2000));
}

TEST_F(RenderFileTest, ATailMakesTheFileLonger) {
    options_.tailSeconds = 0.5;
    EXPECT_EQ(render(sound(wavFloat)).frames, 44000);
    EXPECT_EQ(written().size(), 2 * 44000U);
    EXPECT_NE(written()[2 * 20001], 0) << "it rings";
}

TEST_F(RenderFileTest, WhatIsThereIsNotReplacedUnlessToldTo) {
    const std::string from = sound(wav24), to = directory_.bytes("out", "mine");
    EXPECT_EQ(render(from).failure, "cannot write \"" + to + "\": it is there already, and --force would replace it");
    EXPECT_EQ(bytesOf(to), "mine");
    options_.force = true;
    EXPECT_EQ(render(from).failure, "");
    EXPECT_EQ(written().size(), 40000U);
}

TEST_F(RenderFileTest, TheFileItselfIsReplacedSafely) {
    const std::string from = sound(wav24);
    EXPECT_EQ(render(from, "in").failure,
              "cannot write \"" + from + "\": it is the file that is read, and --force would replace it");
    const RenderResult beside = render(from);
    options_.force = true;
    EXPECT_EQ(render(from, "in").failure, "");
    EXPECT_EQ(samplesOf(from), written());
    EXPECT_EQ(entriesIn(directory_.file("")), 2U);
}

TEST_F(RenderFileTest, StoppedInTheMiddleItLeavesNothing) {
    int blocks = 0;
    const RenderResult result = renderFile({sound(wav24, 2, 60000), directory_.file("out")}, options_, progress_,
                                           [&blocks] { return ++blocks > 3; });
    EXPECT_TRUE(result.isInterrupted);
    EXPECT_FALSE(result.isWritten());
    EXPECT_GT(progress_, 0);
    EXPECT_EQ(entriesIn(directory_.file("")), 1U);
}

TEST_F(RenderFileTest, ADamagedFileIsRenderedAsFarAsItGoes) {
    const std::string bytes = bytesOf(sound(wav24));
    const RenderResult result = render(directory_.bytes("in", bytes.substr(0, bytes.size() / 2)));
    EXPECT_TRUE(result.isDamaged);
    EXPECT_TRUE(result.isWritten());
    EXPECT_EQ(static_cast<std::size_t>(result.frames) * 2, written().size());
}

TEST_F(RenderFileTest, SamplesThatAreCutOffAreCounted) {
    options_.settings = {};
    ASSERT_EQ(options_.settings.chooseAddress("/?out:12"), "");
    const std::string from = sound(wav24);
    EXPECT_GT(render(from).clipped, 100U);
    options_.force = true;
    EXPECT_TRUE(options_.format.chooseBits("float"));
    EXPECT_EQ(render(from).clipped, 0U);
}

TEST_F(RenderFileTest, SaysWhatCannotBeReadOrWritten) {
    EXPECT_EQ(render(directory_.bytes("in", "text")).failure,
              "cannot render \"" + directory_.file("in") + "\": it is in no known format of audio");
    EXPECT_EQ(render(sound(wav24), "none/out").failure,
              "cannot write \"" + directory_.file("none/out") + "\": No such file or directory");
    options_.format.container = containerNamed("mp3");
    EXPECT_EQ(render(sound(wav24, 6)).failure, "cannot write \"" + directory_.file("out") +
                                                   "\": there are no such files of this kind, rate and channels");
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
