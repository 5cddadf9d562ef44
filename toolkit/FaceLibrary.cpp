#include "toolkit/FaceLibrary.h"

#include "platform/system/Log.h"
#include "resources/BundleResources.h"

#include <fontconfig/fontconfig.h>

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

// The machine's fonts as they are configured, read from its cache in some milliseconds. Not kept: it takes more memory
// than the faces.
class InstalledFonts {
public:
    InstalledFonts() : config_(FcInitLoadConfigAndFonts()) {}
    ~InstalledFonts() {
        if (config_) FcConfigDestroy(config_);
    }
    InstalledFonts(const InstalledFonts&) = delete;
    InstalledFonts& operator=(const InstalledFonts&) = delete;

    // The face of exactly this PostScript name, or null.
    std::unique_ptr<const FontFace> face(const std::string& postScriptName) const {
        if (!config_) return nullptr;
        FcPattern* wanted = FcPatternCreate();
        FcPatternAddString(wanted, FC_POSTSCRIPT_NAME, reinterpret_cast<const FcChar8*>(postScriptName.c_str()));
        FcObjectSet* fields = FcObjectSetBuild(FC_FILE, FC_INDEX, static_cast<char*>(nullptr));
        FcFontSet* found = FcFontList(config_, wanted, fields);
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

private:
    FcConfig* const config_; // null when there is none to be had
};

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
    if (known_.empty()) findOurFaces();
    const auto known = known_.find(postScriptName);
    if (known != known_.end()) return known->second.get();
    return known_.emplace(postScriptName, InstalledFonts().face(postScriptName)).first->second.get();
}

void FaceLibrary::findOurFaces() {
    const InstalledFonts installed;
    for (const Embedded& entry : embeddedFaces) {
        const std::string name(entry.face);
        auto face = entry.mayBeInstalled ? installed.face(name) : nullptr;
        known_.emplace(name, face ? std::move(face) : embeddedFace(entry));
    }
}

} // namespace QVM_NAMESPACE
