// The properties by which the editor and its audio unit exchange what is no parameter.
//
// All stand in the global scope, element 0. Unit and editor share the process, so some values are references; a
// reference that is set need only live during the call.
#pragma once

#include "platform/audiounit/AudioUnit.h"

#include <cstdint>
#include <string>

namespace QVM_NAMESPACE {

enum QVMPrivateProperty : AudioUnitPropertyID {
    kQVMProperty_InterfacePreference = 64003, // set: one byte, whether the preference told of is other than 0
    kQVMProperty_PresetName = 64004,          // set, get: const std::string*
    kQVMProperty_InputChannels = 64005,       // get: unsigned 32-bit
    kQVMProperty_OutputChannels = 64006,      // get: unsigned 32-bit
    kQVMProperty_ResetMeters = 64007,         // set: unsigned 32-bit 1
    kQVMProperty_ABState = 64008,             // set, get: QVMABRecord
    kQVMProperty_BufferPath = 64009,          // set: const std::string*, a file path
    kQVMProperty_InterfaceState = 64010,      // set, get: unsigned 32-bit
    kQVMProperty_VizRef = 64011,              // set, get: SharedState*, lent until CloseViz or another one
    kQVMProperty_CloseViz = 64012,            // set: unsigned 32-bit 1
};

// The A/B comparison as it is exchanged: the slot that is not active, and that slot's values as text.
struct QVMABRecord {
    static constexpr std::uint32_t nothingSaved = 2;

    std::uint32_t state = nothingSaved;
    std::uint32_t padding = 0;
    const std::string* settings = nullptr;
};
static_assert(sizeof(QVMABRecord) == 16);

} // namespace QVM_NAMESPACE
