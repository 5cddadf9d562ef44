// A font as a plain value: a face by its PostScript name and a size. The adapter finds the outlines.
#pragma once

#include "BuildNamespace.h"

#include <string>

namespace QVM_NAMESPACE {

struct Font {
    std::string face; // for example "HelveticaNeue-Medium" or "QVM-Icons-Regular"
    double pointSize = 0;
    bool operator==(const Font&) const = default;
};

} // namespace QVM_NAMESPACE
