// The numbers that a host has for what LV2 messages about the parameters are made of.
#pragma once

#include "description/ParameterIDs.h"

#include <lv2/urid/urid.h>

#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

// One bit for each parameter, by pid.
using ParameterBits = std::uint32_t;
static_assert(QVMParameterCount < 32);
inline constexpr ParameterBits allParameters = (ParameterBits{1} << QVMParameterCount) - 1;

// Made while the plug-in is, which is when a host maps names; afterwards for any thread.
struct PropertyUrids {
    PropertyUrids(const LV2_URID_Map& map, const char* pluginUri);

    const LV2_URID sequence, object, blank, urid, floatType, doubleType, intType, longType, boolType;
    const LV2_URID get, set, subject, property, value, stateChanged, plugin;
    // By pid. Former names are 0 where there is none, which no host has for a name.
    std::array<LV2_URID, QVMParameterCount> properties, formerProperties;
};

} // namespace QVM_NAMESPACE
