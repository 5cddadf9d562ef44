// Which class of control edits which type of parameter: a table of factories, so that a class that lives above this
// folder can take its place in it.
#pragma once

#include "controls/QVMFloatControl.h"

#include <memory>

namespace QVM_NAMESPACE {

// Makes a control of one class in `frame` for a parameter that outlives it.
using QVMFloatControlClass = std::unique_ptr<QVMFloatControl> (*)(const Rect& frame, const QVMParameter& parameter);

template <class ControlType>
std::unique_ptr<QVMFloatControl> makeFloatControl(const Rect& frame, const QVMParameter& parameter) {
    return std::make_unique<ControlType>(frame, parameter);
}

// The class for a control type, or null for a type that has none. Main thread.
QVMFloatControlClass controlClassForType(std::int32_t controlType);
// The class of the plug-in's power switch. Main thread.
QVMFloatControlClass masterControlClass();
// Fills the place of a type whose class is defined elsewhere; types beyond the table are ignored. Main thread.
void registerControlClass(std::int32_t controlType, QVMFloatControlClass controlClass);

} // namespace QVM_NAMESPACE
