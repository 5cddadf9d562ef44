#include "plugin/lv2/HostFeatures.h"

#include <lv2/atom/atom.h>
#include <lv2/options/options.h>
#include <lv2/ui/ui.h>
#include <lv2/urid/urid.h>

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

bool isScaleSaid(const LV2_Feature* const* features) {
    const auto* const map = featureData<const LV2_URID_Map>(features, LV2_URID__map);
    const auto* option = featureData<const LV2_Options_Option>(features, LV2_OPTIONS__options);
    if (!map) return false;
    const LV2_URID key = map->map(map->handle, LV2_UI__scaleFactor), type = map->map(map->handle, LV2_ATOM__Float);
    for (; option && (option->key != 0 || option->value); ++option)
        if (option->key == key && option->type == type && option->value) return true;
    return false;
}

} // namespace QVM_NAMESPACE
