// Sets styled text: which outline goes where. Measuring and drawing use the same setting, so they always agree.
#pragma once

#include "platform/AttributedString.h"
#include "platform/juce/FaceLibrary.h"

#include <limits>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

// All lengths are in points.
struct SetGlyph {
    const FontFace* face = nullptr; // both belong to the library
    const FontFace::Glyph* glyph = nullptr;
    double x = 0;              // from the line's start
    double baselineOffset = 0; // up
    double pointSize = 0;
    double advance = 0; // with its kern
    Color color;
    char32_t character = 0;
};

struct SetLine {
    std::vector<SetGlyph> glyphs;
    double width = 0;
    double ascent = 0, descent = 0; // of its tallest run
    double capHeight = 0;           // of its highest capitals, above the baseline
};

// One line, or more where the text holds line feeds or would be wider than `wrapWidth`. Lines break at spaces, and a
// word that is wider than a whole line breaks anywhere. Always at least one line. Main thread.
std::vector<SetLine> setText(const AttributedString& text, FaceLibrary& faces,
                             double wrapWidth = std::numeric_limits<double>::infinity());

// The characters of a UTF-8 text; broken bytes become U+FFFD.
std::u32string charactersOf(const std::string& utf8);

} // namespace QVM_NAMESPACE
