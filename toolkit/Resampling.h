// Pictures at another size.
#pragma once

#include "platform/surface/Image.h"

namespace QVM_NAMESPACE {

// The image at a size in pixels. Where it shrinks, each pixel is the exact average of the area it covers, so that a
// picture made for six times the size stays crisp; where it grows, it is interpolated. Any thread.
Image resampled(const Image& image, int width, int height);

} // namespace QVM_NAMESPACE
