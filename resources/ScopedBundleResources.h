// Another set of bundle resources for the life of this object, so that a missing or damaged file can be tried out.
#pragma once

#include "resources/BundleResources.h"

namespace QVM_NAMESPACE {

class ScopedBundleResources {
public:
    // From here on BundleResources::current() is the given set. Scopes nest: they end in the reverse order of their
    // beginning. Main thread. Fonts and pictures that were made before are not made again.
    explicit ScopedBundleResources(BundleResources resources);
    // The set that was current before is current again.
    ~ScopedBundleResources();

    ScopedBundleResources(const ScopedBundleResources&) = delete;
    ScopedBundleResources& operator=(const ScopedBundleResources&) = delete;

private:
    const BundleResources resources_;
    const BundleResources* const outer_;
};

} // namespace QVM_NAMESPACE
