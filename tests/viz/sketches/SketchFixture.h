// A drawing object with settings, as a layer would make it.
#pragma once

#include "ReferenceSettings.h"
#include "description/Description.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <memory>

namespace QVM_NAMESPACE {

inline PBGLCanvas curveCanvas(float width = 54, float height = 62, float scale = 2) {
    return {PBSketchResponseCurve, PB_Sketches[0], {}, width, height, scale};
}

// The meter as it stands in the editor, in points.
inline PBGLCanvas meterCanvas(float scale = 2) {
    return {PBSketchLevelMeter, PB_Sketches[1], PB_Parameters[pidOutputGain], 97, 217, scale};
}

// A response curve's object over `points` frequencies at scale 1, all parameters at 0.
inline std::unique_ptr<QVM0015GLSketch> makeCurve(int points) {
    auto sketch = std::make_unique<QVM0015GLSketch>();
    sketch->init(curveCanvas(static_cast<float>(points), 62, 1), 44100, 512);
    sketch->sizeStates(QVMParameterCount);
    return sketch;
}

// Raw and display values alike.
inline void setSettings(QVM0015GLSketch& sketch, const reference::Settings& settings) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        sketch.standAt(pid, static_cast<float>(settings[pid]));
}

inline void calculate(QVM0015GLSketch& sketch) {
    sketch.prepareForDrawing(sketch.responseDisplay().canvas(), 1.0f / 60);
}

} // namespace QVM_NAMESPACE
