// Sets styled text: where each glyph of each run stands. Shared by measuring and drawing, so that they always agree.
#pragma once

#include "platform/AttributedString.h"
#include "platform/juce/FaceLibrary.h"

#include <vector>

namespace QVM_NAMESPACE {

// One line, in pixels from the start of its baseline.
struct SetLine {
    struct Glyph {
        int number = 0;
        float x = 0;
    };
    struct Run {
        juce::Font font;
        juce::Colour colour;
        float baselineShift = 0; // pixels, positive is up
        std::vector<Glyph> glyphs;
    };
    std::vector<Run> runs;
    double width = 0;
};

juce::Colour toolkitColour(Color color);

// Sets the whole text on one line at `scale` pixels a point.
SetLine setLine(FaceLibrary& faces, const AttributedString& text, double scale);
// Breaks the text at spaces and line ends into lines of at most `width` pixels; a word that is longer gets its own.
std::vector<AttributedString> brokenIntoLines(FaceLibrary& faces, const AttributedString& text, double width,
                                              double scale);

} // namespace QVM_NAMESPACE
