// A lone slider in virtual time.
#pragma once

#include "controls/Gestures.h"
#include "controls/QVMVerticalSlider.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {

inline constexpr Rect kLying = {0, 0, 274, 54}, kUpright = {0, 0, 97, 217}, kMember = {0, 0, 274, 34};

class SliderFixture : public testing::Test {
protected:
    // The point on the slider's axis through its handle.
    static Point at(const QVMVerticalSlider& slider, double position) {
        Point point = slider.readoutBulb()->position();
        (slider.horizontal() ? point.x : point.y) = position;
        return point;
    }
    // Puts the handle where the value belongs and lets it arrive.
    void show(QVMVerticalSlider& slider, float value) {
        slider.setFloatValue(value);
        time.advance(1);
    }
    static float valueAt(const QVMVerticalSlider& slider, double position, int granularity) {
        return slider.floatValueFromPositionValueGranularity(position, granularity);
    }
    VirtualTime time;
};

} // namespace QVM_NAMESPACE
