// A window as a picture, at any scale, on screen or not.
#pragma once

#include "platform/surface/Image.h"
#include "platform/view/Window.h"

#include <string>

namespace QVM_NAMESPACE {

// What the window shows now at `scale` pixels a point, with all animations where they are. A window that has another
// scale is given this one for the length of the call. Empty without a content view. Main thread; needs no display.
Image renderWindowToImage(Window& window, double scale);

// Writes the image as a PNG file, replacing one that is there. False when it can't be written. Any thread.
[[nodiscard]] bool writePng(const Image& image, const std::string& path);

} // namespace QVM_NAMESPACE
