#include "platform/juce/TextSetting.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

// Glyphs one after another with no line breaks yet; `x` counts from the text's start.
std::vector<SetGlyph> setRuns(const AttributedString& text, FaceLibrary& faces) {
    std::vector<SetGlyph> glyphs;
    double x = 0;
    for (const TextRun& run : text.runs) {
        const FontFace& face = faces.face(run.font.face);
        for (const char32_t character : charactersOf(run.text)) {
            SetGlyph set;
            set.face = &face;
            set.glyph = &face.glyph(character);
            set.x = x;
            set.baselineOffset = run.baselineOffset;
            set.pointSize = run.font.pointSize;
            set.advance = character == U'\n' ? 0 : set.glyph->advance * run.font.pointSize + run.kern;
            set.color = run.color;
            set.character = character;
            x += set.advance;
            glyphs.push_back(set);
        }
    }
    return glyphs;
}

using GlyphIterator = std::vector<SetGlyph>::const_iterator;

// Where the line that begins at `first` ends, and where the next one begins.
std::pair<GlyphIterator, GlyphIterator> lineEnd(GlyphIterator first, GlyphIterator last, double wrapWidth) {
    GlyphIterator lastSpace = last;
    for (GlyphIterator at = first; at != last; ++at) {
        if (at->character == U'\n') return {at, at + 1};
        if (at->character == U' ') lastSpace = at;
        if (at == first || at->character == U' ' || at->x + at->advance - first->x <= wrapWidth) continue;
        return lastSpace == last ? std::pair(at, at) : std::pair(lastSpace, lastSpace + 1);
    }
    return {last, last};
}

void measure(SetLine& line, const SetGlyph& glyph) {
    const double size = glyph.pointSize;
    line.ascent = std::max(line.ascent, glyph.face->ascent() * size + glyph.baselineOffset);
    line.descent = std::max(line.descent, glyph.face->descent() * size - glyph.baselineOffset);
    line.capHeight = std::max(line.capHeight, glyph.face->capHeight() * size + glyph.baselineOffset);
}

SetLine makeLine(GlyphIterator first, GlyphIterator end, const SetGlyph* sample) {
    SetLine line;
    line.glyphs.assign(first, end);
    for (SetGlyph& glyph : line.glyphs) {
        glyph.x -= first->x;
        measure(line, glyph);
    }
    if (!line.glyphs.empty()) line.width = line.glyphs.back().x + line.glyphs.back().advance;
    if (line.glyphs.empty() && sample) measure(line, *sample); // an empty line is as high as its neighbours
    return line;
}

} // namespace

std::vector<SetLine> setText(const AttributedString& text, FaceLibrary& faces, double wrapWidth) {
    const std::vector<SetGlyph> glyphs = setRuns(text, faces);
    const SetGlyph* const sample = glyphs.empty() ? nullptr : &glyphs.front();
    std::vector<SetLine> lines;
    GlyphIterator first = glyphs.begin();
    do {
        const auto [end, next] = lineEnd(first, glyphs.end(), wrapWidth);
        lines.push_back(makeLine(first, end, sample));
        first = next;
    } while (first != glyphs.end());
    return lines;
}

std::u32string charactersOf(const std::string& utf8) {
    std::u32string characters;
    const auto byteAt = [&utf8](std::size_t i) { return i < utf8.size() ? static_cast<unsigned char>(utf8[i]) : 0u; };
    for (std::size_t i = 0; i < utf8.size();) {
        const unsigned lead = byteAt(i);
        const std::size_t length = lead < 0x80 ? 1 : lead >> 5 == 6 ? 2 : lead >> 4 == 14 ? 3 : lead >> 3 == 30 ? 4 : 0;
        char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
        std::size_t read = 1;
        while (read < length && (byteAt(i + read) & 0xC0) == 0x80)
            character = character << 6 | (byteAt(i + read++) & 0x3F);
        characters.push_back(length == 0 || read < length ? U'\uFFFD' : character);
        i += read;
    }
    return characters;
}

} // namespace QVM_NAMESPACE
