// A picture in memory: 8-bit premultiplied BGRA (the toolkit's ARGB in memory order), rows from the top.
#pragma once

#include "geometry/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

struct Image {
    int width = 0, height = 0;         // pixels
    std::vector<std::uint32_t> pixels; // 0xAARRGGBB, width * height of them
    bool isEmpty() const { return pixels.empty(); }

    // Width and height in pixels of a PNG, whose pixels are left alone; none for other data. Any thread.
    static std::optional<Size> sizeOfPng(std::span<const std::byte> data);
    // Both give null for data that does not decode. Any thread.
    static std::shared_ptr<const Image> fromPng(std::span<const std::byte> data);
    static std::shared_ptr<const Image> fromJpeg(std::span<const std::byte> data);
};

} // namespace QVM_NAMESPACE
