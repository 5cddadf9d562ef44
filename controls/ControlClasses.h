// Which class of control edits which type of parameter: a table of factories. A class that lives above this folder is
// named by who makes the control.
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

// The class for a control type, or null for a type that has none here.
QVMFloatControlClass controlClassForType(std::int32_t controlType);
// The class of the plug-in's power switch.
QVMFloatControlClass masterControlClass();

} // namespace QVM_NAMESPACE
