#include "toolkit/FaceTypeface.h"

namespace QVM_NAMESPACE {

FaceTypeface::FaceTypeface(const FontFace& face, const juce::String& family)
    : face_(face), height_(face.ascent() + face.descent()) {
    setCharacteristics(family, "Regular", static_cast<float>(face.ascent() / height_), ' ');
}

bool FaceTypeface::loadGlyphIfPossible(juce::juce_wchar character) {
    const FontFace::Glyph& glyph = face_.glyph(static_cast<char32_t>(character));
    juce::Path outline = glyph.outline;
    outline.applyTransform(juce::AffineTransform::scale(static_cast<float>(1 / height_)));
    addGlyph(character, outline, static_cast<float>(glyph.advance / height_));
    return true;
}

} // namespace QVM_NAMESPACE
