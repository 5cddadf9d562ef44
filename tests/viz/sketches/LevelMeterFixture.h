// A level meter over an upright track.
#pragma once

#include "SketchFixture.h"

#include "description/ValueMapping.h"
#include "viz/sketches/QVMLevelMeter.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {

inline constexpr QVMFloat32Range kRange = {-96, 12};

class QVMLevelMeterTest : public testing::Test {
protected:
    float levelOf(const std::vector<float>& samples) {
        meter.processAudio(samples.data(), static_cast<unsigned>(samples.size()), kRange, 0);
        return meter.channel(0).level;
    }
    // The part of a step that is done after so many frames.
    double doneAfter(int frames, float dt, float from, float to) {
        QVMLevelMeter::Channel& c = meter.channel(0);
        c.display = from;
        c.level = to;
        for (int i = 0; i < frames; ++i)
            meter.slew(dt, 0);
        return (c.display - from) / (to - from);
    }
    Redraw frame(float dt = 1.0f / 60) { return meter.prepareForDrawing(dt, ParameterFloatValueToPercentage, 7); }

    QVMLevelMeter meter{meterCanvas(), 2};
};

} // namespace QVM_NAMESPACE
