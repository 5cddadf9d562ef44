// A drawing object with a level meter and room for every parameter, as an editor of this product hands it to the unit.
#pragma once

#include "viz/sketches/QVM0015GLSketch.h"
#include "viz/sketches/SketchFixture.h"

#include <memory>

namespace QVM_NAMESPACE {

inline std::unique_ptr<QVM0015GLSketch> makeDrawing() {
    auto drawing = std::make_unique<QVM0015GLSketch>();
    drawing->init(meterCanvas(1), 44100, 512);
    drawing->sizeStates(QVMParameterCount);
    return drawing;
}

} // namespace QVM_NAMESPACE
