#include "tools/render/RenderOptions.h"

#include "description/NumberText.h"
#include "program/OptionsLine.h"
#include "program/Wording.h"

#include <filesystem>

namespace QVM_NAMESPACE {
namespace render {

namespace {

constexpr double lowestPeakDb = -60, highestPeakDb = 0, usualPeakDb = -1;
constexpr double longestTail = 60; // seconds
constexpr int mostJobs = 256;

std::string setSuffix(RenderOptions& options, const std::string& value) {
    if (value.find('/') != std::string::npos) return "--suffix is part of a name, and \"" + value + "\" has a / in it";
    options.suffix = value;
    return {};
}

std::string setFormat(RenderOptions& options, const std::string& value) {
    options.format.container = containerNamed(value);
    return options.format.container ? "" : takesNot("--format", containerNames(), value);
}

std::string setBits(RenderOptions& options, const std::string& value) {
    if (options.format.chooseBits(value)) return {};
    return takesNot("--bits", std::string(FormatRequest::bitNames), value);
}

std::string setJobs(RenderOptions& options, const std::string& value) {
    const std::optional<int> number = WholeNumberFromText<int>(value);
    if (!number || *number < 1 || *number > mostJobs)
        return takesNot("--jobs", "a whole number from 1 to " + std::to_string(mostJobs), value);
    options.jobs = *number;
    return {};
}

class RenderLine : public OptionsLine<RenderOptions> {
public:
    explicit RenderLine(RenderOptions& options)
        : OptionsLine(options, "Processes sound files with the tilt equaliser and measures their loudness. Writes each "
                               "beside itself\nunless told where to, and nothing over a file that is there.") {
        addBareFiles(app, "the sound files to process", options.files);
        addOption(app, {"--preset", "NAME", "the preset of this name, or the factory's of this number"},
                  [this](const std::string& value) { return options_.settings.choosePreset(value); });
        addOption(app, {"--settings", "ADDRESS", "the settings of an address, as copied from an editor"},
                  [this](const std::string& value) { return options_.settings.chooseAddress(value); });
        addFile(app, {"--output", "FILE", "where to write to: a file, or a folder for all of them"}, options.output);
        add({"--suffix", "TEXT", "what to put before the ending of a name otherwise (-slantwise)"}, setSuffix);
        add({"--format", containerNames(), "write files of this kind (as they are, or as the output is named)"},
            setFormat);
        add({"--bits", std::string(FormatRequest::bitNames), "write samples of this kind (as they are)"}, setBits);
        addNumber(app, {"--normalise", "[DB]", "bring the true peak to -60 to 0 dBTP (-1)"}, lowestPeakDb,
                  highestPeakDb, [this](double v) { options_.normaliseDb = v; });
        addFlag(app, "--dither", options.dither, "add triangular dither where samples become whole numbers");
        addNumber(app, {"--tail", "SECONDS", "let the sound ring on for so long behind the end (0)"}, 0, longestTail,
                  [this](double v) { options_.tailSeconds = v; });
        addFlag(app, "--force", options.force, "replace files that are there already");
        add({"--jobs", "N", "how many files to work on at once (as many as there are processors)"}, setJobs);
        addFlag(app, "--json", options.json, "print what was done and measured as one JSON object");
        addFlag(app, "--list-presets", options.listPresets,
                "print the names of the presets, with the numbers of the factory's");
        addFlag(app, "-h,--help", options.showHelp, "print this");
        addFlag(app, "--version", options.showVersion, "print the version");
    }
};

// The value of --normalise may be left out: what is no number behind it is the next argument.
std::vector<std::string> withNormaliseValue(std::vector<std::string> arguments) {
    const std::string option = "--normalise";
    for (std::size_t i = 0; i < arguments.size() && arguments[i] != "--"; ++i) {
        if (arguments[i] != option) continue;
        const bool hasValue = i + 1 < arguments.size() && NumberFromText<double>(arguments[i + 1]);
        if (hasValue) {
            ++i;
        } else {
            arguments[i] += "=" + numberText(usualPeakDb);
        }
    }
    return arguments;
}

bool processesFiles(const RenderOptions& options) {
    return !options.showHelp && !options.showVersion && !options.listPresets;
}

// What is wrong with options that are right each by itself, or nothing.
std::string contradictionIn(const RenderOptions& options, const CLI::App& app) {
    const auto given = [&app](const std::string& name) { return app.get_option(name)->count() > 0; };
    if (given("--preset") && given("--settings")) return "--preset and --settings are two answers to one question";
    if (given("--output") && given("--suffix")) return "--output and --suffix are two answers to one question";
    if (options.files.empty() && processesFiles(options)) return "no files given (--help lists the options)";
    if (!options.format.container || !options.format.subtype) return {};
    SF_INFO usual{};
    usual.samplerate = 48000;
    usual.channels = 2;
    usual.format = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    if (formatToWrite(usual, options.format, 1)) return {};
    return "there are no " + std::string(options.format.container->name) + " files of such --bits";
}

// A file that is named has the format that its name says, unless that is told.
void takeFormatOfName(RenderOptions& options) {
    std::error_code error;
    if (options.format.container || options.output.empty() || std::filesystem::is_directory(options.output, error))
        return;
    const std::string ending = std::filesystem::path(options.output).extension().string();
    if (!ending.empty()) options.format.container = containerOfEnding(ending.substr(1));
}

} // namespace

std::variant<RenderOptions, RenderOptionsError> parseRenderOptions(const std::vector<std::string>& arguments) {
    RenderOptions options;
    RenderLine line(options);
    const std::vector<std::string> completed = withNormaliseValue(arguments);
    // Where something is wrong, not all of the line was read.
    const auto refusal = [&](const std::string& wrong) {
        return RenderOptionsError{wrong, isGiven(line.app, "--json", completed)};
    };
    if (const std::string wrong = parseCommandLine(line.app, completed); !wrong.empty()) return refusal(wrong);
    takeFormatOfName(options);
    if (const std::string wrong = contradictionIn(options, line.app); !wrong.empty()) return refusal(wrong);
    return options;
}

std::string renderHelp(const std::string& program) {
    RenderOptions options;
    return commandLineHelp(RenderLine(options).app, program);
}

} // namespace render
} // namespace QVM_NAMESPACE
