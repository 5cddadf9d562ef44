#include "plugin/lv2/PropertyRequests.h"

#include "description/Description.h"

#include <lv2/atom/util.h>
#include <lv2/patch/patch.h>
#include <lv2/state/state.h>

#include <algorithm>
#include <string>

namespace QVM_NAMESPACE {

namespace {

LV2_URID mapped(const LV2_URID_Map& map, const std::string& uri) {
    return map.map(map.handle, uri.c_str());
}

} // namespace

PropertyRequests::PropertyRequests(const LV2_URID_Map& map, const char* pluginUri)
    : sequence_(mapped(map, LV2_ATOM__Sequence)), object_(mapped(map, LV2_ATOM__Object)),
      blank_(mapped(map, LV2_ATOM__Blank)), urid_(mapped(map, LV2_ATOM__URID)), get_(mapped(map, LV2_PATCH__Get)),
      set_(mapped(map, LV2_PATCH__Set)), subject_(mapped(map, LV2_PATCH__subject)),
      property_(mapped(map, LV2_PATCH__property)), stateChanged_(mapped(map, LV2_STATE__StateChanged)),
      plugin_(mapped(map, pluginUri)) {
    // As the toolkit names them.
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        properties_[pid] = mapped(map, std::string(pluginUri) + ":" + GetParameter(pid)->codesafeName);
}

ParameterBits PropertyRequests::askedFor(const LV2_Atom_Sequence* messages) const {
    ParameterBits bits = 0;
    if (!messages || messages->atom.type != sequence_) return bits;
    LV2_ATOM_SEQUENCE_FOREACH(messages, event) bits |= requestedBy(event->body);
    return bits;
}

ParameterBits PropertyRequests::setBy(const LV2_Atom& message) const {
    if (!isObject(message, set_)) return 0;
    const LV2_Atom* property = nullptr;
    lv2_atom_object_get(reinterpret_cast<const LV2_Atom_Object*>(&message), property_, &property, 0);
    return bitOf(property);
}

bool PropertyRequests::isStateChange(const LV2_Atom& message) const {
    return isObject(message, stateChanged_);
}

bool PropertyRequests::isObject(const LV2_Atom& message, LV2_URID type) const {
    if ((message.type != object_ && message.type != blank_) || message.size < sizeof(LV2_Atom_Object_Body))
        return false;
    return reinterpret_cast<const LV2_Atom_Object&>(message).body.otype == type;
}

ParameterBits PropertyRequests::bitOf(const LV2_Atom* property) const {
    if (!property || property->type != urid_ || property->size < sizeof(LV2_URID)) return 0;
    const LV2_URID urid = reinterpret_cast<const LV2_Atom_URID*>(property)->body;
    const auto found = std::ranges::find(properties_, urid);
    return found == properties_.end() ? 0 : ParameterBits{1} << (found - properties_.begin());
}

ParameterBits PropertyRequests::requestedBy(const LV2_Atom& message) const {
    if (!isObject(message, get_)) return 0;
    const LV2_Atom *subject = nullptr, *property = nullptr;
    lv2_atom_object_get(reinterpret_cast<const LV2_Atom_Object*>(&message), subject_, &subject, property_, &property,
                        0);
    const auto* const named = reinterpret_cast<const LV2_Atom_URID*>(subject);
    if (named && (named->atom.type != urid_ || named->body != plugin_)) return 0;
    return property ? bitOf(property) : allParameters;
}

} // namespace QVM_NAMESPACE
