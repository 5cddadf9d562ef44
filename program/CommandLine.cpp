#include "program/CommandLine.h"

#include "description/Description.h"
#include "description/NumberText.h"
#include "program/Console.h"
#include "program/Wording.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr std::size_t columnOfHelp = 24; // in characters

// The library reads numbers as the C library does: in the user's locale, and "nan" and "0x1p3" with them.
std::optional<double> numberWithin(const std::string& text, double least, double most) {
    const std::optional<double> number = NumberFromText<double>(text);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

// The first argument that nothing has taken. The mark behind which all arguments are bare is none.
std::string firstLeftOver(const CLI::App& app) {
    const std::vector<std::string> left = app.remaining();
    const auto found = std::ranges::find_if(left, [](const std::string& argument) { return argument != "--"; });
    return found == left.end() ? std::string() : unknownArgument(*found);
}

// The library's words are "--option: 1 required TEXT missing" and "flag was given a disallowed flag override".
std::string mismatchText(const std::string& said) {
    const std::size_t colon = said.find(':');
    if (colon != std::string::npos) return needsAValue(said.substr(0, colon));
    const std::string flag = said.substr(0, said.find(' '));
    return (flag.size() == 1 ? "-" : "--") + flag + " takes no value";
}

// The library's way for a setter to refuse a value, which parseCommandLine catches.
std::function<void(const std::string&)> refusing(OptionSetter setter) {
    return [setter = std::move(setter)](const std::string& value) {
        if (const std::string wrong = setter(value); !wrong.empty()) throw CLI::ValidationError(wrong);
    };
}

std::string whyNoFileName(const std::string& file) {
    return file.empty() || file == "-" ? unknownArgument(file) : std::string();
}

} // namespace

std::string numberText(double number) {
    constexpr int significantDigits = 9;
    return SignificantText(number, significantDigits);
}

void addOption(CLI::App& app, const OptionText& text, OptionSetter setter) {
    app.add_option_function<std::string>(text.name, refusing(std::move(setter)), text.help)
        ->type_name(text.value)
        ->take_last();
}

void addFile(CLI::App& app, const OptionText& text, std::string& file) {
    addOption(app, text, [name = text.name, &file](const std::string& value) {
        file = value;
        return value.empty() ? needsAValue(name) : std::string();
    });
}

void addNumber(CLI::App& app, const OptionText& text, double least, double most, std::function<void(double)> set) {
    addOption(app, text, [name = text.name, least, most, set = std::move(set)](const std::string& value) {
        const std::optional<double> number = numberWithin(value, least, most);
        if (!number) {
            return takesNot(name, "a number from " + numberText(least) + " to " + numberText(most), value);
        }
        set(*number);
        return std::string();
    });
}

void addFlag(CLI::App& app, const std::string& names, bool& flag, const std::string& help) {
    app.add_flag(names, flag, help)->disable_flag_override();
}

void addTheme(CLI::App& app, StartTheme& theme) {
    addOption(app, {"--theme", "light|dark", "start in a theme"}, [&theme](const std::string& value) {
        if (value != "light" && value != "dark") return takesNot("--theme", "light or dark", value);
        theme = value == "dark" ? StartTheme::dark : StartTheme::light;
        return std::string();
    });
}

void addScale(CLI::App& app, const std::string& otherwise, double& scale) {
    addNumber(app, {"--scale", "N", "device pixels a point, 0.5 to 4 (otherwise " + otherwise + ")"}, 0.5, 4,
              [&scale](double v) { scale = v; });
}

void addQuitAfter(CLI::App& app, std::optional<double>& seconds) {
    addNumber(app, {"--quit-after", "SECONDS", "close by itself"}, 0, 1e6, [&seconds](double v) { seconds = v; });
}

void addBareFile(CLI::App& app, const std::string& help, OptionSetter setter) {
    app.add_option_function<std::string>("file", refusing(std::move(setter)), help)
        ->type_name("")
        ->check(whyNoFileName);
}

void addBareFiles(CLI::App& app, const std::string& help, std::vector<std::string>& files) {
    app.add_option("files", files, help)->type_name("")->check(whyNoFileName);
}

std::string versionText() {
    const QVMMetadata& metadata = *GetMetadata();
    return metadata.pluginName + " " + metadata.version + " (" + metadata.sha + ")";
}

std::string parseCommandLine(CLI::App& app, const std::vector<std::string>& arguments) {
    app.allow_extras();         // named by us, in the words of the other mistakes
    app.validate_positionals(); // what is no file is left over
    std::vector<std::string> fromLast(arguments.rbegin(), arguments.rend());
    try {
        app.parse(std::move(fromLast));
    } catch (const CLI::ArgumentMismatch& mismatch) {
        return mismatchText(mismatch.what());
    } catch (const CLI::ParseError& error) {
        return error.what();
    }
    return firstLeftOver(app);
}

bool isGiven(const CLI::App& app, const std::string& flag, const std::vector<std::string>& arguments) {
    bool isValue = false; // of the option before it, whatever it looks like
    for (const std::string& argument : arguments) {
        if (!std::exchange(isValue, false)) {
            if (argument == "--") return false;
            if (argument == flag) return true;
            const CLI::Option* const option =
                argument.starts_with("-") ? app.get_option_no_throw(argument) : nullptr; // bare ones have names too
            isValue = option && option->get_items_expected_min() > 0;
        }
    }
    return false;
}

std::string commandLineHelp(const CLI::App& app, const std::string& program) {
    CLI::Formatter formatter;
    formatter.column_width(columnOfHelp);
    return formatter.make_usage(&app, program) + app.get_description() + '\n' + formatter.make_positionals(&app) +
           formatter.make_groups(&app, CLI::AppFormatMode::Normal) + '\n' + exitStatusHelp();
}

} // namespace QVM_NAMESPACE
