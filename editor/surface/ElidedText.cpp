#include "editor/surface/ElidedText.h"

#include "platform/layer/TextMetrics.h"
#include "theme/Colors.h"

namespace QVM_NAMESPACE {

namespace {

constexpr const char* ellipsis = "\xE2\x80\xA6";

double widthOf(const std::string& text, const Font& font) {
    return TextMetrics::current().width(AttributedString(text, font, Color{}));
}

// Without its last character, and without blanks before that.
void shorten(std::string& text) {
    const auto isWithinCharacter = [&] { return (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80; };
    while (text.size() > 1 && isWithinCharacter())
        text.pop_back();
    text.pop_back();
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
}

} // namespace

std::string elided(const std::string& text, const Font& font, double width) {
    if (widthOf(text, font) <= width) return text;
    std::string kept = text;
    while (!kept.empty()) {
        shorten(kept);
        if (widthOf(kept + ellipsis, font) <= width) break;
    }
    return kept + ellipsis;
}

} // namespace QVM_NAMESPACE
