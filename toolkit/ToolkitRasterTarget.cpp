#include "toolkit/ToolkitRasterTarget.h"

#include "toolkit/Conversions.h"
#include "toolkit/ToolkitRasterBackend.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

bool isWhole(double v) {
    return std::abs(v - std::round(v)) < 1e-6;
}
bool isWhole(const Rect& r) {
    return isWhole(r.x) && isWhole(r.y) && isWhole(r.width) && isWhole(r.height);
}

} // namespace

void ToolkitRasterTarget::draw(const Raster& raster, const AffineTransform& t, double opacity) {
    const juce::Image& image = static_cast<const ToolkitRaster&>(raster).image;
    g_.setOpacity(static_cast<float>(opacity));
    if (!t.isTranslation() || !isWhole(t.tx) || !isWhole(t.ty)) {
        g_.setImageResamplingQuality(juce::Graphics::highResamplingQuality);
        g_.drawImageTransformed(image, toToolkit(t));
        return;
    }
    const juce::Rectangle<int> place =
        image.getBounds().translated(static_cast<int>(std::lround(t.tx)), static_cast<int>(std::lround(t.ty)));
    if (g_.clipRegionIntersects(place)) g_.drawImageAt(image, place.getX(), place.getY());
}

void ToolkitRasterTarget::fill(const Rect& deviceRect, Color color) {
    g_.setColour(toToolkit(color));
    if (isWhole(deviceRect)) {
        g_.fillRect(toNearestPixels(deviceRect));
    } else {
        g_.fillRect(toToolkit(deviceRect));
    }
}

void ToolkitRasterTarget::pushClip(const Rect& rect, double cornerRadius, const AffineTransform& transform) {
    g_.saveState();
    if (cornerRadius <= 0 && transform.isIdentity() && isWhole(rect)) {
        g_.reduceClipRegion(toNearestPixels(rect));
        return;
    }
    const juce::Path outline = toToolkit(Path::roundedRect(rect, std::max(0.0, cornerRadius)), transform);
    g_.reduceClipRegion(flattened(outline));
}

void ToolkitRasterTarget::pushGroup(const Rect& deviceBounds, double opacity) {
    g_.saveState();
    g_.reduceClipRegion(toNearestPixels(deviceBounds));
    g_.beginTransparencyLayer(static_cast<float>(opacity));
}

void ToolkitRasterTarget::popGroup() {
    g_.endTransparencyLayer();
    g_.restoreState();
}

} // namespace QVM_NAMESPACE
