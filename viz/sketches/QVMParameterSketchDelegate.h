// What the main sketch tells the editor.
#pragma once

#include "link/QVMParameterState.h"

namespace QVM_NAMESPACE {

class QVMParameterSketch;

// Whose the states of a frame are: the sketch's own, which are only drawn, or what the unit holds.
enum class StatesAre : bool { drawnOnly, theUnits };

class QVMParameterSketchDelegate {
public:
    virtual ~QVMParameterSketchDelegate() = default;
    // Once a display frame, on the main thread: all parameters by pid, valid for the call. What the unit holds goes on
    // to whoever has the values.
    virtual StatesAre sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState* states) = 0;
    // The sketches were hidden, or shown again.
    virtual void sketchDidChangeVisibility(QVMParameterSketch&) {}
};

} // namespace QVM_NAMESPACE
