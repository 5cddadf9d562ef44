#include "platform/juce/FaceLibrary.h"

#include "platform/Log.h"
#include "resources/BundleResources.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

// Which embedded file carries a face or stands in for it.
struct Embedded {
    std::string_view face, file, extension;
    bool mayBeInstalled = true; // our own faces are never looked for on the machine
};
constexpr std::array embeddedFaces = {
    Embedded{"HelveticaNeue-Medium", "Roboto-Medium", "ttf"},
    Embedded{"HelveticaNeue", "Roboto-Medium", "ttf"},
    Embedded{"HelveticaNeue-Italic", "Roboto-Italic", "ttf"},
    Embedded{"HelveticaNeue-CondensedBold", "RobotoCondensed-Bold", "ttf"},
    Embedded{"QVM-Icons-Regular", "QVM-Icons-Regular", "otf", false},
};

std::unique_ptr<const FontFace> embeddedFace(const Embedded& entry) {
    auto face = FontFace::fromMemory(BundleResources::current().find(entry.file, entry.extension));
    if (!face) logLine("fonts: no usable " + std::string(entry.file) + '.' + std::string(entry.extension));
    return face;
}

// The machine's face of exactly this PostScript name, or null. The first call reads the font cache (some milliseconds).
std::unique_ptr<const FontFace> installedFace(const std::string& postScriptName) {
    FcPattern* wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_POSTSCRIPT_NAME, reinterpret_cast<const FcChar8*>(postScriptName.c_str()));
    FcObjectSet* fields = FcObjectSetBuild(FC_FILE, FC_INDEX, static_cast<char*>(nullptr));
    FcFontSet* found = FcFontList(nullptr, wanted, fields);
    std::unique_ptr<const FontFace> face;
    for (int i = 0; found && i < found->nfont && !face; ++i) {
        FcChar8* file = nullptr;
        int index = 0;
        if (FcPatternGetString(found->fonts[i], FC_FILE, 0, &file) != FcResultMatch) continue;
        FcPatternGetInteger(found->fonts[i], FC_INDEX, 0, &index);
        face = FontFace::fromFile(reinterpret_cast<const char*>(file), index);
    }
    if (found) FcFontSetDestroy(found);
    FcObjectSetDestroy(fields);
    FcPatternDestroy(wanted);
    return face;
}

} // namespace

const FontFace& FaceLibrary::face(const std::string& postScriptName) {
    if (const FontFace* face = find(postScriptName)) return *face;
    const FontFace* system = find(systemFaceName);
    return system ? *system : *nothing_;
}

bool FaceLibrary::hasFace(const std::string& postScriptName) {
    return find(postScriptName) != nullptr;
}

const FontFace* FaceLibrary::find(const std::string& postScriptName) {
    const auto known = known_.find(postScriptName);
    if (known != known_.end()) return known->second.get();

    const auto entry = std::find_if(embeddedFaces.begin(), embeddedFaces.end(),
                                    [&](const Embedded& e) { return e.face == postScriptName; });
    const bool isEmbedded = entry != embeddedFaces.end();
    std::unique_ptr<const FontFace> face;
    if (!isEmbedded || entry->mayBeInstalled) face = installedFace(postScriptName);
    if (!face && isEmbedded) face = embeddedFace(*entry);
    return known_.emplace(postScriptName, std::move(face)).first->second.get();
}

} // namespace QVM_NAMESPACE
