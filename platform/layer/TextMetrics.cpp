#include "platform/layer/TextMetrics.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* iconFace = "QVM-Icons-Regular"; // its glyphs are as wide as the em

// Bytes that start a character of UTF-8.
std::size_t characterCount(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// Round numbers for a process with no outlines at hand.
class NominalTextMetrics final : public TextMetrics {
public:
    double width(const AttributedString& text) const override {
        double points = 0;
        for (const TextRun& run : text.runs) {
            const double advance = run.font.pointSize * (run.font.face == iconFace ? 1 : 0.5) + run.kern;
            points += static_cast<double>(characterCount(run.text)) * advance;
        }
        return points;
    }
    double ascent(const Font& font) const override { return font.pointSize * 0.8; }
    double descent(const Font& font) const override { return font.pointSize * 0.2; }
    bool hasFace(const std::string&) const override { return false; }
};

const NominalTextMetrics nominal;
const TextMetrics* installed = nullptr; // main thread only

} // namespace

const TextMetrics& TextMetrics::current() {
    return installed ? *installed : nominal;
}

void TextMetrics::install(const TextMetrics* metrics) {
    installed = metrics;
}

Size sizeOf(const AttributedString& text) {
    const TextMetrics& metrics = TextMetrics::current();
    double height = 0;
    for (const TextRun& run : text.runs)
        height = std::max(height, metrics.ascent(run.font) + metrics.descent(run.font));
    return {metrics.width(text), height};
}

double widthOf(const std::string& text, const Font& font) {
    return TextMetrics::current().width(AttributedString(text, font, {}));
}

bool isAscii(const std::string& utf8) {
    return std::all_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace QVM_NAMESPACE
