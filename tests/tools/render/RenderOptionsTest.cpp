#include "tools/render/RenderOptions.h"

#include "plugin/standalone/AudioFiles.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

RenderOptions parsed(std::vector<std::string> arguments) {
    const auto result = parseRenderOptions(arguments);
    if (const auto* error = std::get_if<RenderOptionsError>(&result)) ADD_FAILURE() << error->message;
    const auto* options = std::get_if<RenderOptions>(&result);
    return options ? *options : RenderOptions();
}

std::string mistakeIn(std::vector<std::string> arguments) {
    const auto result = parseRenderOptions(arguments);
    const auto* error = std::get_if<RenderOptionsError>(&result);
    return error ? error->message : "";
}

using Files = std::vector<std::string>;

TEST(RenderOptions, FilesAloneAreEnough) {
    const RenderOptions options = parsed({"a.wav", "b.wav"});
    EXPECT_EQ(options.files, (Files{"a.wav", "b.wav"}));
    EXPECT_EQ(options.suffix, "-slantwise");
    EXPECT_FALSE(options.normaliseDb || options.dither || options.force || options.json || options.jobs);
    EXPECT_EQ(mistakeIn({}), "no files given (--help lists the options)");
}

TEST(RenderOptions, EveryOptionIsRead) {
    const RenderOptions options =
        parsed({"--preset", "2", "--suffix", "-x", "--format", "flac", "--bits", "16", "--dither", "--tail", "1.5",
                "--force", "--jobs", "3", "--json", "--normalise", "-3", "a.wav"});
    EXPECT_EQ(options.settings.presetIndex, 1);
    EXPECT_EQ(options.suffix, "-x");
    EXPECT_EQ(options.format.container, containerNamed("flac"));
    EXPECT_EQ(options.format.subtype, SF_FORMAT_PCM_16);
    EXPECT_EQ(options.tailSeconds, 1.5);
    EXPECT_EQ(options.jobs, 3);
    EXPECT_EQ(options.normaliseDb, -3);
    EXPECT_TRUE(options.dither && options.force && options.json);
    EXPECT_EQ(options.files, Files{"a.wav"});
    EXPECT_EQ(parsed({"--output", "b.wav", "--settings", "/?tg:2", "a.wav"}).output, "b.wav");
}

TEST(RenderOptions, NormaliseHasAValueOrTheUsualOne) {
    EXPECT_EQ(parsed({"--normalise", "a.wav"}).normaliseDb, -1);
    EXPECT_EQ(parsed({"--normalise", "a.wav"}).files, Files{"a.wav"});
    EXPECT_EQ(parsed({"a.wav", "--normalise"}).normaliseDb, -1);
    EXPECT_EQ(parsed({"--normalise", "-2.5", "a.wav"}).normaliseDb, -2.5);
    EXPECT_EQ(parsed({"--normalise=-6", "a.wav"}).normaliseDb, -6);
    EXPECT_EQ(parsed({"--normalise", "--force", "a.wav"}).normaliseDb, -1);
    EXPECT_EQ(parsed({"--", "--normalise"}).files, Files{"--normalise"});
    EXPECT_EQ(mistakeIn({"--normalise", "3", "a.wav"}), "--normalise takes a number from -60 to 0, not \"3\"");
}

TEST(RenderOptions, MistakesAreNamedWithWhatWouldBeRight) {
    const auto mistake = [](const std::string& option, const std::string& value) {
        return mistakeIn({option, value, "a.wav"});
    };
    EXPECT_EQ(mistake("--preset", "Aire"), "there is no preset named \"Aire\"; the nearest is \"Air\"");
    EXPECT_THAT(mistake("--settings", "x"), testing::StartsWith("cannot read the settings: "));
    EXPECT_EQ(mistake("--format", "doc"), "--format takes " + containerNames() + ", not \"doc\"");
    EXPECT_EQ(mistake("--bits", "20"), "--bits takes 16|24|32|float|double, not \"20\"");
    EXPECT_EQ(mistake("--jobs", "0"), "--jobs takes a whole number from 1 to 256, not \"0\"");
    EXPECT_EQ(mistake("--jobs", "1.5"), "--jobs takes a whole number from 1 to 256, not \"1.5\"");
    EXPECT_EQ(mistake("--tail", "61"), "--tail takes a number from 0 to 60, not \"61\"");
    EXPECT_EQ(mistake("--suffix", "a/b"), "--suffix is part of a name, and \"a/b\" has a / in it");
    EXPECT_EQ(mistake("--output", ""), "--output needs a value");
    EXPECT_EQ(mistake("--loud", "1"), "unknown argument \"--loud\" (--help lists the options)");
    EXPECT_EQ(mistakeIn({"-"}), "unknown argument \"-\" (--help lists the options)");
    EXPECT_EQ(mistakeIn({"a.wav", "--bits"}), "--bits needs a value");
}

TEST(RenderOptions, ContradictionsAreNamed) {
    EXPECT_EQ(mistakeIn({"--preset", "Air", "--settings", "/?tg:1", "a"}),
              "--preset and --settings are two answers to one question");
    EXPECT_EQ(mistakeIn({"--output", "b", "--suffix", "c", "a"}),
              "--output and --suffix are two answers to one question");
    EXPECT_EQ(mistakeIn({"--format", "flac", "--bits", "float", "a"}), "there are no flac files of such --bits");
}

TEST(RenderOptions, ANamedOutputSaysItsFormatUnlessThatIsTold) {
    EXPECT_EQ(parsed({"--output", "x.FLAC", "a.wav"}).format.container, containerNamed("flac"));
    EXPECT_EQ(parsed({"--output", "x.bak", "a.wav"}).format.container, nullptr);
    EXPECT_EQ(parsed({"--output", "x.flac", "--format", "caf", "a.wav"}).format.container, containerNamed("caf"));
    const audiofiles::Directory directory;
    std::filesystem::create_directory(directory.file("x.wav"));
    EXPECT_EQ(parsed({"--output", directory.file("x.wav"), "a.flac"}).format.container, nullptr) << "a folder";
}

TEST(RenderOptions, WhatIsOnlyAskedNeedsNoFiles) {
    EXPECT_TRUE(parsed({"--help"}).showHelp);
    EXPECT_TRUE(parsed({"-h"}).showHelp);
    EXPECT_TRUE(parsed({"--version"}).showVersion);
    EXPECT_TRUE(parsed({"--list-presets"}).listPresets);
    EXPECT_THAT(renderHelp("p"), testing::StartsWith("Usage: p [OPTIONS] [files...]\n"));
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
