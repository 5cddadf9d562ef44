// How the stereoscope's bands look.
#include "platform/surface/DrawingSurface.h"
#include "viz/displays/CirclePoints.h"
#include "viz/displays/HueAndLightness.h"
#include "viz/displays/QVMStereoscope.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr float kDecibelsPerNeper = 8.685889f;
constexpr QVMFloat32Range kBrightness = {-72, -18}; // dB of a band, from invisible to brightest
constexpr float kLeastLength = 3;                   // points of arc, so that a sound in one place can be seen
constexpr float kStep = 1.0f / 16;                  // of a side's quarter turn: longer arcs have corners in between
constexpr float kEndShare = 0.12f;                  // of the brightness in the middle of an arc, at its ends
constexpr float kWeakShare = 0.5f;                  // of the lightness, for the faintest
constexpr float kOppositeSaturation = 0.85f, kOppositeLightness = 0.55f, kOppositeTurn = 0.5f;
constexpr float kRingAlpha = 0.28f, kFaintRingAlpha = 0.14f, kRingWidth = 1; // points
constexpr int kRingSegments = 128;
constexpr float kRings[] = {100, 1000, 10000}; // hertz
constexpr float kDirections[] = {-1, -0.5f, 0, 0.5f, 1};

float brightnessOf(float level) {
    const float decibels = std::log(level) * kDecibelsPerNeper;
    return std::clamp((decibels - kBrightness.min) / (kBrightness.max - kBrightness.min), 0.0f, 1.0f);
}

// Independent sides are what music is made of and stay near the sketch's hue: the square of their third is little.
Color colourOf(const HueAndLightness& base, float brightness, float phase) {
    HueAndLightness colour = base;
    const float amount = phase * phase;
    const auto towards = [amount](float from, float to) { return from + (to - from) * amount; };
    colour.hue = base.hue + kOppositeTurn * amount;
    colour.saturation = towards(base.saturation, std::max(base.saturation, kOppositeSaturation));
    colour.lightness = towards(base.lightness, kOppositeLightness) * (kWeakShare + (1 - kWeakShare) * brightness);
    return colour.color(brightness);
}

} // namespace

void QVMStereoscope::glCircle(DrawingSurface& surface, float radius, int segments) const {
    const QVMRGBColor& rgb = canvas_.sketch.color;
    std::vector<Vertex> ring = circlePoints(radius, segments);
    for (Vertex& point : ring)
        point.x += canvas_.width / 2;
    surface.drawLineStrip(ring, {.width = kRingWidth}, Color{rgb.r, rgb.g, rgb.b, kRingAlpha});
}

void QVMStereoscope::drawBackground(DrawingSurface& surface) const {
    surface.setProjection(0, canvas_.width, 0, canvas_.height);
    const QVMRGBColor& rgb = canvas_.sketch.color;
    const float inner = radiusOf(20), rim = radiusOf(20000);
    for (const float direction : kDirections) {
        const std::array<Vertex, 2> ray = {pointAt(inner, direction), pointAt(rim, direction)};
        const float alpha = direction == 0 ? kRingAlpha : kFaintRingAlpha;
        surface.drawLineStrip(ray, {.width = kRingWidth}, Color{rgb.r, rgb.g, rgb.b, alpha});
    }
    for (const float hertz : kRings)
        glCircle(surface, radiusOf(hertz), kRingSegments);
    glCircle(surface, rim, kRingSegments);
    glCircle(surface, inner, kRingSegments);
}

// An arc between the band's ring and the next one, brightest in the middle.
void QVMStereoscope::addBand(std::size_t index, const StereoSpectrum::Band& band) {
    const float brightness = brightnessOf(band.level);
    if (!(brightness > 0)) return;
    const auto& rgb = canvas_.sketch.color;
    const Color colour = colourOf(HueAndLightness::of(rgb.r, rgb.g, rgb.b), brightness, band.phase);
    const float inner = radiusOf(20), height = (radiusOf(20000) - inner) / static_cast<float>(spectrum_.size());
    const float low = inner + static_cast<float>(index) * height, high = low + height;
    // Half an arc, as a position.
    const float least = std::min(kLeastLength / (low * std::numbers::pi_v<float>), 0.5f);
    const float extent = std::min(std::max(band.extent, least), 1.0f);
    const float middle = std::clamp(band.pan, least - 1, 1 - least);
    const float from = std::max(middle - extent, -1.0f), to = std::min(middle + extent, 1.0f);

    const int steps = std::max(1, static_cast<int>(std::ceil(extent / kStep)));
    const auto colourAt = [&](float position) {
        const float distance = std::min(std::abs(position - middle) / extent, 1.0f);
        return colour.withAlpha(colour.a * (extent > least ? 1 - (1 - kEndShare) * distance * distance : 1));
    };
    const auto addPiece = [&](float a, float b) {
        const Vertex corners[] = {pointAt(low, a), pointAt(high, a), pointAt(low, b), pointAt(high, b)};
        for (const int corner : {0, 1, 2, 1, 2, 3}) {
            corners_.push_back(corners[corner]);
            colours_.push_back(colourAt(corner < 2 ? a : b));
        }
    };
    for (int side = -1; side <= 1; side += 2) {
        const float end = side < 0 ? from : to;
        float at = middle;
        for (int i = 1; i <= steps; ++i) {
            const float next = middle + (end - middle) * static_cast<float>(i) / static_cast<float>(steps);
            addPiece(at, next);
            at = next;
        }
    }
}

void QVMStereoscope::glDraw(DrawingSurface& surface) {
    surface.setProjection(0, canvas_.width, 0, canvas_.height);
    corners_.clear();
    colours_.clear();
    for (std::size_t i = 0; i < spectrum_.size(); ++i)
        addBand(i, spectrum_.band(i));
    surface.fillTriangles(corners_, TriangleMode::list, colours_);
}

} // namespace QVM_NAMESPACE
