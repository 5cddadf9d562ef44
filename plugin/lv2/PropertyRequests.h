// What an LV2 host's messages want of the parameters: to set them, and to be told of them.
#pragma once

#include "plugin/lv2/PropertyUrids.h"

#include <lv2/atom/atom.h>
#include <lv2/atom/util.h>

#include <cstddef>
#include <optional>

namespace QVM_NAMESPACE {

struct PropertySetting {
    std::uint32_t pid;
    float hostValue; // as the unit has it, and no NaN
};

// Render thread, all but the constructor: it allocates nothing.
class PropertyRequests {
public:
    // Borrowed, and outlive this.
    explicit PropertyRequests(const PropertyUrids& urids) : urids_(urids) {}

    // What the host's messages ask for: one property each, or all where they name none. Null asks for nothing, and so
    // does what is no sequence, or a request to another subject.
    ParameterBits askedFor(const LV2_Atom_Sequence* messages) const;
    // Calls `take(PropertySetting)` for what the messages set, in their order; likewise.
    template <class Take>
    void forEachSetting(const LV2_Atom_Sequence* messages, Take&& take) const;
    // What a number of this type means for the property of this name; nothing where either is none of ours.
    std::optional<PropertySetting> setting(LV2_URID property, LV2_URID type, const void* number,
                                           std::size_t bytes) const;

private:
    bool isSequence(const LV2_Atom_Sequence* messages) const;
    bool isObject(const LV2_Atom& message, LV2_URID type) const;
    bool isToThePlugin(const LV2_Atom* subject) const;
    ParameterBits bitOf(const LV2_Atom* property) const;
    ParameterBits requestedBy(const LV2_Atom& message) const;
    std::optional<PropertySetting> settingOf(const LV2_Atom& message) const;
    std::optional<float> numberOf(LV2_URID type, const void* number, std::size_t bytes) const;

    const PropertyUrids& urids_;
};

template <class Take>
void PropertyRequests::forEachSetting(const LV2_Atom_Sequence* messages, Take&& take) const {
    if (!isSequence(messages)) return;
    LV2_ATOM_SEQUENCE_FOREACH(messages, event) {
        if (const std::optional<PropertySetting> setting = settingOf(event->body)) take(*setting);
    }
}

} // namespace QVM_NAMESPACE
