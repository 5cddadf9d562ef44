#include "plugin/lv2/HostFeatures.h"

#include <cstring>

namespace QVM_NAMESPACE {

HostFeatures::HostFeatures(const LV2_Feature* const* features) {
    for (; features && *features; ++features)
        list_.push_back(*features);
    list_.push_back(nullptr);
}

void HostFeatures::replace(const char* uri, void* data) {
    for (const LV2_Feature*& feature : list_) {
        if (!feature || std::strcmp(feature->URI, uri) != 0) continue;
        feature = &replaced_.emplace_back(LV2_Feature{feature->URI, data});
    }
}

void* featureDataOf(const LV2_Feature* const* features, const char* uri) {
    for (; features && *features; ++features)
        if (std::strcmp((*features)->URI, uri) == 0) return (*features)->data;
    return nullptr;
}

} // namespace QVM_NAMESPACE
