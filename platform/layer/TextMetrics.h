// Measures text. The adapter installs measurement with the real outlines; without one, nominal widths are used, so
// that layout code runs in a process with no toolkit.
#pragma once

#include "geometry/Geometry.h"
#include "platform/layer/AttributedString.h"

namespace QVM_NAMESPACE {

class TextMetrics {
public:
    virtual ~TextMetrics() = default;
    // Points from the first run's start to the last run's end.
    virtual double width(const AttributedString& text) const = 0;
    // Points above and below the baseline.
    virtual double ascent(const Font& font) const = 0;
    virtual double descent(const Font& font) const = 0;
    // Whether a face of that name is installed or carried by the product.
    virtual bool hasFace(const std::string& face) const = 0;

    // The measurement in force. Main thread; never null.
    static const TextMetrics& current();
    // Installs `metrics` (borrowed; null returns to the nominal one). Main thread.
    static void install(const TextMetrics* metrics);
};

// Width and height (the tallest run's ascent plus descent) in points.
Size sizeOf(const AttributedString& text);
// Of a text in one font; points.
double widthOf(const std::string& text, const Font& font);
// True when the text can be written in 7-bit ASCII.
bool isAscii(const std::string& utf8);

} // namespace QVM_NAMESPACE
