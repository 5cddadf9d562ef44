// The live displays that the gallery has a place for. A new one is one line of the table in Displays.cpp.
#pragma once

#include "platform/View.h"
#include "tools/gallery/StereoFeed.h"

#include <memory>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {

struct GalleryDisplay {
    std::string_view title;
    Size size; // points
    // Makes the display as a view that fills `frame` and listens to the feed, which outlives it.
    std::unique_ptr<View> (*make)(const Rect& frame, StereoFeed& feed);
};

std::span<const GalleryDisplay> galleryDisplays();

} // namespace QVM_NAMESPACE
