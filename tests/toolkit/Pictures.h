// Pictures with computed expectations.
#pragma once

#include "platform/surface/Color.h"
#include "toolkit/Screenshot.h"
#include "toolkit/ToolkitRuntime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

namespace QVM_NAMESPACE {

// What a pixel should be, premultiplied or not: expectations here are opaque or clear.
using Expected = std::function<Color(int x, int y)>;

inline int channel(std::uint32_t pixel, int shift) {
    return static_cast<int>(pixel >> shift & 0xFF);
}
inline std::uint32_t pixelAt(const Image& image, int x, int y) {
    return image
        .pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) + static_cast<std::size_t>(x)];
}
inline bool isNear(std::uint32_t pixel, Color c, int tolerance) {
    const auto near = [&](int shift, float v) {
        return std::abs(channel(pixel, shift) - static_cast<int>(std::lround(v * 255))) <= tolerance;
    };
    return near(24, c.a) && near(16, c.r * c.a) && near(8, c.g * c.a) && near(0, c.b * c.a);
}
// Whether each single pixel is within `tolerance` levels of what it should be; tells the first that is not.
inline ::testing::AssertionResult agrees(const Image& image, const Expected& expected, int tolerance = 1) {
    if (image.isEmpty()) return ::testing::AssertionFailure() << "no picture";
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const Color c = expected(x, y);
            if (isNear(pixelAt(image, x, y), c, tolerance)) continue;
            return ::testing::AssertionFailure()
                   << "pixel " << x << ", " << y << " is " << std::hex << pixelAt(image, x, y) << " and not " << c.a
                   << ' ' << c.r << ' ' << c.g << ' ' << c.b;
        }
    }
    return ::testing::AssertionSuccess();
}
inline Image shifted(const Image& image, int dx, int dy) {
    Image out = image;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const bool isInside = x >= dx && y >= dy && x - dx < image.width && y - dy < image.height;
            out.pixels[static_cast<std::size_t>(y * image.width + x)] = isInside ? pixelAt(image, x - dx, y - dy) : 0;
        }
    }
    return out;
}
inline Image blank(const Image& like) {
    return {like.width, like.height, std::vector<std::uint32_t>(like.pixels.size())};
}
// The share of the picture that is covered, by its alpha, in pixels.
inline double coverage(const Image& image) {
    double sum = 0;
    for (const std::uint32_t pixel : image.pixels)
        sum += channel(pixel, 24) / 255.0;
    return sum;
}
// The box of all pixels with at least half their alpha.
inline Rect inkBox(const Image& image) {
    Rect box;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            if (channel(pixelAt(image, x, y), 24) >= 128)
                box = box.unionWith({static_cast<double>(x), static_cast<double>(y), 1, 1});
        }
    }
    return box;
}

// A window with one layer in it, as a picture.
inline Image pictureOf(const std::shared_ptr<Layer>& layer, Size points, double scale, YAxis axis = YAxis::down) {
    const juce::SharedResourcePointer<ToolkitRuntime> runtime;
    Window window;
    View& view = window.setContentView(std::make_unique<View>(Rect{0, 0, points.width, points.height}, axis));
    view.layer()->tree().add(layer);
    return renderWindowToImage(window, scale);
}

inline std::shared_ptr<Layer> plainLayer(const Rect& frame, Color color, YAxis axis = YAxis::down) {
    auto layer = std::make_shared<Layer>(axis);
    layer->setFrame(frame);
    layer->look().setBackgroundColor(color);
    return layer;
}

} // namespace QVM_NAMESPACE
