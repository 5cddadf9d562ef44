// A PNG decoded for a test, independent of the editor's own decoder.
#pragma once

#include <png.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace slantwise::tests {

struct Rgba {
    std::uint8_t red, green, blue, alpha; // alpha is straight
    bool operator==(const Rgba&) const = default;
};

struct DecodedPicture {
    int width = 0, height = 0; // pixels; 0 when the data did not decode
    std::vector<Rgba> pixels;  // rows from the top

    const Rgba& at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

// The whole picture, checksums included; an empty one when any of it is wrong.
inline DecodedPicture decodePng(std::span<const std::byte> data) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, data.data(), data.size()) == 0) return {};
    image.format = PNG_FORMAT_RGBA;
    DecodedPicture picture{static_cast<int>(image.width), static_cast<int>(image.height), {}};
    picture.pixels.resize(static_cast<std::size_t>(image.width) * image.height);
    if (png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr) == 0) return {};
    return picture;
}

} // namespace slantwise::tests
