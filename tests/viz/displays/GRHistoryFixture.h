// A history of the gain reduction with a clock that stands until a test moves it.
#pragma once

#include "viz/displays/QVMGRHistory.h"

#include "viz/analysis/StereoSignals.h"
#include "viz/sketches/RecordingSurface.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {

class GRHistoryFixture : public testing::Test {
protected:
    void SetUp() override {
        now = 100;
        history.init(displayCanvas(150, 60, 2), {-24, 0}, false, true);
    }
    Redraw frame(float dt) {
        now += double{dt};
        return history.prepareForDrawing(dt);
    }
    // Frames during which the audio side keeps on giving the value.
    void hold(float value, int frames, float dt = kFrame) {
        for (int i = 0; i < frames; ++i) {
            history.processAudio(value, true);
            frame(dt);
        }
    }

    static inline double now = 0; // seconds, of the clock that the history asks
    QVMGRHistory history{[] { return now; }};
};

} // namespace QVM_NAMESPACE
