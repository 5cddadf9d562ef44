// The stand-alone program's command line. No toolkit, no side effects.
#pragma once

#include "program/CommandLine.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

struct Options {
    using Theme = StartTheme;
    enum class Layout { normal, wide, compact };
    enum class Spectrum { off, output, both }; // as it is kept as a preference

    std::string playFile; // empty: built-in pink noise
    std::string settings; // a settings address that can be read, empty when not given
    std::string preset;   // as a session keeps its name; empty: none
    Theme theme = Theme::asKept;
    Layout layout = Layout::normal;
    std::optional<Spectrum> spectrum; // behind the curve
    double scale = 0;                 // device pixels a point; 0: what the desktop says
    std::string screenshotFile;       // PNG to write, empty for none
    double afterSeconds = 2;          // when to write it
    std::optional<double> quitAfterSeconds;
    bool showHelp = false, showVersion = false;
    std::string program = "slantwise"; // the name that it is called by, for messages
};

struct OptionsError {
    std::string message; // one line, without a newline
};

// Parses the arguments behind the program's name.
[[nodiscard]] std::variant<Options, OptionsError> parseOptions(const std::vector<std::string>& arguments);
// The text of --help of the program by the name that it is called by.
std::string helpText(const std::string& program);

} // namespace QVM_NAMESPACE
