#include "plugin/lv2/PropertyRequests.h"

#include "description/Description.h"
#include "plugin/lv2/Properties.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

// By place; the number of all when it is none of them.
std::uint32_t placeOf(LV2_URID urid, const std::array<LV2_URID, QVMParameterCount>& urids) {
    return static_cast<std::uint32_t>(std::ranges::find(urids, urid) - urids.begin());
}

template <class Atom>
auto bodyOf(const LV2_Atom* atom) {
    return reinterpret_cast<const Atom*>(atom)->body;
}

} // namespace

ParameterBits PropertyRequests::askedFor(const LV2_Atom_Sequence* messages) const {
    ParameterBits bits = 0;
    if (!isSequence(messages)) return bits;
    LV2_ATOM_SEQUENCE_FOREACH(messages, event) bits |= requestedBy(event->body);
    return bits;
}

bool PropertyRequests::isSequence(const LV2_Atom_Sequence* messages) const {
    return messages && messages->atom.type == urids_.sequence;
}

bool PropertyRequests::isObject(const LV2_Atom& message, LV2_URID type) const {
    if ((message.type != urids_.object && message.type != urids_.blank) || message.size < sizeof(LV2_Atom_Object_Body))
        return false;
    return reinterpret_cast<const LV2_Atom_Object&>(message).body.otype == type;
}

bool PropertyRequests::isToThePlugin(const LV2_Atom* subject) const {
    return !subject || (subject->type == urids_.urid && bodyOf<LV2_Atom_URID>(subject) == urids_.plugin);
}

ParameterBits PropertyRequests::bitOf(const LV2_Atom* property) const {
    if (property->type != urids_.urid || property->size < sizeof(LV2_URID)) return 0;
    const std::uint32_t pid = placeOf(bodyOf<LV2_Atom_URID>(property), urids_.properties);
    return pid < QVMParameterCount ? ParameterBits{1} << pid : 0;
}

ParameterBits PropertyRequests::requestedBy(const LV2_Atom& message) const {
    if (!isObject(message, urids_.get)) return 0;
    const LV2_Atom *subject = nullptr, *property = nullptr;
    lv2_atom_object_get(reinterpret_cast<const LV2_Atom_Object*>(&message), urids_.subject, &subject, urids_.property,
                        &property, 0);
    if (!isToThePlugin(subject)) return 0;
    return property ? bitOf(property) : allParameters;
}

std::optional<PropertySetting> PropertyRequests::settingOf(const LV2_Atom& message) const {
    if (!isObject(message, urids_.set)) return {};
    const LV2_Atom *subject = nullptr, *property = nullptr, *value = nullptr;
    lv2_atom_object_get(reinterpret_cast<const LV2_Atom_Object*>(&message), urids_.subject, &subject, urids_.property,
                        &property, urids_.value, &value, 0);
    if (!value || !isToThePlugin(subject) || !property || property->type != urids_.urid) return {};
    return setting(bodyOf<LV2_Atom_URID>(property), value->type, value + 1, value->size);
}

std::optional<PropertySetting> PropertyRequests::setting(LV2_URID property, LV2_URID type, const void* number,
                                                         std::size_t bytes) const {
    const std::optional<float> value = numberOf(type, number, bytes);
    if (!value || property == 0) return {};
    if (const std::uint32_t pid = placeOf(property, urids_.properties); pid < QVMParameterCount)
        return PropertySetting{pid, hostValueOfProperty(*GetParameter(pid), *value)};
    const std::uint32_t pid = placeOf(property, urids_.formerProperties);
    return pid < QVMParameterCount ? std::optional(PropertySetting{pid, *value}) : std::nullopt;
}

// Hosts write a number in the type that they have it in.
std::optional<float> PropertyRequests::numberOf(LV2_URID type, const void* number, std::size_t bytes) const {
    float value = std::numeric_limits<float>::quiet_NaN();
    const auto readAs = [&](auto written) {
        if (bytes < sizeof written) return;
        std::memcpy(&written, number, sizeof written);
        value = static_cast<float>(written);
    };
    if (type == urids_.floatType) readAs(0.0F);
    if (type == urids_.doubleType) readAs(0.0);
    if (type == urids_.intType || type == urids_.boolType) readAs(std::int32_t{});
    if (type == urids_.longType) readAs(std::int64_t{});
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace QVM_NAMESPACE
