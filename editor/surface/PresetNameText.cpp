#include "editor/surface/PresetNameText.h"

#include "resources/IconGlyphs.h"
#include "theme/QVMUITheme.h"

#include <string_view>

namespace QVM_NAMESPACE {

namespace {

constexpr std::string_view typedArrow = "->";
constexpr double arrowShare = 0.9; // of the text's size: as high as its small letters

} // namespace

AttributedString presetNameText(const std::string& name, const Font& font, Color color) {
    AttributedString shown;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = name.find(typedArrow, from)) != std::string::npos; from = at + typedArrow.size()) {
        if (at > from) shown.append({name.substr(from, at - from), font, color});
        shown.append({std::string(icons::copyRight), QVMUITheme::iconFontOfSize(font.pointSize * arrowShare), color});
    }
    if (from < name.size() || name.empty()) shown.append({name.substr(from), font, color});
    return shown;
}

} // namespace QVM_NAMESPACE
