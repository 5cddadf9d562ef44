#include "tools/render/SoundWriter.h"

#include "tools/render/FileFormat.h"
#include "tools/render/NewFile.h"
#include "tools/render/RenderFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <sys/resource.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

class SoundWriterTest : public testing::Test {
protected:
    // Writes a file's samples to another file in a format, and answers what went wrong.
    std::string rewrite(const std::string& from, const std::string& to, int format, Dither dither = Dither::none) {
        const auto opened = openSoundFile(from);
        const auto& source = std::get<OpenSoundFile>(opened);
        std::vector<double> samples = samplesOf(from);
        NewFile file(to);
        SF_INFO info = source.info;
        info.format = format;
        SoundWriter writer(file.descriptor(), info, source.handle.get(), source.info, dither);
        const auto half = samples.size() / 4 * 2;
        writer.write(std::span(samples).first(half));
        writer.write(std::span(samples).subspan(half));
        writer.finish();
        return writer.problem().empty() ? file.keep(Replace::yes) : writer.problem();
    }

    // Every kind of coder that the library has.
    static constexpr std::array allKinds = {
        SF_FORMAT_WAV | SF_FORMAT_PCM_16, SF_FORMAT_AIFF | SF_FORMAT_PCM_16,         SF_FORMAT_FLAC | SF_FORMAT_PCM_16,
        SF_FORMAT_WAV | SF_FORMAT_ULAW,   SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, SF_FORMAT_OGG | SF_FORMAT_VORBIS,
        SF_FORMAT_OGG | SF_FORMAT_OPUS};

    // Of the file as it is where there is room, which is taken away again.
    rlim_t fullSize(const std::string& from, int format) {
        const std::string to = directory_.file("full");
        EXPECT_EQ(rewrite(from, to, format), "") << formatText(format);
        const auto size = std::filesystem::file_size(to);
        std::filesystem::remove(to);
        return size;
    }

    audiofiles::Directory directory_;
};

// The largest and the smallest number among them.
TEST_F(SoundWriterTest, SamplesOfEveryFormatComeBackAsTheyWere) {
    std::vector<float> samples = tones(2, 3000);
    samples[0] = -1;
    samples[1] = 0.9999999f;
    for (const int major :
         {SF_FORMAT_WAV, SF_FORMAT_AIFF, SF_FORMAT_FLAC, SF_FORMAT_CAF, SF_FORMAT_W64, SF_FORMAT_RF64}) {
        for (const int subtype :
             {SF_FORMAT_PCM_S8, SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32, SF_FORMAT_FLOAT,
              SF_FORMAT_DOUBLE, SF_FORMAT_ALAC_16, SF_FORMAT_ALAC_24}) {
            SF_INFO info{};
            info.samplerate = 48000;
            info.channels = 2;
            info.format = major | subtype;
            if (sf_format_check(&info) == 0) continue;
            const std::string from = directory_.audio("from", info.format, 2, 48000, samples);
            ASSERT_EQ(rewrite(from, directory_.file("to"), info.format), "") << formatText(info.format);
            EXPECT_EQ(samplesOf(directory_.file("to")), samplesOf(from)) << formatText(info.format);
            EXPECT_EQ(infoOf(directory_.file("to")).format, infoOf(from).format) << formatText(info.format);
        }
    }
}

TEST_F(SoundWriterTest, DitherIsForWholeNumbersOnly) {
    const std::string from = directory_.audio("from", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2, 48000, tones(2, 1000));
    const std::string plain = directory_.file("plain"), dithered = directory_.file("dithered");
    for (const auto& [subtype, isDithered] : {std::pair{SF_FORMAT_PCM_16, true},
                                              {SF_FORMAT_PCM_24, true},
                                              {SF_FORMAT_FLOAT, false},
                                              {SF_FORMAT_ULAW, false}}) {
        ASSERT_EQ(rewrite(from, plain, SF_FORMAT_WAV | subtype), "");
        ASSERT_EQ(rewrite(from, dithered, SF_FORMAT_WAV | subtype, Dither::triangular), "");
        EXPECT_EQ(samplesOf(plain) != samplesOf(dithered), isDithered) << subtype;
    }
}

TEST_F(SoundWriterTest, EveryRunWritesTheSameBytes) {
    const std::string from = directory_.audio("from", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2, 48000, tones(2, 1000));
    ASSERT_EQ(rewrite(from, directory_.file("one"), SF_FORMAT_WAV | SF_FORMAT_FLOAT), "");
    EXPECT_EQ(bytesOf(directory_.file("one")).find("PEAK"), std::string::npos) << "has the time of day in it";
}

TEST_F(SoundWriterTest, CompressedFilesAreOfHighQuality) {
    const std::string from = directory_.audio("from", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 2, 48000, tones(2, 96000));
    for (const int format : {SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, SF_FORMAT_OGG | SF_FORMAT_VORBIS}) {
        ASSERT_EQ(rewrite(from, directory_.file("to"), format), "");
        const auto bytes = static_cast<double>(std::filesystem::file_size(directory_.file("to")));
        EXPECT_GT(bytes * 8 / 2, 170000) << formatText(format); // bits a second
    }
}

// A file may grow to so many bytes, as if there were no more room on the disk.
class LimitedFileSize {
public:
    explicit LimitedFileSize(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~LimitedFileSize() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    LimitedFileSize(const LimitedFileSize&) = delete;
    LimitedFileSize& operator=(const LimitedFileSize&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_F(SoundWriterTest, WhatDoesNotFitOnTheDiskIsNoticedInEveryFormat) {
    const std::string from = directory_.audio("from", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2, 48000, tones(2, 20000));
    for (const int format : allKinds) {
        const LimitedFileSize limit(fullSize(from, format) / 2);
        EXPECT_EQ(rewrite(from, directory_.file("to"), format), "File too large") << formatText(format);
        EXPECT_FALSE(std::filesystem::exists(directory_.file("to")));
    }
}

TEST_F(SoundWriterTest, ALastPieceThatDoesNotFitIsNoticed) {
    const std::string from = directory_.audio("from", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2, 48000, tones(2, 20000));
    for (const int format : allKinds) {
        const LimitedFileSize limit(fullSize(from, format) - 1);
        EXPECT_NE(rewrite(from, directory_.file("to"), format), "") << formatText(format);
        EXPECT_FALSE(std::filesystem::exists(directory_.file("to")));
    }
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
