#include "controls/QVMMeterButton.h"

#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

void QVMMeterButton::setSuffix(std::optional<std::string> suffix) {
    suffix_ = std::move(suffix);
    suffixAttr_ = {};
    if (suffix_) suffixAttr_ = {*suffix_, QVMUITheme::unitFontOfSize(suffixSize_), color()};
    showGlyph();
}

AttributedString QVMMeterButton::attributedStringForGlyphColor(const std::string& glyph,
                                                               std::optional<Color> color) const {
    AttributedString suffix = suffixAttr_;
    for (TextRun& run : suffix.runs)
        run.color = color.value_or(run.color);
    return QVMSymbolButton::attributedStringForGlyphColor(glyph, color).append(suffix);
}

} // namespace QVM_NAMESPACE
