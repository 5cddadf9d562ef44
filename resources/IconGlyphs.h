// The glyphs of the icon font as UTF-8 texts of one character each. icons/README.md shows what they mean; the drawings
// beside it are named by the same code points.
#pragma once

#include "description/tables/Glyphs.h"

#include <array>
#include <string_view>

namespace QVM_NAMESPACE {
namespace icons {

// Values and states, which the description names.
using glyphs::listenHigh;
using glyphs::listenLow;
using glyphs::power;
using glyphs::qualityOff;
using glyphs::qualityOn;

// Tools.
inline constexpr std::string_view gear = "\uE102";
inline constexpr std::string_view logoMark = "\uE103";
inline constexpr std::string_view undo = "\uE104";
inline constexpr std::string_view redo = "\uE105";
inline constexpr std::string_view chevronLeft = "\uE106";
inline constexpr std::string_view chevronRight = "\uE107";
inline constexpr std::string_view chevronUp = "\uE108";
inline constexpr std::string_view chevronDown = "\uE109";
inline constexpr std::string_view selector = "\uE10A"; // an up over a down chevron: opens a list
inline constexpr std::string_view triangleUp = "\uE10B";
inline constexpr std::string_view triangleDown = "\uE10C";
inline constexpr std::string_view triangleLeft = "\uE10D";
inline constexpr std::string_view triangleRight = "\uE10E";
inline constexpr std::string_view copyRight = "\uE10F"; // from slot A to slot B
inline constexpr std::string_view copyLeft = "\uE110";  // from slot B to slot A
inline constexpr std::string_view letterA = "\uE111";
inline constexpr std::string_view letterB = "\uE112";
inline constexpr std::string_view close = "\uE113";
inline constexpr std::string_view check = "\uE114";
inline constexpr std::string_view speaker = "\uE115";
inline constexpr std::string_view meterReset = "\uE116";
inline constexpr std::string_view eye = "\uE117"; // stands for what was hidden, and shows it again

// Lengths of notes.
inline constexpr std::string_view noteWhole = "\uE301";
inline constexpr std::string_view noteHalf = "\uE302";
inline constexpr std::string_view noteQuarter = "\uE303";
inline constexpr std::string_view noteEighth = "\uE304";
inline constexpr std::string_view noteSixteenth = "\uE305";

// Units. They stand on the baseline of the value text, their capitals 0.5 of the size high.
inline constexpr std::string_view dbPerOctave = "\uE800";
inline constexpr std::string_view kHz = "\uE801";
inline constexpr std::string_view Hz = "\uE802";
inline constexpr std::string_view dB = "\uE803";
inline constexpr std::string_view percent = "\uE804";

// Every glyph above: what the font must have.
inline constexpr std::array all = {
    power,        qualityOff,    qualityOn,    listenHigh, listenLow,   gear,        logoMark,   undo,
    redo,         chevronLeft,   chevronRight, chevronUp,  chevronDown, selector,    triangleUp, triangleDown,
    triangleLeft, triangleRight, copyRight,    copyLeft,   letterA,     letterB,     close,      check,
    speaker,      meterReset,    eye,          noteWhole,  noteHalf,    noteQuarter, noteEighth, noteSixteenth,
    dbPerOctave,  kHz,           Hz,           dB,         percent};

} // namespace icons
} // namespace QVM_NAMESPACE
