// The stand-alone program as a user starts it where there is no display.
#include "plugin/standalone/ProgramFixture.h"

#include <algorithm>
#include <filesystem>
#include <random>

#include <sys/stat.h>

namespace QVM_NAMESPACE {
namespace {

class StandaloneProgram : public ProgramFixture {
protected:
    static std::vector<float> noise(std::size_t count) {
        std::mt19937 random(5);
        std::uniform_real_distribution<float> sample(-1, 1);
        std::vector<float> samples(count);
        std::generate(samples.begin(), samples.end(), [&] { return sample(random); });
        return samples;
    }
};

TEST_F(StandaloneProgram, HelpAndVersionGoToTheOutput) {
    const Outcome help = run("--help"), version = run("--version");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.rfind("Usage: Slantwise", 0), 0U) << help.output;
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "Slantwise 2.0.1 (a6a669f)\n");
}

TEST_F(StandaloneProgram, SpeaksOfItselfByTheNameItIsCalledBy) {
    const std::string link = directory_.file("tilt");
    std::filesystem::create_symlink(SLANTWISE_STANDALONE, link);
    EXPECT_EQ(runShell(link + " --help").output.rfind("Usage: tilt [OPTIONS] [file]\n", 0), 0U);
    EXPECT_EQ(runShell(link + " --nope").output, "tilt: unknown argument \"--nope\" (--help lists the options)\n");
    EXPECT_EQ(runShell(link).output.rfind("tilt: there is no display", 0), 0U);
}

TEST_F(StandaloneProgram, OutputThatCannotBeWrittenIsAnError) {
    for (const char* option : {"--help", "--version"}) {
        for (const char* stream : {">/dev/full", ">&-"}) {
            const Outcome outcome = runShell(std::string("$P ") + option + " 2>&1 " + stream);
            EXPECT_EQ(outcome.status, 1) << option << stream;
            EXPECT_EQ(outcome.output, "Slantwise: cannot write the output\n") << option << stream;
        }
    }
    EXPECT_EQ(runShell("$P --help | true").output, "");
}

// What is opened first would get the number of the stream.
TEST_F(StandaloneProgram, DoesItsWorkWithAllStreamsClosed) {
    const std::string file = directory_.file("shot.png");
    EXPECT_EQ(runShell("$P --after 0.1 --screenshot " + file + " <&- >&- 2>&-").status, 0);
    EXPECT_TRUE(picture(file));
}

TEST_F(StandaloneProgram, NeedsNoHome) {
    const std::string file = directory_.file("shot.png");
    const Outcome outcome = runShell("HOME=/nonexistent XDG_CONFIG_HOME=/proc/no XDG_CACHE_HOME=/proc/no "
                                     "$P --after 0.1 --screenshot " +
                                     file);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(picture(file));
}

TEST_F(StandaloneProgram, ADisplayThatCannotBeOpenedIsNamed) {
    const Outcome outcome = runShell("DISPLAY=:7777 $P --quit-after 0");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output.rfind("Slantwise: cannot open the display \":7777\"; ", 0), 0U) << outcome.output;
}

TEST_F(StandaloneProgram, ADamagedFileIsPlayedWithAWord) {
    const std::string whole = directory_.audio("a.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 1, 48000, noise(96000));
    std::filesystem::resize_file(whole, std::filesystem::file_size(whole) / 2);
    const Outcome outcome = run("--after 0.1 --screenshot " + directory_.file("shot.png") + " " + whole);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "Slantwise: \"" + whole + "\" is damaged, and plays as far as it can be read\n");
}

TEST_F(StandaloneProgram, APipeInPlaceOfAFileDoesNotHoldIt) {
    const std::string pipe = directory_.file("pipe.wav");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const Outcome outcome = run("--screenshot " + directory_.file("shot.png") + " --play " + pipe);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "Slantwise: cannot read \"" + pipe + "\": it is no file but a pipe or a device\n");
}

TEST_F(StandaloneProgram, MistakesEndItWithTwoAndAMessage) {
    for (const char* arguments :
         {"--nope", "--scale x", "--preset Nope", "--play", "--screenshot x.png --quit-after 0"}) {
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
    for (const char* arguments : {"", "--quit-after 0.1", "--preset Air --after 0 --quit-after 0"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_NE(outcome.output.find("there is no display"), std::string::npos) << arguments << outcome.output;
    }
}

TEST_F(StandaloneProgram, AnUnreadableAudioFileIsNamed) {
    const std::string garbage = directory_.bytes("garbage.wav", std::string(3000, 'x'));
    for (const std::string& file : {garbage, directory_.file("missing.wav")}) {
        const Outcome outcome = run("--screenshot " + directory_.file("shot.png") + " --play " + file);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output.rfind("Slantwise: cannot read \"" + file + "\": ", 0), 0U) << outcome.output;
    }
}

TEST_F(StandaloneProgram, PlaysAFileForATime) {
    const Outcome outcome =
        run("--after 0 --screenshot " + directory_.file("shot.png") + " --quit-after 0.3 --play " + tone());
    EXPECT_EQ(outcome.status, 0) << outcome.output;
}

TEST_F(StandaloneProgram, APictureThatCannotBeWrittenIsAnError) {
    const Outcome outcome = run("--after 0 --screenshot " + directory_.file("no/such/folder.png"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find("cannot write"), std::string::npos) << outcome.output;
}

} // namespace
} // namespace QVM_NAMESPACE
