// A link between a unit's parameters and the drawing object of an editor, with no unit and no editor.
#pragma once

#include "unit/MeterDrawing.h"
#include "unit/UnitParameters.h"
#include "unit/VizLink.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {

constexpr double blockSeconds = 512.0 / 48000;

class VizLinkFixture : public testing::Test {
protected:
    float posted(std::uint32_t pid) const { return drawing->parameterStates()[pid].value; }
    float level(int channel) const { return drawing->levelMeter()->channel(channel).level; }
    void endGlide() {
        for (int i = 0; i < 8; ++i)
            drawing->performInterp();
    }
    void set(std::uint32_t pid, float value) {
        ASSERT_EQ(parameters.set(pid, value), noErr);
        link.parameterChanged(pid);
    }

    UnitParameters parameters;
    VizLink link{parameters};
    std::unique_ptr<QVM0015GLSketch> drawing = makeDrawing();
};

} // namespace QVM_NAMESPACE
