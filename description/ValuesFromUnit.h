// Who takes the values that a unit holds, as they come with every frame. Main thread.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

class ValuesFromUnit {
public:
    virtual ~ValuesFromUnit() = default;
    // A parameter's value as the unit holds it, in the shown domain, whether it is another one than before or not.
    // `wasStored`: since the frame before somebody has stored one, which may be the one that there was.
    virtual void receiveIfNew(std::uint32_t pid, float value, bool wasStored) = 0;
    // All of one frame was received.
    virtual void frameWasReceived() = 0;
};

} // namespace QVM_NAMESPACE
