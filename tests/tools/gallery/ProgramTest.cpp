// The gallery as it is started where there is no display.
#include "platform/surface/Image.h"
#include "plugin/standalone/AudioFiles.h"
#include "support/ShellCommand.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <set>
#include <sstream>

#include <sys/stat.h>

namespace QVM_NAMESPACE {
namespace {

using Outcome = slantwise_tests::CommandResult;

Outcome run(const std::string& arguments) {
    return slantwise_tests::runToolkitProgram("env -u DISPLAY timeout 20 " SLANTWISE_GALLERY " " + arguments);
}

class GalleryProgram : public testing::Test {
protected:
    // The picture that the program takes of itself, or null.
    std::shared_ptr<const Image> screenshot(const std::string& arguments) {
        const std::string file = directory_.file("shot.png");
        const Outcome outcome = run("--after 0.1 " + arguments + " --screenshot " + file);
        EXPECT_EQ(outcome.status, 0) << outcome.output;
        std::ifstream in(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        return Image::fromPng(std::as_bytes(std::span(bytes)));
    }
    static std::size_t differing(const Image& a, const Image& b) {
        if (a.pixels.size() != b.pixels.size()) return a.pixels.size();
        std::size_t count = 0;
        for (std::size_t i = 0; i < a.pixels.size(); ++i)
            count += a.pixels[i] != b.pixels[i];
        return count;
    }
    // How many pixels of the picture differ from its corner, which is plain page.
    static std::size_t drawn(const Image& image) {
        std::size_t count = 0;
        for (const std::uint32_t pixel : image.pixels)
            count += pixel != image.pixels[image.pixels.size() / 2 + static_cast<std::size_t>(image.width) - 1];
        return count;
    }

    audiofiles::Directory directory_;
};

TEST_F(GalleryProgram, EveryPageDrawsItselfInBothThemes) {
    std::istringstream pages(run("--pages").output);
    std::size_t count = 0;
    for (std::string page; std::getline(pages, page); ++count) {
        const auto light = screenshot("--scale 1 --page " + page);
        const auto dark = screenshot("--scale 1 --theme dark --page " + page);
        ASSERT_TRUE(light && dark) << page;
        EXPECT_EQ(light->width, 1120);
        EXPECT_EQ(light->height, 700);
        EXPECT_GT(drawn(*light), 80000u) << page;
        EXPECT_GT(differing(*light, *dark), light->pixels.size() / 2) << page;
    }
    EXPECT_EQ(count, 8u);
}

TEST_F(GalleryProgram, TheSamePageIsTheSamePictureAndAnotherIsNot) {
    const auto one = screenshot("--scale 1 --page Switches"), again = screenshot("--scale 1 --page Switches"),
               later = screenshot("--after 1.3 --scale 1 --page Switches"),
               other = screenshot("--scale 1 --page Numbers");
    ASSERT_TRUE(one && again && later && other);
    EXPECT_EQ(differing(*one, *again), 0u) << "whatever else the machine was doing";
    EXPECT_GT(differing(*one, *later), 100u) << "focus borders march";
    EXPECT_GT(differing(*one, *other), 8000u);
}

TEST_F(GalleryProgram, DrawsAtTheScaleThatIsAskedFor) {
    const auto large = screenshot("--scale 2 --page Choices");
    ASSERT_TRUE(large);
    EXPECT_EQ(large->width, 2240);
    EXPECT_EQ(large->height, 1400);
}

TEST_F(GalleryProgram, DisplaysAreTakenInMidSignalAndAlwaysAtTheSamePlace) {
    const auto one = screenshot("--scale 1 --page Displays --after 1.5"),
               again = screenshot("--scale 1 --page Displays --after 1.5"),
               earlier = screenshot("--scale 1 --page Displays --after 1.4");
    ASSERT_TRUE(one && again && earlier);
    EXPECT_EQ(differing(*one, *again), 0u);
    EXPECT_GT(differing(*one, *earlier), 1000u);
}

TEST_F(GalleryProgram, DisplaysShowTheSignalAndTheFile) {
    std::vector<float> quiet(48000, 0.001f);
    const std::string file = directory_.audio("quiet.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, quiet);
    const auto mono = screenshot("--scale 1 --page Displays --after 0.5 --signal mono"),
               anti = screenshot("--scale 1 --page Displays --after 0.5 --signal antiphase"),
               played = screenshot("--scale 1 --page Displays --after 0.5 " + file);
    ASSERT_TRUE(mono && anti && played);
    EXPECT_GT(differing(*mono, *anti), 500u);
    EXPECT_GT(differing(*mono, *played), 500u);
}

TEST_F(GalleryProgram, TellsWhereThingsStand) {
    const Outcome outcome = run("--events --after 0.1 --page Choices --screenshot " + directory_.file("shot.png"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.output.find("at Choices/Phase/normal 24 "), std::string::npos) << outcome.output;
}

TEST_F(GalleryProgram, MistakesEndItWithAMessage) {
    for (const char* arguments : {"--nope", "--scale x", "--page Nope", "--signal", "--signal square"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.output.rfind("slantwise-gallery: ", 0), 0U) << outcome.output;
    }
    EXPECT_EQ(run("--quit-after 0 " + directory_.file("missing.wav")).status, 1);
    EXPECT_EQ(run("--after 0 --screenshot " + directory_.file("no/such/folder.png")).status, 1);
}

TEST_F(GalleryProgram, WithNoDisplayItSaysSoAndFails) {
    for (const char* arguments : {"", "--quit-after 0.1", "--events --quit-after 0"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_EQ(outcome.output.rfind("slantwise-gallery: there is no display; ", 0), 0U) << outcome.output;
    }
}

TEST_F(GalleryProgram, OutputThatCannotBeWrittenIsAnError) {
    const std::string events = "--events --after 0.1 --screenshot " + directory_.file("shot.png");
    for (const std::string& arguments : {std::string("--help"), std::string("--pages"), events}) {
        const Outcome outcome = run(arguments + " 2>&1 >/dev/full");
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_EQ(outcome.output, "slantwise-gallery: cannot write the output\n") << arguments;
    }
}

TEST_F(GalleryProgram, APipeInPlaceOfAFileDoesNotHoldIt) {
    const std::string pipe = directory_.file("pipe.wav");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const Outcome outcome = run("--screenshot " + directory_.file("shot.png") + " " + pipe);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output,
              "slantwise-gallery: cannot read \"" + pipe + "\": it is no file but a pipe or a device\n");
}

TEST_F(GalleryProgram, HelpGoesToTheOutput) {
    const Outcome help = run("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.rfind("Usage: slantwise-gallery", 0), 0U) << help.output;
}

} // namespace
} // namespace QVM_NAMESPACE
