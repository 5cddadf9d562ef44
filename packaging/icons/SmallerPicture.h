// Makes the icon's sizes of the one that was drawn.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <vector>

namespace QVM_NAMESPACE {

// A square picture, row after row from the top: red, green, blue and alpha of each pixel in linear light, the colours
// multiplied by the alpha, so that any of the numbers may be averaged by itself.
struct SquarePicture {
    int side = 0; // in pixels
    std::vector<std::uint16_t> components;
};

// The same at `side` pixels, no more than it has. A pixel is the average of the area it covers, which at the edges of
// that area is parts of pixels.
SquarePicture smallerPicture(const SquarePicture& picture, int side);

} // namespace QVM_NAMESPACE
