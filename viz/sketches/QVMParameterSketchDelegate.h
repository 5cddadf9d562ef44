// What the main sketch tells the editor.
#pragma once

#include "link/QVMParameterState.h"

namespace QVM_NAMESPACE {

class QVMParameterSketch;

class QVMParameterSketchDelegate {
public:
    virtual ~QVMParameterSketchDelegate() = default;
    // Once a display frame, on the main thread: all parameters by pid, valid for the call.
    virtual void sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState* states) = 0;
    // The sketches were hidden, or shown again.
    virtual void sketchDidChangeVisibility(QVMParameterSketch&) {}
};

} // namespace QVM_NAMESPACE
