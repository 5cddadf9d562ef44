#include "toolkit/ToolkitTextMetrics.h"

#include "toolkit/TextSetting.h"

namespace QVM_NAMESPACE {

double ToolkitTextMetrics::width(const AttributedString& text) const {
    return setText(text, faces_).width;
}

double ToolkitTextMetrics::ascent(const Font& font) const {
    return faces_.face(font.face).ascent() * font.pointSize;
}

double ToolkitTextMetrics::descent(const Font& font) const {
    return faces_.face(font.face).descent() * font.pointSize;
}

bool ToolkitTextMetrics::hasFace(const std::string& face) const {
    return faces_.hasFace(face);
}

} // namespace QVM_NAMESPACE
