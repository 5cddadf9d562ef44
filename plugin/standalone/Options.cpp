#include "plugin/standalone/Options.h"

#include "description/Description.h"
#include "program/CommandLine.h"
#include "program/NearestName.h"
#include "settings/SettingsAddress.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace QVM_NAMESPACE {

namespace {

// What is wrong with each value, or nothing.
std::string setPreset(Options& options, const std::string& value) {
    const auto& names = GetPresets()->stringValues;
    const auto found = std::find(names.begin(), names.end(), value);
    if (found == names.end()) return unknownName("preset", value, names);
    options.presetIndex = static_cast<int>(found - names.begin());
    return {};
}

std::string setSettings(Options& options, const std::string& value) {
    const auto read = readSettingsAddress(value, *QVMConfig::inlinedConfig());
    if (const auto* refusal = std::get_if<SettingsRefusal>(&read))
        return "cannot read the settings: " + refusal->text();
    options.settings = value;
    return {};
}

std::string setLayout(Options& options, const std::string& value) {
    static const std::map<std::string, Options::Layout> layouts = {
        {"normal", Options::Layout::normal}, {"wide", Options::Layout::wide}, {"compact", Options::Layout::compact}};
    const auto found = layouts.find(value);
    if (found == layouts.end()) return "--layout takes normal, wide or compact, not \"" + value + "\"";
    options.layout = found->second;
    return {};
}

std::string setSpectrum(Options& options, const std::string& value) {
    static const std::map<std::string, Options::Spectrum> modes = {
        {"off", Options::Spectrum::off}, {"output", Options::Spectrum::output}, {"both", Options::Spectrum::both}};
    const auto found = modes.find(value);
    if (found == modes.end()) return "--spectrum takes off, output or both, not \"" + value + "\"";
    options.spectrum = found->second;
    return {};
}

// The program's command line; what it says goes to the options, which live as long.
class OptionsLine {
public:
    explicit OptionsLine(Options& options) : options_(options) {
        app.set_help_flag(); // an option like the others, so that what stands beside it is still looked at
        addFile(app, {"--play", "FILE", "loop a WAV, AIFF or FLAC file through the unit"}, options.playFile);
        addBareFile(app, "the same as --play FILE", [this](const std::string& value) {
            if (!options_.playFile.empty()) return unknownArgument(value);
            return options_.playFile = value, std::string();
        });
        add({"--settings", "ADDRESS", "start with the settings of an address, as copied from an editor"}, setSettings);
        add({"--preset", "NAME", "start with a factory preset"}, setPreset);
        addTheme(app, options.theme);
        add({"--layout", "NAME", "start normal, wide (with the advanced drawer) or compact"}, setLayout);
        add({"--spectrum", "MODE", "show off, output or both (input and output) behind the curve"}, setSpectrum);
        addScale(app, "the desktop's", options.scale);
        addFile(app, {"--screenshot", "FILE", "write a PNG of the editor; works without a display"},
                options.screenshotFile);
        addNumber(app, {"--after", "SECONDS", "when to write it (2)"}, 0, 3600,
                  [this](double v) { options_.afterSeconds = v; });
        addQuitAfter(app, options.quitAfterSeconds);
        addFlag(app, "-h,--help", options.showHelp, "print this");
        addFlag(app, "--version", options.showVersion, "print the version");
    }

    CLI::App app{"Opens the editor on an audio unit that processes the file, or built-in pink noise. F1 lists its keys "
                 "and gestures."};

private:
    void add(const OptionText& text, std::string (*set)(Options&, const std::string&)) {
        addOption(app, text, [this, set](const std::string& value) { return set(options_, value); });
    }

    Options& options_;
};

// What is wrong with options that are right each by itself, or nothing.
std::string contradictionIn(const Options& options) {
    if (options.screenshotFile.empty() || !options.quitAfterSeconds) return {};
    if (*options.quitAfterSeconds >= options.afterSeconds) return {};
    return "--quit-after " + numberText(*options.quitAfterSeconds) + " is before --after " +
           numberText(options.afterSeconds) + ", so that there would be no picture";
}

} // namespace

std::variant<Options, OptionsError> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    OptionsLine line(options);
    if (std::string wrong = parseCommandLine(line.app, arguments); !wrong.empty()) return OptionsError{wrong};
    if (std::string wrong = contradictionIn(options); !wrong.empty()) return OptionsError{wrong};
    return options;
}

std::string helpText(const std::string& program) {
    Options options;
    return commandLineHelp(OptionsLine(options).app, program);
}

} // namespace QVM_NAMESPACE
