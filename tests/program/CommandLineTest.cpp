#include "program/CommandLine.h"

#include "program/Console.h"
#include "program/Wording.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include <optional>

namespace QVM_NAMESPACE {
namespace {

struct CommandLine : testing::Test {
    CommandLine() {
        app.set_help_flag();
        addOption(app, {"--word", "WORD", "says a word"}, [this](const std::string& value) {
            said += "word " + value + ";";
            return value == "bad" ? std::string("that is a bad word") : std::string();
        });
        addNumber(app, {"--size", "N", "sets a size"}, 1, 2, [this](double value) { size = value; });
        addFlag(app, "-l,--loud", loud, "is loud");
        addBareFile(app, "reads a file",
                    [this](const std::string& value) { return said += "file " + value + ";", std::string(); });
    }

    std::string parse(const std::vector<std::string>& arguments) { return parseCommandLine(app, arguments); }

    CLI::App app{"Does things."};
    std::string said;
    double size = 0;
    bool loud = false;
};

TEST_F(CommandLine, SettersAreCalledInTheOrderInWhichTheyWereAdded) {
    EXPECT_EQ(parse({"a.wav", "--word", "hello"}), "");
    EXPECT_EQ(said, "word hello;file a.wav;");
}

TEST_F(CommandLine, WhatASetterSaysIsTheMistake) {
    EXPECT_EQ(parse({"--word", "bad"}), "that is a bad word");
}

TEST_F(CommandLine, AValueIsWhateverComesNext) {
    EXPECT_EQ(parse({"--word", "--loud"}), "");
    EXPECT_EQ(said, "word --loud;");
    EXPECT_FALSE(loud);
}

TEST_F(CommandLine, NumbersAreReadInTheCLocaleAndWhole) {
    EXPECT_EQ(parse({"--size", "1.5"}), "");
    EXPECT_EQ(size, 1.5);
    for (const char* text : {"1,5", "nan", "0x1p0", "1.5 ", " 1.5", "0.9", "2.1", ""})
        EXPECT_EQ(parse({"--size", text}), "--size takes a number from 1 to 2, not \"" + std::string(text) + "\"");
}

TEST_F(CommandLine, FlagsHaveSeveralNames) {
    EXPECT_EQ(parse({"-l"}), "");
    EXPECT_TRUE(loud);
}

TEST(CommandLineOfAWindow, TheThemeIsLightOrDark) {
    CLI::App app;
    StartTheme theme = StartTheme::light;
    addTheme(app, theme);
    EXPECT_EQ(parseCommandLine(app, {"--theme", "dark"}), "");
    EXPECT_EQ(theme, StartTheme::dark);
    EXPECT_EQ(parseCommandLine(app, {"--theme", "pink"}), "--theme takes light or dark, not \"pink\"");
    EXPECT_EQ(theme, StartTheme::dark);
}

TEST(CommandLineOfAWindow, ScaleAndTheTimeToQuitHaveLimits) {
    CLI::App app;
    double scale = 0;
    std::optional<double> seconds;
    addScale(app, "the desktop's", scale);
    addQuitAfter(app, seconds);
    EXPECT_EQ(parseCommandLine(app, {"--scale", "4", "--quit-after", "0"}), "");
    EXPECT_EQ(scale, 4);
    EXPECT_EQ(seconds, 0);
    EXPECT_NE(parseCommandLine(app, {"--scale", "0.4"}), "");
    EXPECT_NE(parseCommandLine(app, {"--quit-after", "-1"}), "");
    EXPECT_NE(commandLineHelp(app, "name").find("0.5 to 4 (otherwise the desktop's)"), std::string::npos);
}

TEST_F(CommandLine, ASecondBareArgumentHasNoPlace) {
    EXPECT_EQ(parse({"a.wav", "b.wav"}), unknownArgument("b.wav"));
}

TEST_F(CommandLine, AFlagTakesNoValue) {
    EXPECT_EQ(parse({"--loud=1"}), "--loud takes no value");
    EXPECT_EQ(parse({"--loud=false"}), "--loud takes no value");
}

TEST_F(CommandLine, AFileHasAName) {
    std::string picture;
    addFile(app, {"--picture", "FILE", "writes a picture"}, picture);
    EXPECT_EQ(parse({"--picture", ""}), "--picture needs a value");
    EXPECT_EQ(parse({"--picture="}), "--picture needs a value");
    EXPECT_EQ(parse({"--picture", "a.png"}), "");
    EXPECT_EQ(picture, "a.png");
}

TEST_F(CommandLine, MissingValuesNameTheOption) {
    EXPECT_EQ(parse({"--loud", "--size"}), "--size needs a value");
}

TEST_F(CommandLine, AFlagIsFoundWhereverItStandsInALineThatCannotBeParsed) {
    EXPECT_TRUE(isGiven(app, "--loud", {"--word", "bad", "--none", "--loud"}));
    EXPECT_TRUE(isGiven(app, "--loud", {"--word=bad", "--loud"}));
    EXPECT_TRUE(isGiven(app, "--loud", {"file", "--loud"})) << "what the bare argument is called in the library";
    EXPECT_FALSE(isGiven(app, "--loud", {"--word", "--loud", "a.wav"})) << "it is the word";
    EXPECT_FALSE(isGiven(app, "--loud", {"--", "--loud"}));
    EXPECT_FALSE(isGiven(app, "--loud", {"--loud=3", "--word"}));
}

TEST_F(CommandLine, TheHelpBeginsWithTheNameThatTheProgramIsCalledByAndEndsWithItsExitStatuses) {
    EXPECT_EQ(commandLineHelp(app, "called"), "Usage: called [OPTIONS] [file]\nDoes things.\n\n"
                                              "Positionals:\n  file                  reads a file\n\n"
                                              "Options:\n  --word WORD           says a word\n"
                                              "  --size N              sets a size\n"
                                              "  -l,--loud             is loud\n\n" +
                                                  exitStatusHelp());
}

TEST(BareFiles, AreTakenInTheirOrderAndEachIsAName) {
    CLI::App app{"Reads files."};
    std::vector<std::string> files;
    addBareFiles(app, "files to read", files);
    EXPECT_EQ(parseCommandLine(app, {"a.wav", "--", "-b.wav"}), "");
    EXPECT_EQ(files, (std::vector<std::string>{"a.wav", "-b.wav"}));
    EXPECT_EQ(parseCommandLine(app, {"a.wav", ""}), unknownArgument(""));
}

TEST(VersionText, NamesProductVersionAndBuild) {
    EXPECT_EQ(versionText(), "Slantwise 2.0.1 (a6a669f)");
}

} // namespace
} // namespace QVM_NAMESPACE
