#include "tools/render/SoundReader.h"

#include "tools/render/RenderFiles.h"

#include <gtest/gtest.h>

#include <limits>

namespace QVM_NAMESPACE {
namespace render {
namespace {

constexpr int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_24, wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

class SoundReaderTest : public testing::Test {
protected:
    SoundReader reader(const std::string& path, double tailSeconds = 0) const {
        return std::move(std::get<SoundReader>(SoundReader::open(path, tailSeconds)));
    }
    std::string whyNot(const std::string& path) const {
        const auto opened = SoundReader::open(path, 0);
        const auto* refusal = std::get_if<SoundFileRefusal>(&opened);
        return refusal ? refusal->why : "";
    }
    static std::vector<double> all(SoundReader& from, std::size_t blockFrames) {
        const auto channels = static_cast<std::size_t>(from.info().channels);
        std::vector<double> result, block(blockFrames * channels);
        while (const std::size_t got = from.read(block))
            result.insert(result.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(got * channels));
        return result;
    }
    std::string cut(const std::string& path, double share) const {
        const std::string bytes = bytesOf(path);
        return directory_.bytes("cut",
                                bytes.substr(0, static_cast<std::size_t>(share * static_cast<double>(bytes.size()))));
    }

    audiofiles::Directory directory_;
};

TEST_F(SoundReaderTest, ReadsAllOfAFileInBlocks) {
    const std::string path = directory_.audio("a.wav", wavFloat, 3, 44100, tones(3, 1001));
    SoundReader from = reader(path);
    EXPECT_EQ(from.frames(), 1001);
    EXPECT_EQ(all(from, 100), samplesOf(path));
    EXPECT_FALSE(from.isDamaged());
}

TEST_F(SoundReaderTest, ATailIsSilenceBehindTheEnd) {
    const std::string path = directory_.audio("a.wav", wavFloat, 2, 8000, tones(2, 150));
    SoundReader from = reader(path, 0.01);
    EXPECT_EQ(from.frames(), 230);
    std::vector<double> expected = samplesOf(path);
    expected.resize(2 * 230);
    EXPECT_EQ(all(from, 64), expected);
    EXPECT_FALSE(from.isDamaged());
}

TEST_F(SoundReaderTest, SamplesThatAreNotFiniteAreSilence) {
    auto samples = tones(1, 10);
    samples[3] = std::numeric_limits<float>::quiet_NaN();
    samples[4] = -std::numeric_limits<float>::infinity();
    SoundReader from = reader(directory_.audio("a.wav", wavFloat, 1, 48000, samples));
    const auto got = all(from, 100);
    EXPECT_EQ(got[3], 0);
    EXPECT_EQ(got[4], 0);
    EXPECT_EQ(got[5], static_cast<double>(samples[5]));
}

TEST_F(SoundReaderTest, RefusesWhatTheUnitCannotTake) {
    EXPECT_EQ(whyNot(directory_.audio("many.wav", wav, 200, 48000, std::vector<float>(400))),
              "it has 200 channels, and there can be 1 to 8");
    EXPECT_EQ(whyNot(directory_.audio("slow.wav", wav, 1, 3999, std::vector<float>(4))),
              "its sample rate is 3999 Hz, and can be 4000 to 1000000 Hz");
    EXPECT_EQ(whyNot(directory_.audio("none.wav", wav, 1, 48000, std::vector<float>())), "no audio in it");
    std::string noRate = bytesOf(directory_.audio("rate.wav", wav, 1, 48000, std::vector<float>(4)));
    noRate.replace(24, 4, std::string(4, '\0'));
    EXPECT_NE(whyNot(directory_.bytes("rate.wav", noRate)), "");
}

TEST_F(SoundReaderTest, AFileThatEndsEarlyIsReadAsFarAsItGoes) {
    for (const int format : {wav, SF_FORMAT_AIFF | SF_FORMAT_PCM_24, SF_FORMAT_FLAC | SF_FORMAT_PCM_24}) {
        const std::string whole = directory_.audio("whole", format, 2, 48000, tones(2, 30000));
        SoundReader from = reader(cut(whole, 0.5));
        const std::size_t frames = all(from, 1000).size() / 2;
        EXPECT_GT(frames, 5000U) << std::hex << format;
        EXPECT_LT(frames, 20000U) << std::hex << format;
        EXPECT_TRUE(from.isDamaged()) << std::hex << format;
    }
}

TEST(SaysThatTheEndIsMissing, OnlyWhereTheSamplesAreFewerThanTheFileSays) {
    EXPECT_TRUE(saysThatTheEndIsMissing("RIFF : 8\nWAVE\n data : 96000 (should be 48000)\nEnd\n"));
    EXPECT_FALSE(saysThatTheEndIsMissing("RIFF : 8 (should be 100)\nWAVE\ndata : 96000\n"));
    EXPECT_FALSE(saysThatTheEndIsMissing("data : 0 (should be 48000)\n")) << "a program was ended while it wrote";
    EXPECT_FALSE(saysThatTheEndIsMissing("data : 4294967295 (should be 48000)\n")) << "written into a pipe";
    EXPECT_FALSE(saysThatTheEndIsMissing("data : 2147483647 (should be 48000)\n"));
    EXPECT_FALSE(saysThatTheEndIsMissing(""));
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
