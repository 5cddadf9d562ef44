// Pictures at another size, and in another colour.
#pragma once

#include "platform/Color.h"
#include "platform/Image.h"

namespace QVM_NAMESPACE {

// The picture at `width` x `height` pixels. Each new pixel is the mean of the area it covers, so that artwork drawn at
// six times its size stays crisp at any smaller one. Any thread.
Image areaAveraged(const Image& image, int width, int height);
// The picture's alpha, filled with a colour. Any thread.
Image tinted(const Image& image, Color tint);

} // namespace QVM_NAMESPACE
