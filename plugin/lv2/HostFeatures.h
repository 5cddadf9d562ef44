// The features that a host hands to an LV2 plug-in or its editor, with some of them replaced.
#pragma once

#include "BuildNamespace.h"

#include <lv2/core/lv2.h>

#include <deque>
#include <vector>

namespace QVM_NAMESPACE {

// What stands behind this name, or null: also where the host has no features at all. Any thread.
template <class Data>
Data* featureData(const LV2_Feature* const* features, const char* uri);

// A list of its own over the host's data. Lives for one call from the host; any thread.
class HostFeatures {
public:
    explicit HostFeatures(const LV2_Feature* const* features);
    HostFeatures(const HostFeatures&) = delete;
    HostFeatures& operator=(const HostFeatures&) = delete;

    // A feature that the host does not have stays absent. The data is borrowed.
    void replace(const char* uri, void* data);
    // Ends with a null, as the format wants it.
    const LV2_Feature* const* get() const { return list_.data(); }

private:
    std::deque<LV2_Feature> replaced_; // they are pointed at
    std::vector<const LV2_Feature*> list_;
};

// Whether the host says at what scale an editor is to be shown. Any thread.
bool isScaleSaid(const LV2_Feature* const* features);

void* featureDataOf(const LV2_Feature* const* features, const char* uri);

template <class Data>
Data* featureData(const LV2_Feature* const* features, const char* uri) {
    return static_cast<Data*>(featureDataOf(features, uri));
}

} // namespace QVM_NAMESPACE
