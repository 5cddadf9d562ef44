#include "platform/surface/CpuDrawingSurface.h"

#include "platform/surface/PackedColor.h"
#include "platform/surface/PixelCoverage.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

// The whole number at or below `x`, and at or above it, within 0 to `most`.
int wholeBelow(float x, int most) {
    return static_cast<int>(std::min(std::max(x, 0.0f), static_cast<float>(most)));
}
int wholeAbove(float x, int most) {
    const float within = std::min(std::max(x, 0.0f), static_cast<float>(most));
    const int below = static_cast<int>(within);
    return below + (static_cast<float>(below) < within ? 1 : 0);
}

struct Interval {
    float low = std::numeric_limits<float>::infinity(), high = -std::numeric_limits<float>::infinity();
    void include(float x) {
        low = std::min(low, x);
        high = std::max(high, x);
    }
};

// The x that the part of an edge between two heights spans.
void includeEdge(Interval& spanned, Vertex a, Vertex b, float top, float bottom) {
    if (std::max(a.y, b.y) < top || std::min(a.y, b.y) > bottom) return;
    const auto xAt = [&](float y) { return a.x + (b.x - a.x) * ((y - a.y) / (b.y - a.y)); };
    for (const Vertex& end : {a, b}) {
        const float y = std::min(std::max(end.y, top), bottom);
        spanned.include(y == end.y ? end.x : xAt(y));
    }
}

Color mixed(const std::array<Color, 3>& colors, const std::array<float, 3>& shares) {
    Color sum;
    for (std::size_t i = 0; i < 3; ++i) {
        sum.r += colors[i].r * shares[i];
        sum.g += colors[i].g * shares[i];
        sum.b += colors[i].b * shares[i];
        sum.a += colors[i].a * shares[i];
    }
    return sum;
}

} // namespace

void CpuDrawingSurface::clearPixels() {
    const auto pixels = static_cast<std::size_t>(pixelWidth()) * pixelHeight();
    picture_.assign(pixels, 0);
    if (shape_.size() != pixels) shape_.assign(pixels, 0);
}

bool CpuDrawingSurface::finish(Image& picture) {
    picture.width = pixelWidth();
    picture.height = pixelHeight();
    std::swap(picture.pixels, picture_);
    return true;
}

CpuDrawingSurface::Area CpuDrawingSurface::clipped(float left, float top, float right, float bottom) const {
    return {wholeBelow(left, pixelWidth()), wholeBelow(top, pixelHeight()), wholeAbove(right, pixelWidth()),
            wholeAbove(bottom, pixelHeight())};
}

void CpuDrawingSurface::touch(const Area& area) {
    if (touched_.isEmpty()) {
        touched_ = area;
        return;
    }
    touched_ = {std::min(touched_.left, area.left), std::min(touched_.top, area.top),
                std::max(touched_.right, area.right), std::max(touched_.bottom, area.bottom)};
}

// The pieces of a line are united: where two of them cover a pixel, the greater coverage counts.
void CpuDrawingSurface::strokeSegments(std::span<const StrokeSegment> segments) {
    const Color color = segments.front().fromColor;
    const bool isPlain = std::all_of(segments.begin(), segments.end(), [&](const StrokeSegment& s) {
        return s.fromColor == color && s.toColor == color;
    });
    for (const StrokeSegment& segment : segments)
        stroke(segment, isPlain);
    composite();
}

void CpuDrawingSurface::stroke(const StrokeSegment& s, bool isPlain) {
    const float reach = s.halfWidth + 1;
    const Area box = clipped(std::min(s.from.x, s.to.x) - reach, std::min(s.from.y, s.to.y) - reach,
                             std::max(s.from.x, s.to.x) + reach, std::max(s.from.y, s.to.y) + reach);
    if (box.isEmpty()) return;
    touch(box);
    const SegmentCoverage coverage(s);
    const Shades shades(s.fromColor);
    for (int y = box.top; y < box.bottom; ++y) {
        const float centre = static_cast<float>(y) + 0.5f;
        Interval spanned;
        includeEdge(spanned, s.from, s.to, centre - reach, centre + reach);
        const int left = wholeBelow(spanned.low - reach, pixelWidth());
        const int right = wholeAbove(spanned.high + reach, pixelWidth());
        std::uint32_t* const shape = shapeRow(y);
        if (isPlain) {
            for (int x = left; x < right; ++x)
                shape[x] = std::max(shape[x], shades.at(coverage.at(static_cast<float>(x) + 0.5f, centre)));
            continue;
        }
        for (int x = left; x < right; ++x) {
            const float at = static_cast<float>(x) + 0.5f;
            const float share = std::min(std::max(coverage.along(at, centre) / coverage.length, 0.0f), 1.0f);
            const Shades mixed(s.fromColor.mixedWith(s.toColor, share));
            shape[x] = greaterParts(shape[x], mixed.at(coverage.at(at, centre)));
        }
    }
}

// Triangles that share an edge add up to the whole pixel along it; those of one colour are not even parted there.
void CpuDrawingSurface::fillPixels(std::span<const FilledTriangle> triangles) {
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        const FilledTriangle& first = triangles[i];
        PolygonCoverage coverage(first.corners);
        if (first.isPlain && i + 1 < triangles.size() && coverage.join(triangles[i + 1].corners)) ++i;
        fill(coverage, first);
    }
    composite();
}

// In the colours of `paint`, which is the only triangle unless it is plain.
void CpuDrawingSurface::fill(PolygonCoverage coverage, const FilledTriangle& paint) {
    Interval xs, ys;
    for (std::size_t i = 0; i < coverage.count; ++i) {
        xs.include(coverage.edges[i].from.x);
        ys.include(coverage.edges[i].from.y);
    }
    const Area box = clipped(xs.low, ys.low, xs.high, ys.high);
    if (box.isEmpty()) return;
    touch(box);
    const Shades plain(paint.colors[0]);
    for (int y = box.top; y < box.bottom; ++y) {
        const auto top = static_cast<float>(y);
        const auto [left, right] = coverage.setRow(top);
        std::uint32_t* const shape = shapeRow(y);
        const int end = wholeAbove(right, pixelWidth());
        for (int x = wholeBelow(left, pixelWidth()); x < end;) {
            const auto at = static_cast<float>(x);
            const float covered = coverage.at(at);
            if (!paint.isPlain) {
                const auto shares = cornerShares(paint.corners, at + 0.5f, top + 0.5f);
                shape[x] = addedParts(shape[x], Shades(mixed(paint.colors, shares)).at(covered));
                ++x;
                continue;
            }
            const std::uint32_t pixel = plain.at(covered);
            const int next = std::min(end, wholeBelow(coverage.nextChange(at), pixelWidth()));
            for (; x < next; ++x)
                shape[x] = addedParts(shape[x], pixel);
        }
    }
}

void CpuDrawingSurface::composite() {
    const Area area = std::exchange(touched_, {});
    for (int y = area.top; y < area.bottom; ++y) {
        std::uint32_t* const shape = shapeRow(y);
        std::uint32_t* const picture = picture_.data() + static_cast<std::size_t>(y) * pixelWidth();
        for (int x = area.left; x < area.right; ++x)
            picture[x] = blendedOver(shape[x], picture[x]);
        std::fill(shape + area.left, shape + area.right, 0u);
    }
}

} // namespace QVM_NAMESPACE
