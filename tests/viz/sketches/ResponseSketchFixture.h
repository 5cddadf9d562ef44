// A drawing object that shows the response of given settings.
#pragma once

#include "SketchFixture.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class ResponseSketchFixture : public testing::Test {
protected:
    std::vector<float> responseOf(const reference::Settings& values) {
        setSettings(*sketch, values);
        calculate(*sketch);
        return {sketch->response().begin(), sketch->response().end()};
    }
    const QVMFreqResp& display() const { return sketch->responseDisplay(); }
    // The initial settings have both filters off.
    void expectOnlyOffAt(double off, double beside, ParameterID range, ParameterID slope, ParameterID resonance) {
        settings[pidTiltGain] = 3;
        const std::vector<float> without = responseOf(settings);
        settings[range] = off;
        settings[resonance] = 18;
        settings[slope] = 48;
        EXPECT_EQ(responseOf(settings), without);
        settings[range] = beside;
        EXPECT_NE(responseOf(settings), without);
    }

    std::unique_ptr<QVM0015GLSketch> sketch = makeCurve(108);
    reference::Settings settings = initialSettings();
};

} // namespace QVM_NAMESPACE
