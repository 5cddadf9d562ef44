#include "tools/inspect/ValueOperations.h"

#include "description/Description.h"
#include "description/NumberText.h"
#include "description/ValueText.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace QVM_NAMESPACE {
namespace inspect {

namespace {

using Argument = OperationArgument;
using Input = OperationInput;

constexpr std::array kPidValue = {Argument::pid, Argument::value};
constexpr std::array kPidValueType = {Argument::pid, Argument::value, Argument::type};
constexpr std::array kPidPositionType = {Argument::pid, Argument::position, Argument::type};
constexpr std::array kPidValueDirection = {Argument::pid, Argument::value, Argument::direction};

std::string Number(float value) {
    return SignificantText(value, 9);
}
const QVMParameter& ParameterOf(const Input& input) {
    return *GetParameter(input.pid);
}

std::string Cast(const Input& in) {
    return Number(ParameterOf(in).castValue(in.value));
}
std::string Reverse(const Input& in) {
    return Number(ParameterOf(in).reverseCastValue(in.value));
}
std::string Coerce(const Input& in) {
    return Number(ParameterOf(in).coerceValue(in.value));
}
std::string Round(const Input& in) {
    return Number(ParameterOf(in).roundFloatValue(in.value, in.type));
}
std::string Normalize(const Input& in) {
    return Number(ParameterOf(in).normalizeFloatValue(in.value, in.type));
}
std::string Position(const Input& in) {
    return Number(ParameterOf(in).percentageFromFloatValue(in.value));
}
std::string FromPosition(const Input& in) {
    return Number(ParameterOf(in).normalizedFloatValueFromPercent(in.value, in.type));
}
std::string After(const Input& in) {
    return Number(ParameterOf(in).floatValueAfter(in.value, in.forward));
}
std::string Text(const Input& in) {
    return ParameterValueToString(in.pid, in.value);
}
std::string Suffix(const Input& in) {
    return ParameterValueToSuffix(in.pid, in.value).value_or("(none)");
}

constexpr std::array kOperations = {
    ValueOperation{"cast", kPidValue, true, Cast},
    ValueOperation{"reverse", kPidValue, true, Reverse},
    ValueOperation{"coerce", kPidValue, true, Coerce},
    ValueOperation{"round", kPidValueType, true, Round},
    ValueOperation{"normalize", kPidValueType, true, Normalize},
    ValueOperation{"position", kPidValue, true, Position},
    ValueOperation{"fromposition", kPidPositionType, true, FromPosition},
    ValueOperation{"after", kPidValueDirection, true, After},
    ValueOperation{"text", kPidValue, false, Text},
    ValueOperation{"suffix", kPidValue, false, Suffix},
};

// Half a step beyond the largest 32-bit number: up to there that one is the nearest.
constexpr double kRoundsToTheLargest = 0x1.ffffffp127;

std::string Quoted(std::string_view word) {
    return "'" + std::string(word) + "'";
}

// Numbers too small for 32 bits are 0; those too large are refused.
std::string ParseFloat(std::string_view word, float* value) {
    std::string_view digits = word;
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    const std::optional<float> number = NumberFromText<float>(digits);
    if (!number) return Quoted(word) + " is not a number";
    const bool isLargest = std::abs(*number) == std::numeric_limits<float>::max();
    if (isLargest && std::abs(*NumberFromText<double>(digits)) > kRoundsToTheLargest)
        return Quoted(word) + " is out of range";
    *value = *number;
    return {};
}

std::string ParseWhole(std::string_view word, std::uint32_t* value) {
    const auto number = WholeNumberFromText<std::uint32_t>(word);
    if (!number) return Quoted(word) + " is not a whole number";
    *value = *number;
    return {};
}

std::string ParseType(std::string_view word, std::uint32_t* value) {
    if (std::string error = ParseWhole(word, value); !error.empty()) return error;
    return *value <= QVMGranularityCoarse ? std::string() : Quoted(word) + " is not a granularity: 0, 1 or 2";
}

std::string ParseDirection(std::string_view word, bool* forward) {
    *forward = word == "forward";
    return *forward || word == "backward" ? std::string() : Quoted(word) + " is not a direction: forward or backward";
}

// Stores a word as the argument it stands for and returns what is wrong with it, if anything.
std::string ParseArgument(Argument argument, std::string_view word, Input* input) {
    switch (argument) {
    case Argument::pid:
        return ParseWhole(word, &input->pid);
    case Argument::value:
    case Argument::position:
        return ParseFloat(word, &input->value);
    case Argument::type:
        return ParseType(word, &input->type);
    case Argument::direction:
        return ParseDirection(word, &input->forward);
    }
    return {};
}

std::string_view ArgumentName(Argument argument) {
    switch (argument) {
    case Argument::pid:
        return "PID";
    case Argument::value:
        return "V";
    case Argument::position:
        return "P";
    case Argument::type:
        return "TYPE";
    case Argument::direction:
        return "forward|backward";
    }
    return {};
}

std::vector<std::string_view> Words(std::string_view line) {
    constexpr std::string_view blanks = " \t\r";
    std::vector<std::string_view> words;
    for (std::size_t start = line.find_first_not_of(blanks); start != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_of(blanks, start), line.size());
        words.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(blanks, end);
    }
    return words;
}

const ValueOperation* OperationNamed(std::string_view name) {
    for (const ValueOperation& operation : kOperations) {
        if (operation.name == name) return &operation;
    }
    return nullptr;
}

} // namespace

std::span<const ValueOperation> ValueOperations() {
    return kOperations;
}

std::string OperationUsage(const ValueOperation& operation) {
    std::string usage(operation.name);
    for (const Argument argument : operation.arguments)
        usage.append(" ").append(ArgumentName(argument));
    return usage;
}

OperationAnswer AnswerOperation(std::string_view line) {
    const auto words = Words(line);
    if (words.empty()) return {false, "empty line"};
    const ValueOperation* operation = OperationNamed(words.front());
    if (!operation) return {false, "unknown operation " + Quoted(words.front())};
    if (words.size() != operation->arguments.size() + 1) {
        return {false, "expected " + Quoted(OperationUsage(*operation))};
    }
    Input input;
    for (std::size_t i = 0; i < operation->arguments.size(); ++i) {
        std::string problem = ParseArgument(operation->arguments[i], words[i + 1], &input);
        if (!problem.empty()) return {false, std::move(problem)};
    }
    if (operation->needsParameter && input.pid >= QVMParameterCount) {
        return {false, "there is no parameter " + std::to_string(input.pid)};
    }
    return {true, operation->answer(input)};
}

} // namespace inspect
} // namespace QVM_NAMESPACE
