// The command line of slantwise-render. No side effects.
#pragma once

#include "tools/render/ChosenSettings.h"
#include "tools/render/FileFormat.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {

struct RenderOptions {
    std::vector<std::string> files;
    ChosenSettings settings;
    std::string output; // a file or a folder; empty: beside each file, with the suffix
    std::string suffix = "-slantwise";
    FormatRequest format;
    std::optional<double> normaliseDb; // the true peak to come to
    double tailSeconds = 0;
    int jobs = 0; // files at once, 0 for one a processor
    bool dither = false, force = false, json = false;
    bool showHelp = false, showVersion = false, listPresets = false;
};

struct RenderOptionsError {
    std::string message; // one line, without a newline
    bool asJson = false; // asked for, wherever in the line
};

// Parses the arguments behind the program's name.
[[nodiscard]] std::variant<RenderOptions, RenderOptionsError>
parseRenderOptions(const std::vector<std::string>& arguments);
// The text of --help of the program by the name that it is called by.
std::string renderHelp(const std::string& program);

} // namespace render
} // namespace QVM_NAMESPACE
