#include "resources/BundleResources.h"

#include "resources/EmbeddedFiles.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

BundleResources::BundleResources(std::vector<BundleFile> files) : files_(std::move(files)) {}

std::span<const std::byte> BundleResources::find(std::string_view name, std::string_view extension) const {
    const auto found = std::find_if(files_.begin(), files_.end(), [&](const BundleFile& file) {
        return file.name == name && file.extension == extension;
    });
    return found == files_.end() ? std::span<const std::byte>{} : found->bytes;
}

const BundleResources& BundleResources::current() {
    return *currentSlot();
}

const BundleResources*& BundleResources::currentSlot() {
    static const BundleResources embedded(embeddedFiles());
    static const BundleResources* slot = &embedded;
    return slot;
}

} // namespace QVM_NAMESPACE
