// Lone toggles in virtual time.
#pragma once

#include "controls/Gestures.h"
#include "controls/QVMToggleControl.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {

inline constexpr Rect kToggleFrame = {0, 0, 160, 26};

// A switch: two segments, 80 points each.
class ToggleSwitch : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(pidFilterListenLow);
    QVMToggleControl control{kToggleFrame, parameter};
    GestureRecord record{control};
};

// Four segments, 40 points each.
class ToggleRow : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(pidTiltLoudnessMode);
    QVMToggleControl control{kToggleFrame, parameter};
    GestureRecord record{control};

    std::string label(std::size_t i) const { return control.values()[i]->label()->string().string(); }
};

} // namespace QVM_NAMESPACE
