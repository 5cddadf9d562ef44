#include "editor/surface/ElidedText.h"

#include "platform/layer/TextMetrics.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* ellipsis = "\xE2\x80\xA6";

// Without its last character, and without blanks before that.
void shorten(std::string& text) {
    const auto isWithinCharacter = [&] { return (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80; };
    while (text.size() > 1 && isWithinCharacter())
        text.pop_back();
    text.pop_back();
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
}

// Behind the last place before `end` where a line may be broken; nothing when there is none.
std::size_t lastBreak(const std::string& text, std::size_t end) {
    const std::size_t found = end == 0 ? std::string::npos : text.find_last_of(" /", end - 1);
    return found == std::string::npos ? 0 : found + 1;
}

std::string withoutBlankAtEnd(std::string line) {
    while (!line.empty() && line.back() == ' ')
        line.pop_back();
    return line;
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

std::string elidedInMiddle(const std::string& text, const Font& font, double width) {
    if (widthOf(text, font) <= width) return text;
    std::vector<std::string> characters;
    for (const char c : text) {
        const bool isWithinCharacter = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
        if (isWithinCharacter && !characters.empty())
            characters.back() += c;
        else
            characters.emplace_back(1, c);
    }
    const auto kept = [&characters](std::size_t count) {
        std::string head, tail;
        for (std::size_t i = 0; i < (count + 1) / 2; ++i)
            head += characters[i];
        for (std::size_t i = characters.size() - count / 2; i < characters.size(); ++i)
            tail += characters[i];
        return withoutBlankAtEnd(head) + ellipsis + tail.erase(0, std::min(tail.find_first_not_of(' '), tail.size()));
    };
    std::size_t count = characters.size();
    while (count > 0 && widthOf(kept(count - 1), font) > width)
        --count;
    return count > 0 ? kept(count - 1) : ellipsis;
}

std::vector<std::string> inLines(const std::string& text, const Font& font, double width, std::size_t most) {
    std::vector<std::string> lines;
    std::string rest = text;
    while (lines.size() + 1 < most && widthOf(rest, font) > width) {
        std::size_t end = lastBreak(rest, rest.size() - 1);
        while (end > 0 && widthOf(withoutBlankAtEnd(rest.substr(0, end)), font) > width)
            end = lastBreak(rest, end - 1);
        if (end == 0) break; // one word that is longer than a line
        lines.push_back(withoutBlankAtEnd(rest.substr(0, end)));
        rest.erase(0, end);
    }
    lines.push_back(elided(rest, font, width));
    return lines;
}

} // namespace QVM_NAMESPACE
