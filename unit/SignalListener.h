// Who hears the signal as it goes through the unit, in stretches.
#pragma once

#include "link/AudioTap.h"

#include <span>

namespace QVM_NAMESPACE {

class SignalListener {
public:
    virtual ~SignalListener() = default;
    // Render thread: the next frames, what went in beside what comes out. Must not wait or allocate.
    virtual void hear(std::span<const TapFrame> frames) = 0;
};

} // namespace QVM_NAMESPACE
