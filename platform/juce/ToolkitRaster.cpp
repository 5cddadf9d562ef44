#include "platform/juce/ToolkitRaster.h"

#include <cstring>

namespace QVM_NAMESPACE {

juce::Image newToolkitImage(int width, int height) {
    return {juce::Image::ARGB, std::max(1, width), std::max(1, height), true, juce::SoftwareImageType()};
}

// Both sides keep 0xAARRGGBB words, premultiplied, rows from the top.
juce::Image toToolkit(const Image& image) {
    juce::Image out = newToolkitImage(image.width, image.height);
    const juce::Image::BitmapData data(out, juce::Image::BitmapData::writeOnly);
    for (int y = 0; y < image.height; ++y) {
        std::memcpy(data.getLinePointer(y), &image.pixels[static_cast<std::size_t>(y) * image.width],
                    static_cast<std::size_t>(image.width) * sizeof(std::uint32_t));
    }
    return out;
}

Image fromToolkit(const juce::Image& image) {
    const juce::Image argb = image.convertedToFormat(juce::Image::ARGB);
    const juce::Image::BitmapData data(argb, juce::Image::BitmapData::readOnly);
    Image out{argb.getWidth(), argb.getHeight(), {}};
    out.pixels.resize(static_cast<std::size_t>(out.width) * out.height);
    for (int y = 0; y < out.height; ++y) {
        std::memcpy(&out.pixels[static_cast<std::size_t>(y) * out.width], data.getLinePointer(y),
                    static_cast<std::size_t>(out.width) * sizeof(std::uint32_t));
    }
    return out;
}

juce::AffineTransform toToolkit(const AffineTransform& t) {
    return {static_cast<float>(t.a), static_cast<float>(t.c), static_cast<float>(t.tx),
            static_cast<float>(t.b), static_cast<float>(t.d), static_cast<float>(t.ty)};
}

} // namespace QVM_NAMESPACE
