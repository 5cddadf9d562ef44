// The gallery's command line. No toolkit, no side effects.
#pragma once

#include "program/CommandLine.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

struct GalleryOptions {
    using Theme = StartTheme;

    std::size_t page = 0; // index of the first one shown
    Theme theme = Theme::light;
    double scale = 0;             // device pixels a point; 0: what the desktop says
    std::string screenshotFile;   // PNG to write, empty for none
    double afterSeconds = 0.5;    // of the signal until then
    std::string signal = "noise"; // a built-in signal's name
    std::string audioFile;        // plays instead of the signal; empty for none
    std::optional<double> quitAfterSeconds;
    bool printEvents = false, listPages = false, showHelp = false;
    std::string program = "slantwise-gallery"; // the name that it is called by, for messages
};

struct GalleryOptionsError {
    std::string message; // one line, without a newline
};

// Parses the arguments behind the program's name.
[[nodiscard]] std::variant<GalleryOptions, GalleryOptionsError>
parseGalleryOptions(const std::vector<std::string>& arguments);
// The text of --help of the program by the name that it is called by.
std::string galleryHelpText(const std::string& program);

} // namespace QVM_NAMESPACE
