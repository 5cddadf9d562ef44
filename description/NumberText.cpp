#include "description/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

// The format is what std::to_chars takes behind the value.
template <typename... Format>
std::string Text(double value, Format... format) {
    if (std::isnan(value)) return "nan"; // whatever the sign bit says
    std::array<char, 512> buffer;        // the largest 64-bit float, written out with a few decimals, has room
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...).ptr;
    return {buffer.data(), end};
}

// The power of ten that the first digit of a number stands for counts, not what the digits are. Of a number that is
// written with a first digit other than 0 somewhere.
bool IsBeyondOne(std::string_view number) {
    const std::size_t exponentAt = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, exponentAt);
    const auto point = static_cast<long>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<long>(digits.find_first_of("123456789"));
    long exponent = 0;
    if (exponentAt != std::string_view::npos) {
        std::string_view power = number.substr(exponentAt + 1);
        if (power.starts_with('+')) power.remove_prefix(1);
        const auto [end, error] = std::from_chars(power.data(), power.data() + power.size(), exponent);
        if (error == std::errc::result_out_of_range) return power.front() != '-';
    }
    return point - first + exponent > 0;
}

} // namespace

std::string FixedText(double value, int decimals) {
    return Text(value, std::chars_format::fixed, decimals);
}

std::string ShortestFloatText(float value) {
    std::array<char, 64> text; // the largest has 39 digits
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr};
}

std::string ShortestText(double value) {
    return Text(value == 0 ? 0.0 : value, std::chars_format::fixed);
}

std::string SignificantText(double value, int digits) {
    return Text(value, std::chars_format::general, digits);
}

template <class Number>
std::optional<ReadNumber<Number>> NumberAtStart(std::string_view text) {
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const auto length = static_cast<std::size_t>(end - text.data());
    if (error == std::errc::invalid_argument) return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        value = IsBeyondOne(text.substr(0, length)) ? std::numeric_limits<Number>::max() : 0;
        if (text.front() == '-') value = -value;
    }
    return ReadNumber<Number>{value, text.substr(length)};
}

template <class Number>
std::optional<Number> NumberFromText(std::string_view text) {
    const auto read = NumberAtStart<Number>(text);
    return read && read->rest.empty() ? std::optional(read->value) : std::nullopt;
}

template <class Whole>
std::optional<Whole> WholeNumberFromText(std::string_view text) {
    Whole number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc{} && end == text.data() + text.size();
    return isWhole ? std::optional(number) : std::nullopt;
}

template std::optional<ReadNumber<float>> NumberAtStart<float>(std::string_view);
template std::optional<ReadNumber<double>> NumberAtStart<double>(std::string_view);
template std::optional<float> NumberFromText<float>(std::string_view);
template std::optional<double> NumberFromText<double>(std::string_view);
template std::optional<int> WholeNumberFromText<int>(std::string_view);
template std::optional<std::uint32_t> WholeNumberFromText<std::uint32_t>(std::string_view);

} // namespace QVM_NAMESPACE
