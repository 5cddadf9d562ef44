#include "plugin/standalone/Options.h"

#include "description/Description.h"
#include "presets/OwnPresetFile.h"
#include "program/NearestName.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using Arguments = std::vector<std::string>;

Options parsed(const Arguments& arguments) {
    const auto result = parseOptions(arguments);
    if (const auto* error = std::get_if<OptionsError>(&result)) ADD_FAILURE() << error->message;
    const auto* options = std::get_if<Options>(&result);
    return options ? *options : Options();
}

std::string errorOf(const Arguments& arguments) {
    const auto result = parseOptions(arguments);
    const auto* error = std::get_if<OptionsError>(&result);
    return error ? error->message : "";
}

std::string nearestPreset(const std::string& name) {
    return nearestName(name, GetPresets()->stringValues);
}

TEST(Options, NothingGivenIsPinkNoiseInTheThemeThatIsRemembered) {
    const Options options = parsed({});
    EXPECT_EQ(options.playFile, "");
    EXPECT_EQ(options.theme, Options::Theme::asKept);
    EXPECT_EQ(options.scale, 0);
    EXPECT_FALSE(options.spectrum) << "as it was kept";
    EXPECT_EQ(options.preset, "");
    EXPECT_FALSE(options.quitAfterSeconds);
}

TEST(Options, AllAreRead) {
    const Options options =
        parsed({"--play", "a b.wav", "--preset", "Air", "--theme", "dark", "--layout", "wide", "--spectrum", "both",
                "--scale", "1.25", "--screenshot", "x.png", "--after", "0.5", "--quit-after", "3"});
    EXPECT_EQ(options.playFile, "a b.wav");
    EXPECT_EQ(options.preset, "Air");
    EXPECT_EQ(options.theme, Options::Theme::dark);
    EXPECT_EQ(options.layout, Options::Layout::wide);
    EXPECT_EQ(options.spectrum, Options::Spectrum::both);
    EXPECT_EQ(options.scale, 1.25);
    EXPECT_EQ(options.screenshotFile, "x.png");
    EXPECT_EQ(options.afterSeconds, 0.5);
    EXPECT_EQ(options.quitAfterSeconds, 3);
}

TEST(Options, ABareArgumentIsTheFileToPlay) {
    EXPECT_EQ(parsed({"song.flac"}).playFile, "song.flac");
}

TEST(Options, ASecondBareArgumentIsAnError) {
    EXPECT_NE(errorOf({"a.wav", "b.wav"}).find("b.wav"), std::string::npos);
    EXPECT_NE(errorOf({"--play", "a.wav", "b.wav"}).find("\"b.wav\""), std::string::npos);
}

TEST(Options, AValueMayStandBehindAnEqualsSign) {
    EXPECT_EQ(parsed({"--scale=1.25"}).scale, 1.25);
    EXPECT_EQ(parsed({"--play=a=b.wav"}).playFile, "a=b.wav");
    EXPECT_EQ(errorOf({"--theme=pink"}), "--theme takes light or dark, not \"pink\"");
    EXPECT_EQ(errorOf({"--spectrum=pink"}), "--spectrum takes off, output or both, not \"pink\"");
}

TEST(Options, BehindTwoDashesAFileMayBeginWithOne) {
    EXPECT_EQ(parsed({"--", "-x.wav"}).playFile, "-x.wav");
    EXPECT_EQ(parsed({"--theme", "dark", "--"}).theme, Options::Theme::dark);
    EXPECT_EQ(errorOf({"--", "a.wav", "--theme"}), "unknown argument \"--theme\" (--help lists the options)");
}

TEST(Options, OfSeveralTheLastOneCounts) {
    EXPECT_EQ(parsed({"--theme", "light", "--theme", "dark"}).theme, Options::Theme::dark);
    EXPECT_EQ(parsed({"--play", "a.wav", "--play", "b.wav"}).playFile, "b.wav");
}

TEST(Options, AUsersPresetIsNamedAsASessionKeepsIt) {
    writeOwnPreset("Warm voice", "tg:4.5");
    EXPECT_EQ(parsed({"--preset", "Warm voice"}).preset, "User: Warm voice");
    EXPECT_EQ(parsed({"--preset", "User: Warm voice"}).preset, "User: Warm voice");
    EXPECT_EQ(errorOf({"--preset", "Warm vice"}),
              "there is no preset named \"Warm vice\"; the nearest is \"Warm voice\"");
}

