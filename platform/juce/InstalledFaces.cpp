#include "platform/juce/InstalledFaces.h"

#include <memory>

#include <fontconfig/fontconfig.h>

namespace QVM_NAMESPACE {

namespace {

template <class T, void (*destroy)(T*)>
struct Destroyer {
    void operator()(T* object) const { destroy(object); }
};

using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPattern, FcPatternDestroy>>;
using Objects = std::unique_ptr<FcObjectSet, Destroyer<FcObjectSet, FcObjectSetDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroyer<FcFontSet, FcFontSetDestroy>>;

} // namespace

std::optional<std::string> fileOfInstalledFace(const std::string& postScriptName) {
    const Pattern pattern(FcPatternCreate());
    if (!pattern) return {};
    FcPatternAddString(pattern.get(), FC_POSTSCRIPT_NAME, reinterpret_cast<const FcChar8*>(postScriptName.c_str()));
    const Objects wanted(FcObjectSetBuild(FC_FILE, FC_INDEX, static_cast<const char*>(nullptr)));
    const FontSet found(FcFontList(nullptr, pattern.get(), wanted.get()));
    for (int i = 0; found && i < found->nfont; ++i) {
        FcChar8* file = nullptr;
        int index = 0;
        FcPatternGetInteger(found->fonts[i], FC_INDEX, 0, &index);
        if (index == 0 && FcPatternGetString(found->fonts[i], FC_FILE, 0, &file) == FcResultMatch) {
            return std::string(reinterpret_cast<const char*>(file));
        }
    }
    return {};
}

} // namespace QVM_NAMESPACE
