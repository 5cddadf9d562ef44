#include "plugin/lv2/IntegerOptions.h"

#include <lv2/atom/atom.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace QVM_NAMESPACE {

IntegerOptions::IntegerOptions(const LV2_Options_Option* options, const LV2_URID_Map& map) {
    const LV2_URID intType = map.map(map.handle, LV2_ATOM__Int), longType = map.map(map.handle, LV2_ATOM__Long);
    for (; options && (options->key != 0 || options->value); ++options) {
        LV2_Options_Option option = *options;
        const bool isInteger = option.type == intType || option.type == longType;
        if (isInteger && option.value && option.size == sizeof(std::int64_t)) {
            std::int64_t value = 0;
            std::memcpy(&value, option.value, sizeof value);
            using Limits = std::numeric_limits<std::int32_t>;
            value = std::clamp<std::int64_t>(value, Limits::min(), Limits::max());
            option.value = &values_.emplace_back(static_cast<std::int32_t>(value));
            option.type = intType;
            option.size = sizeof(std::int32_t);
        }
        options_.push_back(option);
    }
    options_.push_back({LV2_OPTIONS_INSTANCE, 0, 0, 0, 0, nullptr});
}

} // namespace QVM_NAMESPACE
