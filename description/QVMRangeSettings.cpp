#include "description/QVMRangeSettings.h"

namespace QVM_NAMESPACE {

template <typename Type>
Type QVMRangeSettings::valueOr(std::string_view key, Type fallback) const {
    for (const auto& [name, value] : entries_) {
        if (name != key) continue;
        const Type* held = std::get_if<Type>(&value);
        return held ? *held : fallback;
    }
    return fallback;
}

bool QVMRangeSettings::boolValue(std::string_view key) const {
    return valueOr(key, false);
}
float QVMRangeSettings::floatValue(std::string_view key) const {
    return valueOr(key, 0.0f);
}
std::string QVMRangeSettings::stringValue(std::string_view key) const {
    return valueOr(key, std::string());
}

} // namespace QVM_NAMESPACE
