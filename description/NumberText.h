// Numbers as text and back, independent of the locale that the host may have set: the decimal sign is a point.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

// A fixed number of decimals, rounded as printf rounds; 0 decimals leave out the point.
std::string FixedText(double value, int decimals);

// The fewest digits that read back as the same number, never with an exponent; zero has no sign.
std::string ShortestText(double value);

// At most so many significant digits and no trailing zeros, with an exponent where the number calls for one, as
// printf's "%.*g".
std::string SignificantText(double value, int digits);

// The fewest digits that read back as the same number of single precision, never with an exponent.
std::string ShortestFloatText(float value);

// What numbers are set with on screen: as wide as a plus, so that they keep their place.
inline constexpr std::string_view minusSign = "\u2212";

// A number that a text begins with, and what stands behind it.
template <class Number>
struct ReadNumber {
    Number value;
    std::string_view rest;
};

// The nearest `Number` (float or double) to what the text begins with, or none where it begins with no number. An
// exponent may follow; "inf" and "nan" are read as such. What is beyond all numbers is the largest there is, and what
// is nearer to 0 than the smallest is 0, both with their sign.
template <class Number>
std::optional<ReadNumber<Number>> NumberAtStart(std::string_view text);
// The same of a text that is a number and nothing else.
template <class Number>
std::optional<Number> NumberFromText(std::string_view text);

// The whole number (int or std::uint32_t) that a text is, in decimal digits and nothing else; none where it is anything
// else or beyond what the type can hold.
template <class Whole>
std::optional<Whole> WholeNumberFromText(std::string_view text);

} // namespace QVM_NAMESPACE
