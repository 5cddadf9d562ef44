#include "preferences/PreferenceText.h"

#include "description/Blanks.h"
#include "description/NumberText.h"
#include "platform/system/Utf8.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

constexpr std::string_view keyMarks = "-_.";

bool isKey(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               keyMarks.find(c) != std::string_view::npos;
    });
}

bool isText(std::string_view text) {
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' && c != '\n' && c != '\t' && c != '\r';
    };
    return std::ranges::none_of(text, isControl) && isPlainUtf8(text);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::optional<std::pair<std::string_view, double>> preferenceIn(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    const std::string_view key = withoutBlanks(line.substr(0, equals));
    const std::optional<double> value = NumberFromText<double>(withoutBlanks(line.substr(equals + 1)));
    if (!isKey(key) || !value || !std::isfinite(*value)) return std::nullopt;
    return std::pair(key, *value);
}

} // namespace

std::optional<Preferences> preferencesIn(std::string_view text) {
    if (!isText(text)) return std::nullopt;
    Preferences found;
    for (const std::string_view line : linesOf(text))
        if (const auto preference = preferenceIn(line)) found[std::string(preference->first)] = preference->second;
    return found;
}

std::string textWithPreference(std::string_view text, std::string_view key, double value) {
    if (!isKey(key) || !std::isfinite(value)) return std::string(text);
    const std::string written = std::string(key) + " = " + ShortestText(value) + "\n";
    std::string changed;
    bool isWritten = false;
    for (const std::string_view line : linesOf(text)) {
        const auto preference = preferenceIn(line);
        const bool isOfKey = preference && preference->first == key;
        if (!isOfKey) (changed += line) += '\n';
        if (isOfKey && !std::exchange(isWritten, true)) changed += written;
    }
    return isWritten ? changed : changed + written;
}

} // namespace QVM_NAMESPACE
