// The stand-alone program as a user starts it where there is no display.
#include "geometry/Geometry.h"
#include "platform/surface/Image.h"
#include "plugin/standalone/AudioFiles.h"
#include "support/ShellCommand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>

#include <sys/stat.h>

namespace QVM_NAMESPACE {
namespace {

using Outcome = slantwise_tests::CommandResult;

// A command of the shell in which $P is the program.
Outcome runShell(const std::string& command) {
    return slantwise_tests::runToolkitProgram("unset DISPLAY; P='timeout 20 " SLANTWISE_STANDALONE "'; " + command);
}

Outcome run(const std::string& arguments) {
    return runShell("$P " + arguments);
}

std::shared_ptr<const Image> picture(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    return Image::fromPng(std::as_bytes(std::span(bytes)));
}

class StandaloneProgram : public testing::Test {
protected:
    // The picture that the program takes of itself, or null.
    std::shared_ptr<const Image> screenshot(const std::string& arguments, const std::string& after = "0.3") {
        const std::string file = directory_.file("shot.png");
        const Outcome outcome = run(arguments + " --after " + after + " --screenshot " + file);
        EXPECT_EQ(outcome.status, 0) << outcome.output;
        return picture(file);
    }
    std::string tone() const {
        std::vector<float> samples;
        for (int i = 0; i < 9600; ++i)
            samples.push_back(0.25f * std::sin(0.06f * static_cast<float>(i)));
        return directory_.audio("tone.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, samples);
    }
    std::string silence() const {
        return directory_.audio("silence.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, std::vector<float>(4800));
    }
    // Noise that gets louder by 15 dB a second, for four seconds.
    std::string crescendo() const {
        std::mt19937 random(3);
        std::uniform_real_distribution<float> noise(-1, 1);
        std::vector<float> samples;
        for (int i = 0; i < 4 * 48000; ++i)
            samples.push_back(noise(random) * std::pow(10.0f, (-60 + 15 * static_cast<float>(i) / 48000) / 20));
        return directory_.audio("crescendo.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, samples);
    }
    static std::vector<float> noise(std::size_t count) {
        std::mt19937 random(5);
        std::uniform_real_distribution<float> sample(-1, 1);
        std::vector<float> samples(count);
        std::generate(samples.begin(), samples.end(), [&] { return sample(random); });
        return samples;
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

TEST_F(StandaloneProgram, HasTheThemeAndTheSizeThatAreRememberedUnlessItIsToldOthers) {
    const std::string folder = directory_.file("config"), file = folder + "/slantwise/preferences",
                      kept = "theme = 1\nscale = 1.5\n", shot = directory_.file("shot.png");
    std::filesystem::create_directories(folder + "/slantwise");
    std::ofstream(file) << kept;
    const auto shown = [&](const std::string& arguments) {
        EXPECT_EQ(runShell("XDG_CONFIG_HOME=" + folder + " $P --after 0.3 --screenshot " + shot + arguments).status, 0);
        return picture(shot);
    };
    const auto brightness = [](const Image& image) { return image.pixels[image.pixels.size() / 2] & 0xFF; };
    const auto remembered = shown("");
    ASSERT_TRUE(remembered);
    EXPECT_EQ(remembered->width, 720);
    EXPECT_EQ(remembered->height, 480);
    EXPECT_LT(brightness(*remembered), 64U);
    const auto told = shown(" --theme light --scale 1");
    ASSERT_TRUE(told);
    EXPECT_EQ(told->width, 480);
    EXPECT_GT(brightness(*told), 192U);
    std::ifstream in(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), kept) << "which is not remembered in turn";
}

// Its faces are its own.
TEST_F(StandaloneProgram, NeedsNoFontsOfTheSystem) {
    const std::string file = directory_.file("shot.png");
    EXPECT_EQ(runShell("FONTCONFIG_FILE=/dev/null $P --after 0.1 --screenshot " + file).status, 0);
    const auto shown = picture(file);
    ASSERT_TRUE(shown);
    EXPECT_GT(colours(*shown), 50U);
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
    const std::string still = "--play " + silence() + " --theme ";
    const auto light = screenshot(still + "light --preset Default", "2"),
               dark = screenshot(still + "dark --preset Default", "2"),
               air = screenshot(still + "light --preset Air", "2"),
               again = screenshot(still + "light --preset Default", "2");
    ASSERT_TRUE(light && dark && air && again);
    EXPECT_GT(differing(*light, *dark), light->pixels.size() / 2);
    EXPECT_GT(differing(*light, *air), 500U);
    EXPECT_EQ(differing(*light, *again), 0U);
}

// The preset that it starts with anyway, named: the border that a control with the keyboard wears would be the
// difference.
TEST_F(StandaloneProgram, NoControlHasTheKeyboardAtTheStart) {
    const std::string still = "--play " + silence();
    const auto plain = screenshot(still, "2"), named = screenshot(still + " --preset Default", "2");
    ASSERT_TRUE(plain && named);
    EXPECT_EQ(differing(*plain, *named), 0U);
}

TEST_F(StandaloneProgram, TheCurveIsInThePicture) {
    const auto flat = screenshot("--preset Default", "2"), air = screenshot("--preset Air", "2"),
               none = screenshot("--preset Air", "0.1");
    ASSERT_TRUE(flat && air && none);
    const auto differs = [](const Image& a, const Image& b) {
        std::size_t count = 0;
        for (int y = 196; y < 258; ++y) {
            for (int x = 422; x < 476; ++x) {
                const auto i = static_cast<std::size_t>(y * a.width + x);
                count += a.pixels[i] != b.pixels[i];
            }
        }
        return count;
    };
    EXPECT_GT(differs(*flat, *none), 100U);
    EXPECT_GT(differs(*flat, *air), 100U);
}

TEST_F(StandaloneProgram, WithAudioTheMeterMovesAndNothingElse) {
    const std::string play = "--play " + crescendo();
    const Rect track{350, 60, 15, 157};
    std::size_t inMeter = 0;
    // On a busy machine two runs may by chance be caught at the same moment of the music.
    for (int attempt = 0; attempt < 3 && inMeter == 0; ++attempt) {
        const auto one = screenshot(play, "2"), other = screenshot(play, "2.1");
        ASSERT_TRUE(one && other);
        for (std::size_t i = 0; i < one->pixels.size(); ++i) {
            if (one->pixels[i] == other->pixels[i]) continue;
            const auto width = static_cast<std::size_t>(one->width);
            const Point at{static_cast<double>(i % width) + 0.5, static_cast<double>(i / width) + 0.5};
            ASSERT_TRUE(track.contains(at)) << at.x << ", " << at.y;
            ++inMeter;
        }
    }
    EXPECT_GT(inMeter, 0U);
}

TEST_F(StandaloneProgram, SettingsShow) {
    const std::string address = "--play " + silence() + " --settings 'https://ferrowind.example/slantwise/2.0.1/?";
    const auto plain = screenshot("--play " + silence(), "2"), moved = screenshot(address + "tg:9/trl:200'", "2"),
               again = screenshot(address + "trl:200/TiltGain:9'", "2");
    ASSERT_TRUE(plain && moved && again);
    EXPECT_GT(differing(*plain, *moved), 500U);
    EXPECT_EQ(differing(*moved, *again), 0U);
}

TEST_F(StandaloneProgram, BlanksAndLineEndsRoundAnAddressAreNoPartOfIt) {
    const std::string address = "https://ferrowind.example/slantwise/2.0.1/?tg:9";
    const std::string still = "--play " + silence() + " --settings ";
    const auto bare = screenshot(still + "'" + address + "'", "2"),
               blank = screenshot(still + "' \t" + address + " \n'", "2");
    ASSERT_TRUE(bare && blank);
    EXPECT_EQ(differing(*bare, *blank), 0U);
}

TEST_F(StandaloneProgram, APictureThatCannotBeWrittenIsAnError) {
    const Outcome outcome = run("--after 0 --screenshot " + directory_.file("no/such/folder.png"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find("cannot write"), std::string::npos) << outcome.output;
}

} // namespace
} // namespace QVM_NAMESPACE
