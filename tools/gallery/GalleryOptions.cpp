#include "tools/gallery/GalleryOptions.h"

#include "tools/gallery/Pages.h"
#include "tools/gallery/TestSignal.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>

namespace QVM_NAMESPACE {

namespace {

// Applies one option's value; answers what is wrong with it, or nothing.
using Setter = std::function<std::string(GalleryOptions&, const std::string& value)>;

Setter numberSetter(std::string name, double least, double most, std::function<void(GalleryOptions&, double)> set) {
    return [name = std::move(name), least, most, set = std::move(set)](GalleryOptions& o, const std::string& value) {
        double number = 0;
        const char* const last = value.data() + value.size();
        const auto [end, error] = std::from_chars(value.data(), last, number);
        if (error != std::errc{} || end != last || !(number >= least && number <= most))
            return name + " takes a number, not \"" + value + "\"";
        set(o, number);
        return std::string();
    };
}

std::string setTheme(GalleryOptions& options, const std::string& value) {
    if (value != "light" && value != "dark") return "--theme takes light or dark, not \"" + value + "\"";
    options.theme = value == "dark" ? GalleryOptions::Theme::dark : GalleryOptions::Theme::light;
    return {};
}

std::string setPage(GalleryOptions& options, const std::string& value) {
    const auto index = galleryPageNamed(value);
    if (!index) return "there is no page named \"" + value + "\" (--pages lists them)";
    options.page = *index;
    return {};
}

std::string setSignal(GalleryOptions& options, const std::string& value) {
    if (std::ranges::find(testSignalNames(), value) == testSignalNames().end())
        return "there is no signal named \"" + value + "\" (--help lists them)";
    options.signal = value;
    return {};
}

const std::map<std::string, Setter>& valueOptions() {
    using O = GalleryOptions;
    static const std::map<std::string, Setter> table = {
        {"--page", setPage},
        {"--theme", setTheme},
        {"--signal", setSignal},
        {"--scale", numberSetter("--scale", 0.5, 4, [](O& o, double v) { o.scale = v; })},
        {"--screenshot", [](O& o, const std::string& v) { return o.screenshotFile = v, std::string(); }},
        {"--after", numberSetter("--after", 0, 3600, [](O& o, double v) { o.afterSeconds = v; })},
        {"--quit-after", numberSetter("--quit-after", 0, 1e6, [](O& o, double v) { o.quitAfterSeconds = v; })},
    };
    return table;
}

const std::map<std::string, bool GalleryOptions::*>& flags() {
    static const std::map<std::string, bool GalleryOptions::*> table = {{"--events", &GalleryOptions::printEvents},
                                                                        {"--pages", &GalleryOptions::listPages},
                                                                        {"--help", &GalleryOptions::showHelp}};
    return table;
}

} // namespace

std::variant<GalleryOptions, GalleryOptionsError> parseGalleryOptions(const std::vector<std::string>& arguments) {
    GalleryOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (const auto flag = flags().find(argument); flag != flags().end()) {
            options.*flag->second = true;
        } else if (const auto option = valueOptions().find(argument); option != valueOptions().end()) {
            if (i + 1 == arguments.size()) return GalleryOptionsError{argument + " needs a value"};
            if (std::string wrong = option->second(options, arguments[++i]); !wrong.empty())
                return GalleryOptionsError{wrong};
        } else if (!argument.empty() && argument.front() != '-' && options.audioFile.empty()) {
            options.audioFile = argument;
        } else {
            return GalleryOptionsError{"unknown argument \"" + argument + "\" (--help lists the options)"};
        }
    }
    return options;
}

std::string galleryHelpText() {
    return "Usage: slantwise-gallery [OPTIONS] [AUDIO FILE]\n"
           "Shows every control in all its states, and displays fed by the file or a built-in signal.\n"
           "\n"
           "  --page NAME           start on a page\n"
           "  --pages               print the names of the pages\n"
           "  --theme light|dark    start in a theme\n"
           "  --scale N             device pixels a point, 0.5 to 4 (otherwise the desktop's; 1 for a picture)\n"
           "  --signal NAME         sine, noise, mono, wide or antiphase (noise)\n"
           "  --events              print where each control stands and what happens to it\n"
           "  --screenshot FILE     write a PNG of the page and end; works without a display\n"
           "  --after SECONDS       of the signal until it is taken, which takes less (0.5)\n"
           "  --quit-after SECONDS  close by itself\n"
           "  --help                print this\n";
}

} // namespace QVM_NAMESPACE
