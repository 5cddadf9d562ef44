// The live displays that the gallery shows. A new one is one line of the table in Displays.cpp.
#pragma once

#include "platform/view/View.h"
#include "tools/gallery/StereoFeed.h"

#include <memory>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {

struct GalleryDisplay {
    std::string_view key; // one word
    std::string_view title;
    std::string_view caption; // what is to be seen
    Size size;                // points, with the card it stands on
    // Makes the display as a view that fills `frame` and listens to the feed, which outlives it.
    std::unique_ptr<View> (*make)(const Rect& frame, StereoFeed& feed);
};

// In the order in which they stand, from left to right and downwards.
std::span<const GalleryDisplay> galleryDisplays();

} // namespace QVM_NAMESPACE
