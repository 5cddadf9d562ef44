#include "resources/ScopedBundleResources.h"

#include <utility>

namespace QVM_NAMESPACE {

ScopedBundleResources::ScopedBundleResources(BundleResources resources)
    : resources_(std::move(resources)), outer_(std::exchange(BundleResources::currentSlot(), &resources_)) {}

ScopedBundleResources::~ScopedBundleResources() {
    BundleResources::currentSlot() = outer_;
}

} // namespace QVM_NAMESPACE
