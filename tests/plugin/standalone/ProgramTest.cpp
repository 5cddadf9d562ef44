// The stand-alone program as a user starts it where there is no display.
#include "platform/Image.h"
#include "plugin/standalone/AudioFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>

#include <sys/wait.h>

namespace QVM_NAMESPACE {
namespace {

struct Outcome {
    int status = -1;
    std::string output; // both streams
};

Outcome run(const std::string& arguments) {
    Outcome outcome;
    FILE* const pipe =
        popen(("env -u DISPLAY timeout 20 " SLANTWISE_STANDALONE " " + arguments + " 2>&1").c_str(), "r");
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe))
        outcome.output += buffer.data();
    const int status = pclose(pipe);
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    return outcome;
}

std::shared_ptr<const Image> picture(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    return Image::fromPng(std::as_bytes(std::span(bytes)));
}

class StandaloneProgram : public testing::Test {
protected:
    // The picture that the program takes of itself, or null.
    std::shared_ptr<const Image> screenshot(const std::string& arguments) {
        const std::string file = directory_.file("shot.png");
        const Outcome outcome = run(arguments + " --after 0.3 --screenshot " + file);
        EXPECT_EQ(outcome.status, 0) << outcome.output;
        return picture(file);
    }
    std::string tone() const {
        std::vector<float> samples;
        for (int i = 0; i < 9600; ++i)
            samples.push_back(0.25f * std::sin(0.06f * static_cast<float>(i)));
        return directory_.audio("tone.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, samples);
    }
    static std::size_t colours(const Image& image) {
        return std::set<std::uint32_t>(image.pixels.begin(), image.pixels.end()).size();
    }
    static std::size_t differing(const Image& a, const Image& b) {
        std::size_t count = a.pixels.size() == b.pixels.size() ? 0 : a.pixels.size();
        for (std::size_t i = 0; count < a.pixels.size() && i < a.pixels.size(); ++i)
            count += a.pixels[i] != b.pixels[i];
        return count;
    }

    audiofiles::Directory directory_;
};

TEST_F(StandaloneProgram, HelpAndVersionGoToTheOutput) {
    const Outcome help = run("--help"), version = run("--version");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.rfind("Usage: Slantwise", 0), 0U) << help.output;
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "Slantwise 2.0.1 (a6a669f)\n");
}

TEST_F(StandaloneProgram, MistakesEndItWithTwoAndAMessage) {
    for (const char* arguments : {"--nope", "--scale x", "--preset Nope", "--play"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.output.rfind("Slantwise: ", 0), 0U) << outcome.output;
    }
}

TEST_F(StandaloneProgram, SettingsThatCannotBeReadAreAMistakeWithAReason) {
    const Outcome outcome = run("--settings anything --quit-after 0");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "Slantwise: cannot read the settings: it is not a web address\n");
}

TEST_F(StandaloneProgram, WithNoDisplayItSaysSo) {
    const Outcome outcome = run("");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find("there is no display"), std::string::npos) << outcome.output;
}

TEST_F(StandaloneProgram, AnUnreadableAudioFileIsNamed) {
    const std::string garbage = directory_.bytes("garbage.wav", std::string(3000, 'x'));
    for (const std::string& file : {garbage, directory_.file("missing.wav")}) {
        const Outcome outcome = run("--quit-after 0 --play " + file);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output.rfind("Slantwise: cannot read \"" + file + "\": ", 0), 0U) << outcome.output;
    }
}

TEST_F(StandaloneProgram, PlaysAFileForATime) {
    const Outcome outcome = run("--quit-after 0.3 --play " + tone());
    EXPECT_EQ(outcome.status, 0) << outcome.output;
}

TEST_F(StandaloneProgram, TakesItsPictureOffScreenAtEitherScale) {
    const auto small = screenshot("--scale 1 " + tone()), large = screenshot("--scale 2 " + tone());
    ASSERT_TRUE(small && large);
    EXPECT_EQ(small->width, 480);
    EXPECT_EQ(small->height, 320);
    EXPECT_EQ(large->width, 960);
    EXPECT_EQ(large->height, 640);
    EXPECT_GT(colours(*small), 50U);
    EXPECT_GT(colours(*large), 50U);
}

TEST_F(StandaloneProgram, ThemesAndPresetsShow) {
    const auto light = screenshot("--theme light --preset Default"), dark = screenshot("--theme dark --preset Default"),
               air = screenshot("--theme light --preset Air"), again = screenshot("--theme light --preset Default");
    ASSERT_TRUE(light && dark && air && again);
    EXPECT_GT(differing(*light, *dark), light->pixels.size() / 2);
    EXPECT_GT(differing(*light, *air), 500U);
    EXPECT_EQ(differing(*light, *again), 0U);
}

TEST_F(StandaloneProgram, SettingsShow) {
    const std::string address = " --settings 'https://ferrowind.example/slantwise/2.0.1/?";
    const auto plain = screenshot(""), initial = screenshot("--preset Air" + address + "'"),
               moved = screenshot(address + "tg:9/trl:200'"), again = screenshot(address + "trl:200/TiltGain:9'");
    ASSERT_TRUE(plain && initial && moved && again);
    EXPECT_GT(differing(*plain, *moved), 500U);
    EXPECT_EQ(differing(*moved, *again), 0U);
}

TEST_F(StandaloneProgram, APictureThatCannotBeWrittenIsAnError) {
    const Outcome outcome = run("--after 0 --screenshot " + directory_.file("no/such/folder.png"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find("cannot write"), std::string::npos) << outcome.output;
}

} // namespace
} // namespace QVM_NAMESPACE
