// One parameter as the audio unit and the editor share it.
#pragma once

#include "link/SharedWord.h"

namespace QVM_NAMESPACE {

// All values are in the shown domain. The audio unit writes `value` and `auxValue` and sets `interpolating`; the main
// thread writes `displayValue` and clears `interpolating` when a glide is over.
struct QVMParameterState {
    SharedWord<float> value;        // as the audio unit holds it
    SharedWord<float> auxValue;     // carried along, not read by the editor
    SharedWord<float> displayValue; // the value to draw with
    SharedWord<bool> interpolating; // a glide to `value` is pending
};
static_assert(sizeof(QVMParameterState) == 16);

} // namespace QVM_NAMESPACE
