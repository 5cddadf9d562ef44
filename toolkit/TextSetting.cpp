#include "toolkit/TextSetting.h"

#include "platform/system/Utf8.h"

#include <algorithm>

namespace QVM_NAMESPACE {

SetLine setText(const AttributedString& text, FaceLibrary& faces) {
    SetLine line;
    for (const TextRun& run : text.runs) {
        if (run.text.empty()) continue;
        const FontFace& face = faces.face(run.font.face);
        const double size = run.font.pointSize;
        for (const char32_t character : charactersOfUtf8(run.text)) {
            const FontFace::Glyph& glyph = face.glyph(character);
            line.glyphs.push_back({&glyph, line.width, run.baselineOffset, size, run.color});
            line.width += glyph.advance * size + run.kern;
        }
        line.ascent = std::max(line.ascent, face.ascent() * size + run.baselineOffset);
        line.descent = std::max(line.descent, face.descent() * size - run.baselineOffset);
        line.capHeight = std::max(line.capHeight, face.capHeight() * size + run.baselineOffset);
    }
    return line;
}

} // namespace QVM_NAMESPACE
