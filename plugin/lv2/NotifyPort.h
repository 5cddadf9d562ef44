// What an LV2 host is told, in messages: a parameter's value, or that what a session saves of the plug-in has changed.
//
// A message is written whole or not at all; what has no room is said, to be told with a later block.
#pragma once

#include "plugin/lv2/PropertyUrids.h"

#include <lv2/atom/atom.h>

#include <cstddef>

namespace QVM_NAMESPACE {

// Render thread, all but the constructor: it allocates nothing.
class NotifyPort {
public:
    // Borrowed, and outlive the port.
    explicit NotifyPort(const PropertyUrids& urids) : urids_(urids) {}

    // The host's sequence for the block, or null for none. It says how much room it has, as the format lays down, and
    // is empty afterwards.
    void begin(LV2_Atom_Sequence* host);
    // False where there is no room.
    [[nodiscard]] bool tellValue(std::uint32_t pid, float value);
    [[nodiscard]] bool tellStateChange();

private:
    bool append(const void* message, std::size_t bytes);

    const PropertyUrids& urids_;
    LV2_Atom_Sequence* host_ = nullptr; // null without room for a sequence
    std::size_t room_ = 0;              // bytes of its body
};

} // namespace QVM_NAMESPACE
