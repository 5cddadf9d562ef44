// What the programs' command lines have in common, over the library that reads them. No toolkit, no side effects.
#pragma once

#include "BuildNamespace.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace QVM_NAMESPACE {

// Applies an option's value; answers what is wrong with it, or nothing.
using OptionSetter = std::function<std::string(const std::string& value)>;

// What one option looks like in the help: its name, what stands for its value, and what it does.
struct OptionText {
    std::string name, value, help;
};

// Adds an option with a value; of several the last one counts. The setter is called by parseCommandLine.
void addOption(CLI::App& app, const OptionText& text, OptionSetter setter);
// Adds one whose value names a file, which lives as long as the app is used.
void addFile(CLI::App& app, const OptionText& text, std::string& file);
// Adds one whose value is a number within limits, both included, in the C locale's form and nothing after it.
void addNumber(CLI::App& app, const OptionText& text, double least, double most, std::function<void(double)> set);
// Adds an option without a value, by all its names ("-h,--help"). The flag lives as long as the app is used.
void addFlag(CLI::App& app, const std::string& names, bool& flag, const std::string& help);
// Adds the one argument without a name: a file, and never an empty text. Setters are called in the order in which what
// they belong to was added.
void addBareFile(CLI::App& app, const std::string& help, OptionSetter setter);
// Adds any number of such arguments, in their order.
void addBareFiles(CLI::App& app, const std::string& help, std::vector<std::string>& files);
// The options of every program that opens a window. What they set lives as long as the app is used.
// `asKept`: none was asked for.
enum class StartTheme : unsigned char { asKept, light, dark };
void addTheme(CLI::App& app, StartTheme& theme);
// `otherwise` says what the scale is when it is not given, in device pixels a point.
void addScale(CLI::App& app, const std::string& otherwise, double& scale);
void addQuitAfter(CLI::App& app, std::optional<double>& seconds);
// A number as in what is said of one.
std::string numberText(double number);
// "Slantwise 2.0.1 (a6a669f)".
std::string versionText();

// Reads the arguments behind the program's name and sets what they say. Answers what is wrong in one line without a
// newline, or nothing.
[[nodiscard]] std::string parseCommandLine(CLI::App& app, const std::vector<std::string>& arguments);
// Whether a flag stands among the arguments, also where they cannot be parsed.
bool isGiven(const CLI::App& app, const std::string& flag, const std::vector<std::string>& arguments);
// How to call the program, what it does, its options in the order in which they were added, and its exit statuses.
std::string commandLineHelp(const CLI::App& app, const std::string& program);

} // namespace QVM_NAMESPACE
