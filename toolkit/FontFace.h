// The outlines and measures of one face, read from a font file in memory.
//
// Outlines come from the font library itself. The toolkit's own font code opens every font file of the machine before
// it shows its first letter, which takes from tens of milliseconds to seconds, and knows no cap height.
#pragma once

#include "BuildNamespace.h"

#include <juce_graphics/juce_graphics.h>

#include <cstddef>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

namespace QVM_NAMESPACE {

// All lengths are in ems: 1 is the font's size. y grows downwards from the baseline. Main thread only.
class FontFace {
public:
    struct Glyph {
        juce::Path outline;
        double advance = 0;
        bool isMissing = false; // the face has no such character; the outline is the face's sign for that
    };

    // Null when the data is no font with outlines. The data must outlive the face.
    static std::unique_ptr<FontFace> fromMemory(std::span<const std::byte> data);
    // As fromMemory, from a file that is mapped or read as long as the face lives.
    static std::unique_ptr<FontFace> fromFile(const char* path, int indexInFile);
    // A face without a single outline, for a process that has lost its fonts: half an em for each character.
    static std::unique_ptr<FontFace> empty();
    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    double ascent() const { return ascent_; }
    double descent() const { return descent_; }
    // Height of capitals; in a face without any, what centres the middle of its line.
    double capHeight() const { return capHeight_; }
    // The reference is valid as long as the face.
    const Glyph& glyph(char32_t character) const;

private:
    struct Outlines; // the font library's objects
    explicit FontFace(std::unique_ptr<Outlines> outlines);
    void measure();
    Glyph load(char32_t character) const;

    std::unique_ptr<Outlines> outlines_; // null in an empty face
    double ascent_ = 0.8, descent_ = 0.2, capHeight_ = 0.7;
    mutable std::unordered_map<char32_t, Glyph> glyphs_;
};

} // namespace QVM_NAMESPACE
