#include "controls/ReadoutText.h"

#include "platform/layer/TextMetrics.h"
#include "resources/IconGlyphs.h"
#include "theme/QVMUITheme.h"

#include <map>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

constexpr double kValueSize = 16, kUnitGlyphSize = 13, kUnitIconSize = 16, kUnitTextSize = 12;
constexpr double kUnitGap = 1.5; // points
constexpr float kUnitAlpha = 0.85f;

struct UnitGlyph {
    std::string_view unit, glyph;
};
constexpr UnitGlyph kUnitGlyphs[] = {
    {"dB/Oct", icons::dbPerOctave}, {"kHz", icons::kHz}, {"Hz", icons::Hz}, {"dB", icons::dB}, {"%", icons::percent},
};

AttributedString unitText(const std::string& suffix) {
    const Color color = readoutUnitColor();
    for (const UnitGlyph& known : kUnitGlyphs) {
        if (known.unit != suffix) continue;
        const std::string glyph(known.glyph);
        const Font font = QVMUITheme::appropriateFontForValueSizeIconSize(glyph, kUnitGlyphSize, kUnitIconSize);
        return {glyph, font, color};
    }
    return {suffix, QVMUITheme::unitFontOfSize(kUnitTextSize), color};
}

// Units are few and every change of a value asks for one, so each is made once. Its colour is the theme's, though.
const AttributedString& cachedUnitText(const std::string& suffix) {
    static std::map<std::string, AttributedString> cache;
    const auto found = cache.find(suffix);
    if (found == cache.end()) return cache.emplace(suffix, unitText(suffix)).first->second;
    found->second.runs.front().color = readoutUnitColor();
    return found->second;
}

AttributedString valueText(const std::string& value, double fontSize) {
    const Font font = isAscii(value) ? QVMUITheme::appropriateFontForValueSizeIconSize("1", kValueSize, 0)
                                     : QVMUITheme::appropriateFontForValueSizeIconSize(value, fontSize, 0);
    return {value, font, QVMUITheme::theme().palette.onAccent};
}

// Keeps the unit off the value: space behind the last character, which becomes a run of its own.
void addUnitGap(AttributedString& text) {
    TextRun last = text.runs.back();
    if (last.text.empty() || !isAscii(last.text)) return;
    text.runs.back().text.pop_back();
    if (text.runs.back().text.empty()) text.runs.pop_back();
    last.text.erase(0, last.text.size() - 1);
    last.kern = kUnitGap;
    text.runs.push_back(std::move(last));
}

} // namespace

Color readoutUnitColor() {
    return QVMUITheme::theme().palette.onAccent.withAlpha(kUnitAlpha);
}

AttributedString readoutText(const std::string& value, const std::optional<std::string>& suffix, double fontSize) {
    AttributedString text = valueText(value, fontSize);
    const std::string unit = suffix.value_or("");
    if (unit.empty()) return text;
    addUnitGap(text);
    return text.append(cachedUnitText(unit));
}

} // namespace QVM_NAMESPACE
