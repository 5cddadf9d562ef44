#include "tools/gallery/Displays.h"

#include "tools/gallery/SignalView.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

template <class Display>
std::unique_ptr<View> make(const Rect& frame, StereoFeed& feed) {
    return std::make_unique<Display>(frame, feed);
}

constexpr std::array<GalleryDisplay, 1> kDisplays = {{{"Signal", {280, 96}, &make<SignalView>}}};

} // namespace

std::span<const GalleryDisplay> galleryDisplays() {
    return kDisplays;
}

} // namespace QVM_NAMESPACE
