#include "program/SoundFile.h"

#include "plugin/standalone/AudioFiles.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace QVM_NAMESPACE {
namespace {

class SoundFileTest : public testing::Test {
protected:
    std::string whyNot(const std::string& path) const {
        const auto opened = openSoundFile(path);
        const auto* refusal = std::get_if<SoundFileRefusal>(&opened);
        return refusal ? refusal->why : "";
    }

    audiofiles::Directory directory_;
};

TEST_F(SoundFileTest, OpensWhatTheLibraryCanRead) {
    const std::vector<float> samples(12);
    const auto opened = openSoundFile(directory_.audio("a.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 3, 8000, samples));
    const auto* file = std::get_if<OpenSoundFile>(&opened);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->handle);
    EXPECT_EQ(file->info.channels, 3);
    EXPECT_EQ(file->info.frames, 4);
}

TEST_F(SoundFileTest, SaysWhatIsWrongAndWaitsForNobody) {
    ASSERT_EQ(mkfifo(directory_.file("pipe.wav").c_str(), 0600), 0);
    EXPECT_EQ(whyNot(directory_.file("pipe.wav")), "it is no file but a pipe or a device");
    EXPECT_EQ(whyNot(directory_.file("")), "it is a directory");
    EXPECT_EQ(whyNot(directory_.file("none.wav")), "No such file or directory");
    EXPECT_EQ(whyNot(directory_.bytes("empty.wav", "")), "it is empty");
    EXPECT_EQ(whyNot(directory_.bytes("text.wav", "this is only text")), "it is in no known format of audio");
    const std::string header("RIFF\x24\0\0\0WAVEfmt \x10\0\0\0", 20);
    EXPECT_EQ(whyNot(directory_.bytes("cut.wav", header)), "it is damaged");
}

} // namespace
} // namespace QVM_NAMESPACE
