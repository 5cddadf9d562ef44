#include "toolkit/ShadowBlur.h"

#include "toolkit/Conversions.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

constexpr int passes = 3; // of a running average: close to the bell curve, and it ends

struct AlphaPlane {
    int width = 0, height = 0;
    std::vector<float> values;
    float* row(int y) { return values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width); }
};

AlphaPlane alphaOf(const juce::Image& image, juce::Point<int> offset) {
    AlphaPlane plane{image.getWidth(), image.getHeight(), {}};
    plane.values.resize(static_cast<std::size_t>(plane.width) * static_cast<std::size_t>(plane.height));
    const juce::Image::BitmapData pixels(image, juce::Image::BitmapData::readOnly);
    for (int y = 0; y < plane.height; ++y) {
        const int fromY = y - offset.y;
        if (fromY < 0 || fromY >= plane.height) continue;
        for (int x = 0; x < plane.width; ++x) {
            const int fromX = x - offset.x;
            if (fromX < 0 || fromX >= plane.width) continue;
            plane.row(y)[x] =
                reinterpret_cast<const juce::PixelARGB*>(pixels.getPixelPointer(fromX, fromY))->getAlpha();
        }
    }
    return plane;
}

// Replaces each of `count` values, `stride` apart, by the average of what lies within `reach` of it; nothing lies
// beyond the ends.
void average(float* values, int count, std::ptrdiff_t stride, int reach, std::vector<float>& copy) {
    copy.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        copy[static_cast<std::size_t>(i)] = values[i * stride];
    const auto at = [&](int i) { return i >= 0 && i < count ? copy[static_cast<std::size_t>(i)] : 0.0f; };
    double sum = 0;
    for (int i = 0; i < reach; ++i)
        sum += at(i);
    for (int i = 0; i < count; ++i) {
        sum += at(i + reach);
        values[i * stride] = static_cast<float>(sum / (2 * reach + 1));
        sum -= at(i - reach);
    }
}

} // namespace

juce::Image shadowOf(const juce::Image& look, double radiusPixels, juce::Point<int> offset, Color color) {
    AlphaPlane plane = alphaOf(look, offset);
    const int reach = static_cast<int>(std::floor(2 * radiusPixels / passes + 0.25)); // of one pass
    std::vector<float> copy;
    for (int pass = 0; pass < passes && reach > 0; ++pass) {
        for (int y = 0; y < plane.height; ++y)
            average(plane.row(y), plane.width, 1, reach, copy);
        for (int x = 0; x < plane.width; ++x)
            average(plane.row(0) + x, plane.height, plane.width, reach, copy);
    }
    juce::Image out = makeCanvas(plane.width, plane.height);
    const juce::Image::BitmapData pixels(out, juce::Image::BitmapData::writeOnly);
    const auto level = [](float v) { return static_cast<std::uint8_t>(std::lround(v)); };
    for (int y = 0; y < plane.height; ++y) {
        for (int x = 0; x < plane.width; ++x) {
            const float alpha = std::min(plane.row(y)[x], 255.0f) * color.a;
            reinterpret_cast<juce::PixelARGB*>(pixels.getPixelPointer(x, y))
                ->setARGB(level(alpha), level(alpha * color.r), level(alpha * color.g), level(alpha * color.b));
        }
    }
    return out;
}

} // namespace QVM_NAMESPACE
