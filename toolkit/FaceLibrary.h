// Finds the face that a font's name stands for.
#pragma once

#include "toolkit/FontFace.h"

#include <map>
#include <memory>
#include <string>

namespace QVM_NAMESPACE {

// Main thread only.
class FaceLibrary {
public:
    // A face that is installed under that very PostScript name comes first, then the embedded one that
    // carries the name or stands in for it, then the system face. The reference is valid as long as the library.
    const FontFace& face(const std::string& postScriptName);
    // Whether the name is installed, carried or stood in for; false when face() would give the system face for want of
    // better.
    bool hasFace(const std::string& postScriptName);
    // What a name that nobody knows gets.
    static constexpr const char* systemFaceName = "HelveticaNeue-Medium";

private:
    const FontFace* find(const std::string& postScriptName); // null: unknown
    void findOurFaces();

    std::map<std::string, std::unique_ptr<const FontFace>> known_; // by the name asked for, null ones included
    const std::unique_ptr<const FontFace> nothing_ = FontFace::empty();
};

} // namespace QVM_NAMESPACE
