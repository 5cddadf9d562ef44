// The gallery's own description: one parameter for each kind of control and each way of using it.
#pragma once

#include "tools/gallery/GalleryParameter.h"

#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

// By `codesafeName`; null for a key that there is none for. Made on first use, live as long as the process. Main
// thread.
const GalleryParameter* galleryParameter(std::string_view key);
// All of them, in the order of the tables.
const std::vector<GalleryParameter>& galleryParameters();

} // namespace QVM_NAMESPACE
