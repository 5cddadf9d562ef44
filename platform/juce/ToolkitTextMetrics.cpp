#include "platform/juce/ToolkitTextMetrics.h"

#include "platform/juce/TextSetting.h"

#include <algorithm>

namespace QVM_NAMESPACE {

double ToolkitTextMetrics::width(const AttributedString& text) const {
    double widest = 0;
    for (const SetLine& line : setText(text, faces_))
        widest = std::max(widest, line.width);
    return widest;
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
