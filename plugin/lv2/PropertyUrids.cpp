#include "plugin/lv2/PropertyUrids.h"

#include "description/Description.h"
#include "plugin/lv2/Properties.h"

#include <lv2/atom/atom.h>
#include <lv2/patch/patch.h>
#include <lv2/state/state.h>

#include <string>

namespace QVM_NAMESPACE {

namespace {

LV2_URID mapped(const LV2_URID_Map& map, const std::string& uri) {
    return map.map(map.handle, uri.c_str());
}

} // namespace

PropertyUrids::PropertyUrids(const LV2_URID_Map& map, const char* pluginUri)
    : sequence(mapped(map, LV2_ATOM__Sequence)), object(mapped(map, LV2_ATOM__Object)),
      blank(mapped(map, LV2_ATOM__Blank)), urid(mapped(map, LV2_ATOM__URID)), floatType(mapped(map, LV2_ATOM__Float)),
      doubleType(mapped(map, LV2_ATOM__Double)), intType(mapped(map, LV2_ATOM__Int)),
      longType(mapped(map, LV2_ATOM__Long)), boolType(mapped(map, LV2_ATOM__Bool)), get(mapped(map, LV2_PATCH__Get)),
      set(mapped(map, LV2_PATCH__Set)), subject(mapped(map, LV2_PATCH__subject)),
      property(mapped(map, LV2_PATCH__property)), value(mapped(map, LV2_PATCH__value)),
      stateChanged(mapped(map, LV2_STATE__StateChanged)), plugin(mapped(map, pluginUri)) {
    const std::string prefix = std::string(pluginUri) + ":";
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        const std::string former = formerPropertyName(parameter);
        properties[pid] = mapped(map, prefix + propertyName(parameter));
        formerProperties[pid] = former.empty() ? 0 : mapped(map, prefix + former);
    }
}

} // namespace QVM_NAMESPACE
