// The plug-in bundle's own resources: fonts and pictures, found by name and extension.
//
// They are part of the binary, not files beside it. Each format lays its bundle out differently and the stand-alone
// program has none, while a binary that carries its resources draws the same editor wherever it is put.
#pragma once

#include "resources/BundleFile.h"

#include <span>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

class BundleResources {
public:
    // A set of files; where two have the same name and extension the first counts. Their bytes must outlive the set.
    explicit BundleResources(std::vector<BundleFile> files);

    // The bytes of a file, named as it is written, case included: find("Roboto-Medium", "ttf"). Empty when the set has
    // no such file. The bytes are not owned and stay where they are. Any thread.
    std::span<const std::byte> find(std::string_view name, std::string_view extension) const;

    // What this process uses: the files in the binary, unless a ScopedBundleResources stands in for them. Main thread.
    static const BundleResources& current();

private:
    friend class ScopedBundleResources;
    static const BundleResources*& currentSlot();

    std::vector<BundleFile> files_;
};

} // namespace QVM_NAMESPACE
