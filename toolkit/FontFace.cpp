#include "toolkit/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <utility>

namespace QVM_NAMESPACE {

namespace {

// Turns the font library's outlines, in font units with y up, into ems with y down.
struct OutlineSink {
    juce::Path path;
    float scale = 1;
    bool isOpen = false;

    juce::Point<float> em(const FT_Vector* p) const {
        return {static_cast<float>(p->x) * scale, -static_cast<float>(p->y) * scale};
    }
    void close() {
        if (std::exchange(isOpen, false)) path.closeSubPath();
    }

    static OutlineSink& self(void* user) { return *static_cast<OutlineSink*>(user); }
    static int move(const FT_Vector* to, void* user) {
        OutlineSink& sink = self(user);
        sink.close();
        sink.isOpen = true;
        return sink.path.startNewSubPath(sink.em(to)), 0;
    }
    static int line(const FT_Vector* to, void* user) { return self(user).path.lineTo(self(user).em(to)), 0; }
    static int conic(const FT_Vector* control, const FT_Vector* to, void* user) {
        return self(user).path.quadraticTo(self(user).em(control), self(user).em(to)), 0;
    }
    static int cubic(const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* user) {
        const OutlineSink& sink = self(user);
        return self(user).path.cubicTo(sink.em(first), sink.em(second), sink.em(to)), 0;
    }
};

} // namespace

struct FontFace::Outlines {
    FT_Library library = nullptr;
    FT_Face face = nullptr;

    Outlines() { FT_Init_FreeType(&library); }
    ~Outlines() {
        if (face) FT_Done_Face(face);
        if (library) FT_Done_FreeType(library);
    }
    Outlines(const Outlines&) = delete;
    Outlines& operator=(const Outlines&) = delete;

    bool isUsable() const { return face && FT_IS_SCALABLE(face) && face->units_per_EM > 0; }
    double ems(double units) const { return units / face->units_per_EM; }
};

FontFace::FontFace(std::unique_ptr<Outlines> outlines) : outlines_(std::move(outlines)) {
    if (outlines_) measure();
}

FontFace::~FontFace() = default;

std::unique_ptr<FontFace> FontFace::fromMemory(std::span<const std::byte> data) {
    auto outlines = std::make_unique<Outlines>();
    if (!outlines->library || data.empty() ||
        FT_New_Memory_Face(outlines->library, reinterpret_cast<const FT_Byte*>(data.data()),
                           static_cast<FT_Long>(data.size()), 0, &outlines->face) != 0 ||
        !outlines->isUsable())
        return nullptr;
    return std::unique_ptr<FontFace>(new FontFace(std::move(outlines)));
}

std::unique_ptr<FontFace> FontFace::fromFile(const char* path, int indexInFile) {
    auto outlines = std::make_unique<Outlines>();
    if (!outlines->library || FT_New_Face(outlines->library, path, indexInFile, &outlines->face) != 0 ||
        !outlines->isUsable())
        return nullptr;
    return std::unique_ptr<FontFace>(new FontFace(std::move(outlines)));
}

std::unique_ptr<FontFace> FontFace::empty() {
    return std::unique_ptr<FontFace>(new FontFace(nullptr));
}

void FontFace::measure() {
    const FT_Face face = outlines_->face;
    FT_Select_Charmap(face, FT_ENCODING_UNICODE);
    ascent_ = outlines_->ems(face->ascender);
    descent_ = -outlines_->ems(face->descender);
    capHeight_ = ascent_ - descent_;
    if (FT_Get_Char_Index(face, 'H') == 0) return;
    capHeight_ = -static_cast<double>(glyph(U'H').outline.getBounds().getY());
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (os2 && os2->version >= 2 && os2->sCapHeight > 0) capHeight_ = outlines_->ems(os2->sCapHeight);
}

const FontFace::Glyph& FontFace::glyph(char32_t character) const {
    const auto found = glyphs_.find(character);
    if (found != glyphs_.end()) return found->second;
    return glyphs_.emplace(character, load(character)).first->second;
}

FontFace::Glyph FontFace::load(char32_t character) const {
    Glyph glyph;
    glyph.advance = 0.5;
    glyph.isMissing = true;
    if (!outlines_) return glyph;

    const FT_Face face = outlines_->face;
    const FT_UInt index = FT_Get_Char_Index(face, character);
    glyph.isMissing = index == 0;
    if (FT_Load_Glyph(face, index, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0) return glyph;
    glyph.advance = outlines_->ems(static_cast<double>(face->glyph->metrics.horiAdvance));
    if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return glyph;

    OutlineSink sink;
    sink.scale = static_cast<float>(outlines_->ems(1));
    const FT_Outline_Funcs funcs = {OutlineSink::move, OutlineSink::line, OutlineSink::conic, OutlineSink::cubic, 0, 0};
    FT_Outline_Decompose(&face->glyph->outline, &funcs, &sink);
    sink.close();
    sink.path.setUsingNonZeroWinding(true);
    glyph.outline = std::move(sink.path);
    return glyph;
}

} // namespace QVM_NAMESPACE
