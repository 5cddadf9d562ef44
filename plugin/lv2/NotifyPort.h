// Where the toolkit writes what it has to tell an LV2 host, and what the host gets of it.
//
// The toolkit does not look whether there is room, and half a message is worse than none. So it writes into a sequence
// of ours, which always has room, and whole messages are handed on; what did not fit is said, to be told again.
#pragma once

#include "plugin/lv2/PropertyRequests.h"

#include <array>
#include <cstddef>

namespace QVM_NAMESPACE {

// What a host was not told for lack of room.
struct Untold {
    ParameterBits values = 0;
    bool stateChange = false;
};

// Render thread, all of it; allocates nothing.
class NotifyPort {
public:
    // Borrowed, and outlives the port.
    explicit NotifyPort(const PropertyRequests& requests) : requests_(requests) {}

    // Empty and with all its room, for the toolkit's next block.
    LV2_Atom_Sequence* sequence();
    // Hands on what the toolkit wrote since. The host's sequence says how much room it has, as the format lays down;
    // null is taken to have none.
    Untold handOn(LV2_Atom_Sequence* host) const;

private:
    // A value and its message take 72 bytes; a block tells each value once at most, and one change of state.
    static constexpr std::size_t roomBytes = 128 + std::size_t{72} * QVMParameterCount;

    const PropertyRequests& requests_;
    alignas(LV2_Atom_Sequence) std::array<std::byte, roomBytes> bytes_{};
};

} // namespace QVM_NAMESPACE
