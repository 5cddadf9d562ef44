#include "tools/gallery/GalleryOptions.h"

#include "program/NearestName.h"
#include "program/OptionsLine.h"
#include "tools/gallery/Pages.h"
#include "tools/gallery/TestSignal.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

std::vector<std::string> pageNames() {
    std::vector<std::string> names;
    for (const GalleryPage& page : galleryPages())
        names.emplace_back(page.name);
    return names;
}

// What is wrong with each value, or nothing.
std::string setPage(GalleryOptions& options, const std::string& value) {
    const auto index = galleryPageNamed(value);
    if (!index) return unknownName("page", value, pageNames());
    options.page = *index;
    return {};
}

std::string setSignal(GalleryOptions& options, const std::string& value) {
    const std::vector<std::string> names(testSignalNames().begin(), testSignalNames().end());
    if (std::ranges::find(names, value) == names.end()) return unknownName("signal", value, names);
    options.signal = value;
    return {};
}

class GalleryLine : public OptionsLine<GalleryOptions> {
public:
    explicit GalleryLine(GalleryOptions& options)
        : OptionsLine(options, "Shows every control in all its states, and displays fed by the file or a built-in "
                               "signal.") {
        addBareFile(app, "an audio file for the displays, in place of a signal",
                    [this](const std::string& value) { return options_.audioFile = value, std::string(); });
        add({"--page", "NAME", "start on a page"}, setPage);
        addFlag(app, "--pages", options.listPages, "print the names of the pages");
        addTheme(app, options.theme);
        addScale(app, "the desktop's; 1 for a picture", options.scale);
        add({"--signal", "NAME", "sine, noise, mono, wide or antiphase (noise)"}, setSignal);
        addFlag(app, "--events", options.printEvents, "print where each control stands and what happens to it");
        addFile(app, {"--screenshot", "FILE", "write a PNG of the page and end; works without a display"},
                options.screenshotFile);
        addNumber(app, {"--after", "SECONDS", "of the signal until it is taken, which takes less (0.5)"}, 0, 3600,
                  [this](double v) { options_.afterSeconds = v; });
        addQuitAfter(app, options.quitAfterSeconds);
        addFlag(app, "-h,--help", options.showHelp, "print this");
    }
};

} // namespace

std::variant<GalleryOptions, GalleryOptionsError> parseGalleryOptions(const std::vector<std::string>& arguments) {
    GalleryOptions options;
    GalleryLine line(options);
    if (std::string wrong = parseCommandLine(line.app, arguments); !wrong.empty()) return GalleryOptionsError{wrong};
    return options;
}

std::string galleryHelpText(const std::string& program) {
    GalleryOptions options;
    return commandLineHelp(GalleryLine(options).app, program);
}

} // namespace QVM_NAMESPACE
