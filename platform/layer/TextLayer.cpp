#include "platform/layer/TextLayer.h"

#include "platform/layer/TextMetrics.h"

#include <utility>

namespace QVM_NAMESPACE {

template <class T>
void TextLayer::store(T& member, const T& value) {
    if (member == value) return;
    member = value;
    look().setNeedsDisplay();
}

void TextLayer::setString(const AttributedString& string) {
    store(string_, string);
}

void TextLayer::setAlignment(TextAlignment alignment, TextPlacement placement) {
    store(alignment_, alignment);
    store(placement_, placement);
}

void TextLayer::setLeastOpacity(double opacity) {
    if (opacity == leastOpacity_) return;
    leastOpacity_ = opacity;
    tree().didChange();
}

bool TextLayer::hasLook(const PresentedLayer& presented) const {
    return Layer::hasLook(presented) || !string_.isEmpty();
}

bool TextLayer::isPlainRectangle(const PresentedLayer& presented) const {
    return Layer::isPlainRectangle(presented) && string_.isEmpty();
}

Rect TextLayer::lookBounds(const PresentedLayer& presented) const {
    if (string_.isEmpty()) return Layer::lookBounds(presented);
    // Slanted and accented letters reach beyond their advance and height, and a text that is too long beyond the
    // bounds.
    double overhang = 0;
    for (const TextRun& run : string_.runs)
        overhang = std::max(overhang, run.font.pointSize / 4 + std::abs(run.baselineOffset));
    const Size size = sizeOf(string_);
    const double over = std::max(0.0, size.width - presented.bounds.width);
    const double tooHigh = std::max(0.0, size.height - presented.bounds.height);
    PresentedLayer grown = presented;
    grown.bounds = presented.bounds.insetBy(-overhang - over, -overhang - tooHigh);
    return Layer::lookBounds(grown);
}

std::string TextLayer::lookDescription() const {
    return string_.isEmpty() ? std::string() : '"' + string_.string() + '"';
}

} // namespace QVM_NAMESPACE