TEST(Options, HelpAndVersionNeedNothingElse) {
    EXPECT_TRUE(parsed({"--help"}).showHelp);
    EXPECT_TRUE(parsed({"-h"}).showHelp);
    EXPECT_TRUE(parsed({"--version"}).showVersion);
}

TEST(Options, MistakesAreNamed) {
    EXPECT_EQ(errorOf({"--layout", "tall"}), "--layout takes normal, wide or compact, not \"tall\"");
    EXPECT_EQ(errorOf({"--preset", "Nope"}),
              "there is no preset named \"Nope\"; the nearest is \"" + nearestPreset("Nope") + "\"");
    EXPECT_EQ(errorOf({"--preset", "aer"}), "there is no preset named \"aer\"; the nearest is \"Air\"");
    EXPECT_NE(errorOf({"--theme", "pink"}).find("pink"), std::string::npos);
    EXPECT_NE(errorOf({"--frobnicate"}).find("--frobnicate"), std::string::npos);
    for (const char* text : {"", "-", "-x", "-theme"})
        EXPECT_EQ(errorOf({text}), "unknown argument \"" + std::string(text) + "\" (--help lists the options)");
    for (const char* option :
         {"--play", "--settings", "--preset", "--theme", "--scale", "--screenshot", "--after", "--quit-after"})
        EXPECT_EQ(errorOf({option}), std::string(option) + " needs a value");
}

TEST(Options, NumbersAreWholeTextsWithinTheirLimits) {
    for (const char* text : {"", "x", "2x", "0.4", "4.1", "nan", "inf", "-1", "1e9"})
        EXPECT_NE(errorOf({"--scale", text}), "") << text;
    for (const char* text : {"-1", "nan", "1e7"})
        EXPECT_NE(errorOf({"--quit-after", text}), "") << text;
    EXPECT_EQ(parsed({"--scale", "0.5"}).scale, 0.5);
    EXPECT_EQ(parsed({"--scale", "4"}).scale, 4);
}

TEST(Options, NumbersOutOfRangeNameTheRange) {
    EXPECT_EQ(errorOf({"--scale", "9"}), "--scale takes a number from 0.5 to 4, not \"9\"");
    EXPECT_EQ(errorOf({"--after", "-1"}), "--after takes a number from 0 to 3600, not \"-1\"");
    EXPECT_EQ(errorOf({"--quit-after=1e9"}), "--quit-after takes a number from 0 to 1000000, not \"1e9\"");
}

TEST(Options, QuittingBeforeThePictureIsAMistake) {
    EXPECT_EQ(errorOf({"--screenshot", "x.png", "--quit-after", "0.5", "--after", "1"}),
              "--quit-after 0.5 is before --after 1, so that there would be no picture");
    EXPECT_EQ(errorOf({"--quit-after", "1.5", "--screenshot", "x.png"}),
              "--quit-after 1.5 is before --after 2, so that there would be no picture");
    EXPECT_EQ(parsed({"--screenshot", "x.png", "--quit-after", "1", "--after", "1"}).quitAfterSeconds, 1);
    EXPECT_EQ(parsed({"--quit-after", "0.5"}).quitAfterSeconds, 0.5);
}

TEST(Options, SettingsAreAnAddressThatCanBeRead) {
    const std::string address = "https://maker.example/slantwise/2.0.1/?tg:6";
    EXPECT_EQ(parsed({"--settings", address}).settings, address);
    EXPECT_EQ(errorOf({"--settings", "tg=6"}), "cannot read the settings: it is not a web address");
    EXPECT_EQ(errorOf({"--settings", address + "/out:loud"}), "cannot read the settings: \"out\" has no number");
    EXPECT_EQ(errorOf({"--settings", ""}), "cannot read the settings: it is not a web address");
}

TEST(Options, HelpNamesEveryOption) {
    for (const char* option : {"--play", "--settings", "--preset", "--theme", "--scale", "--screenshot", "--after",
                               "--quit-after", "--help", "--version"})
        EXPECT_NE(helpText("slantwise").find(option), std::string::npos) << option;
}

} // namespace
} // namespace QVM_NAMESPACE
