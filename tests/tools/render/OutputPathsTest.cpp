#include "tools/render/OutputPaths.h"

#include "plugin/standalone/AudioFiles.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

RenderOptions optionsFor(std::vector<std::string> files) {
    RenderOptions options;
    options.files = std::move(files);
    return options;
}

std::vector<std::string> outputsOf(const RenderOptions& options) {
    const auto paths = outputPaths(options);
    if (const auto* problem = std::get_if<PathsProblem>(&paths)) return {"problem: " + problem->message};
    std::vector<std::string> outputs;
    for (const FilePair& pair : std::get<std::vector<FilePair>>(paths))
        outputs.push_back(pair.output);
    return outputs;
}

using Paths = std::vector<std::string>;

TEST(OutputPaths, StandBesideTheFilesWithTheSuffix) {
    RenderOptions options = optionsFor({"/a/b.c.wav", "d", "./e.flac"});
    EXPECT_EQ(outputsOf(options), (Paths{"/a/b.c-slantwise.wav", "d-slantwise", "./e-slantwise.flac"}));
    options.suffix = "";
    EXPECT_EQ(outputsOf(options).front(), "/a/b.c.wav");
}

TEST(OutputPaths, EndAsTheFormatThatWasAskedFor) {
    RenderOptions options = optionsFor({"a.wav", "b.AIF", "c"});
    options.format.container = containerNamed("aiff");
    EXPECT_EQ(outputsOf(options), (Paths{"a-slantwise.aiff", "b-slantwise.AIF", "c-slantwise.aiff"}));
}

TEST(OutputPaths, OneFileGoesWhereItIsTold) {
    RenderOptions options = optionsFor({"a.wav"});
    options.output = "x.flac";
    EXPECT_EQ(outputsOf(options), Paths{"x.flac"});
    options.files.push_back("b.wav");
    EXPECT_EQ(outputsOf(options),
              Paths{"problem: --output \"x.flac\" is one file, or no folder yet, and there are 2 to write"});
}

TEST(OutputPaths, FilesGoIntoAFolderUnderTheirOwnNames) {
    const audiofiles::Directory directory;
    RenderOptions options = optionsFor({"q/a.wav", "b.wav"});
    options.output = directory.file("");
    EXPECT_EQ(outputsOf(options), (Paths{directory.file("a.wav"), directory.file("b.wav")}));
}

TEST(OutputPaths, NoTwoFilesGoToOnePlace) {
    const audiofiles::Directory directory;
    RenderOptions options = optionsFor({"q/a.wav", "r/a.wav"});
    options.output = directory.file("");
    EXPECT_EQ(outputsOf(options), Paths{"problem: \"q/a.wav\" and \"r/a.wav\" would both be written to \"" +
                                        directory.file("a.wav") + "\""});
    EXPECT_EQ(outputsOf(optionsFor({"a.wav", "./a.wav"})).size(), 1U) << "one file under two names";
}

TEST(OutputPaths, NoFileGoesOverOneThatIsToBeRead) {
    EXPECT_EQ(outputsOf(optionsFor({"a.wav", "a-slantwise.wav"})),
              Paths{"problem: \"a.wav\" would be written over \"a-slantwise.wav\", which is to be read"});
    RenderOptions itself = optionsFor({"a.wav", "b.wav"});
    itself.suffix = "";
    EXPECT_EQ(outputsOf(itself), (Paths{"a.wav", "b.wav"}));
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
