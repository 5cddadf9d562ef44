// Sets styled text: which outline goes where. Measuring and drawing use the same setting, so they always agree.
#pragma once

#include "platform/layer/AttributedString.h"
#include "toolkit/FaceLibrary.h"

#include <vector>

namespace QVM_NAMESPACE {

// All lengths are in points.
struct SetGlyph {
    const FontFace::Glyph* glyph = nullptr; // the library's
    double x = 0;                           // from the line's start
    double baselineOffset = 0;              // up
    double pointSize = 0;
    Color color;
};

struct SetLine {
    std::vector<SetGlyph> glyphs;
    double width = 0;
    double ascent = 0, descent = 0; // of its tallest run
    double capHeight = 0;           // of its highest capitals, above the baseline
};

// The text on one line. Main thread.
SetLine setText(const AttributedString& text, FaceLibrary& faces);

} // namespace QVM_NAMESPACE
