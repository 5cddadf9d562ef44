#include "plugin/standalone/Options.h"

#include "description/Description.h"
#include "settings/SettingsAddress.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <map>

namespace QVM_NAMESPACE {

namespace {

// Applies one option's value; answers what is wrong with it, or nothing.
using Setter = std::function<std::string(Options&, const std::string& value)>;

std::optional<double> parseNumber(const std::string& text, double least, double most) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || !(number >= least && number <= most)) return {};
    return number;
}

std::string setPreset(Options& options, const std::string& value) {
    const auto& names = GetPresets()->stringValues;
    const auto found = std::find(names.begin(), names.end(), value);
    if (found == names.end()) return "there is no preset named \"" + value + "\"";
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

std::string setTheme(Options& options, const std::string& value) {
    if (value != "light" && value != "dark") return "--theme takes light or dark, not \"" + value + "\"";
    options.theme = value == "dark" ? Options::Theme::dark : Options::Theme::light;
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

Setter numberSetter(std::string name, double least, double most, std::function<void(Options&, double)> set) {
    return [name = std::move(name), least, most, set = std::move(set)](Options& options, const std::string& value) {
        const auto number = parseNumber(value, least, most);
        if (!number) return name + " takes a number, not \"" + value + "\"";
        set(options, *number);
        return std::string();
    };
}

const std::map<std::string, Setter>& valueOptions() {
    static const std::map<std::string, Setter> table = {
        {"--play", [](Options& o, const std::string& v) { return o.playFile = v, std::string(); }},
        {"--settings", setSettings},
        {"--preset", setPreset},
        {"--theme", setTheme},
        {"--layout", setLayout},
        {"--scale", numberSetter("--scale", 0.5, 4, [](Options& o, double v) { o.scale = v; })},
        {"--screenshot", [](Options& o, const std::string& v) { return o.screenshotFile = v, std::string(); }},
        {"--after", numberSetter("--after", 0, 3600, [](Options& o, double v) { o.afterSeconds = v; })},
        {"--quit-after", numberSetter("--quit-after", 0, 1e6, [](Options& o, double v) { o.quitAfterSeconds = v; })},
    };
    return table;
}

} // namespace

std::variant<Options, OptionsError> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help") {
            options.showHelp = true;
        } else if (argument == "--version") {
            options.showVersion = true;
        } else if (const auto option = valueOptions().find(argument); option != valueOptions().end()) {
            if (i + 1 == arguments.size()) return OptionsError{argument + " needs a value"};
            if (std::string wrong = option->second(options, arguments[++i]); !wrong.empty()) return OptionsError{wrong};
        } else if (!argument.empty() && argument.front() != '-' && options.playFile.empty()) {
            options.playFile = argument;
        } else {
            return OptionsError{"unknown argument \"" + argument + "\" (--help lists the options)"};
        }
    }
    return options;
}

std::string helpText() {
    return "Usage: Slantwise [OPTIONS] [AUDIO FILE]\n"
           "Opens the editor on an audio unit that processes the file, or built-in pink noise.\n"
           "\n"
           "  --play FILE           loop a WAV, AIFF or FLAC file through the unit\n"
           "  --settings ADDRESS    start with the settings of an address, as copied from an editor\n"
           "  --preset NAME         start with a factory preset\n"
           "  --theme light|dark    start in a theme\n"
           "  --layout NAME         start normal, wide (with the advanced drawer) or compact\n"
           "  --scale N             device pixels a point, 0.5 to 4 (otherwise the desktop's)\n"
           "  --screenshot FILE     write a PNG of the editor; works without a display\n"
           "  --after SECONDS       when to write it (2)\n"
           "  --quit-after SECONDS  close by itself\n"
           "  --help, --version     print this or the version\n";
}

std::string versionText() {
    const QVMMetadata& metadata = *GetMetadata();
    return metadata.pluginName + " " + metadata.version + " (" + metadata.sha + ")";
}

} // namespace QVM_NAMESPACE
