// The parameters as properties of LV2 messages: which one a message is about, and which ones a host asks for.
#pragma once

#include "description/ParameterIDs.h"

#include <lv2/atom/atom.h>
#include <lv2/urid/urid.h>

#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

// One bit for each parameter, by pid.
using ParameterBits = std::uint32_t;
static_assert(QVMParameterCount < 32);
inline constexpr ParameterBits allParameters = (ParameterBits{1} << QVMParameterCount) - 1;

// Made while the plug-in is; afterwards for the render thread: it allocates nothing and never maps a name.
class PropertyRequests {
public:
    PropertyRequests(const LV2_URID_Map& map, const char* pluginUri);

    // What the host's messages ask for: one property each, or all where they name none. Null asks for nothing, and so
    // does what is no sequence, or a request to another subject.
    ParameterBits askedFor(const LV2_Atom_Sequence* messages) const;
    // Of an object that sets a property; 0 for any other.
    ParameterBits setBy(const LV2_Atom& message) const;
    bool isStateChange(const LV2_Atom& message) const;

private:
    bool isObject(const LV2_Atom& message, LV2_URID type) const;
    ParameterBits bitOf(const LV2_Atom* property) const;
    ParameterBits requestedBy(const LV2_Atom& message) const;

    const LV2_URID sequence_, object_, blank_, urid_, get_, set_, subject_, property_, stateChanged_, plugin_;
    std::array<LV2_URID, QVMParameterCount> properties_; // by pid
};

} // namespace QVM_NAMESPACE
