#include "platform/juce/ImageScaling.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr std::array<int, 4> channelShifts{24, 16, 8, 0};

struct Span {
    int first = 0, last = 0; // source pixels, both included
    double begin = 0, end = 0;
    double weight(int pixel) const { return std::min(end, pixel + 1.0) - std::max(begin, static_cast<double>(pixel)); }
};

Span sourceSpan(int index, int targetSize, int sourceSize) {
    const double ratio = static_cast<double>(sourceSize) / targetSize;
    Span span;
    span.begin = index * ratio;
    span.end = std::min<double>(sourceSize, (index + 1) * ratio);
    span.first = static_cast<int>(span.begin);
    span.last = std::max(span.first, static_cast<int>(std::ceil(span.end)) - 1);
    return span;
}

std::uint32_t meanOf(const Image& image, const Span& columns, const Span& rows) {
    std::array<double, 4> sums{};
    double total = 0;
    for (int y = rows.first; y <= rows.last; ++y) {
        for (int x = columns.first; x <= columns.last; ++x) {
            const double weight = columns.weight(x) * rows.weight(y);
            const std::uint32_t pixel = image.pixels[static_cast<std::size_t>(y) * image.width + x];
            for (std::size_t c = 0; c < 4; ++c)
                sums[c] += weight * ((pixel >> channelShifts[c]) & 0xFF);
            total += weight;
        }
    }
    std::uint32_t mean = 0;
    for (std::size_t c = 0; c < 4; ++c) {
        mean |= static_cast<std::uint32_t>(std::lround(sums[c] / total)) << channelShifts[c];
    }
    return mean;
}

} // namespace

Image areaAveraged(const Image& image, int width, int height) {
    if (image.isEmpty() || width <= 0 || height <= 0) return {};
    Image out{width, height, {}};
    out.pixels.reserve(static_cast<std::size_t>(width) * height);
    for (int y = 0; y < height; ++y) {
        const Span rows = sourceSpan(y, height, image.height);
        for (int x = 0; x < width; ++x)
            out.pixels.push_back(meanOf(image, sourceSpan(x, width, image.width), rows));
    }
    return out;
}

Image tinted(const Image& image, Color tint) {
    Image out = image;
    const std::array<float, 4> channels{1, tint.r, tint.g, tint.b};
    for (std::uint32_t& pixel : out.pixels) {
        const float alpha = static_cast<float>(pixel >> 24) * tint.a;
        pixel = 0;
        for (std::size_t c = 0; c < 4; ++c) {
            pixel |= static_cast<std::uint32_t>(std::lround(alpha * channels[c])) << channelShifts[c];
        }
    }
    return out;
}

} // namespace QVM_NAMESPACE
