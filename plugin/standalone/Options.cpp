#include "plugin/standalone/Options.h"

#include "description/QVMConfig.h"
#include "presets/PresetByName.h"
#include "presets/PresetName.h"
#include "program/NearestName.h"
#include "program/OptionsLine.h"
#include "program/Wording.h"
#include "settings/SettingsAddress.h"

#include <algorithm>
#include <map>

namespace QVM_NAMESPACE {

namespace {

// What is wrong with each value, or nothing.
std::string setPreset(Options& options, const std::string& value) {
    const PresetByName found = presetByName(value);
    if (!found.problem.empty()) return found.problem;
    if (!found.factoryIndex && !found.own) return unknownName("preset", value, presetNames());
    options.preset = found.own ? savedUsersName(found.own->name) : value;
    return {};
}

std::string setSettings(Options& options, const std::string& value) {
    const auto read = readSettingsAddress(value, *QVMConfig::inlinedConfig());
    if (const auto* refusal = std::get_if<SettingsRefusal>(&read)) return cannotRead("the settings", refusal->text());
    options.settings = value;
    return {};
}

// Where `value` is one of the choices, what it stands for; otherwise what their names are.
template <class Chosen, class Place>
std::string choose(const std::map<std::string, Chosen>& choices, const std::string& value, const char* option,
                   const char* names, Place& place) {
    const auto found = choices.find(value);
    if (found == choices.end()) return takesNot(option, names, value);
    place = found->second;
    return {};
}

std::string setLayout(Options& options, const std::string& value) {
    using enum Options::Layout;
    static const std::map<std::string, Options::Layout> layouts = {
        {"normal", normal}, {"wide", wide}, {"compact", compact}};
    return choose(layouts, value, "--layout", "normal, wide or compact", options.layout);
}

std::string setSpectrum(Options& options, const std::string& value) {
    using enum Options::Spectrum;
    static const std::map<std::string, Options::Spectrum> modes = {{"off", off}, {"output", output}, {"both", both}};
    return choose(modes, value, "--spectrum", "off, output or both", options.spectrum);
}

class StandaloneLine : public OptionsLine<Options> {
public:
    explicit StandaloneLine(Options& options)
        : OptionsLine(options, "Opens the editor on an audio unit that processes the file, or built-in pink noise. F1 "
                               "lists its keys and gestures.") {
        addFile(app, {"--play", "FILE", "loop a WAV, AIFF or FLAC file through the unit"}, options.playFile);
        addBareFile(app, "the same as --play FILE", [this](const std::string& value) {
            if (!options_.playFile.empty()) return unknownArgument(value);
            return options_.playFile = value, std::string();
        });
        add({"--settings", "ADDRESS", "start with the settings of an address, as copied from an editor"}, setSettings);
        add({"--preset", "NAME", "start with the preset of this name"}, setPreset);
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
    StandaloneLine line(options);
    if (std::string wrong = parseCommandLine(line.app, arguments); !wrong.empty()) return OptionsError{wrong};
    if (std::string wrong = contradictionIn(options); !wrong.empty()) return OptionsError{wrong};
    return options;
}

std::string helpText(const std::string& program) {
    Options options;
    return commandLineHelp(StandaloneLine(options).app, program);
}

} // namespace QVM_NAMESPACE
