// A cycle control for a parameter of two states: a switch, drawn in the style its parameter asks for. Main thread only.
#pragma once

#include "controls/QVMCycleControl.h"

namespace QVM_NAMESPACE {

class QVMBooleanControl : public QVMCycleControl {
public:
    QVMBooleanControl(const Rect& frame, const QVMParameter& parameter);

    // A switch has nothing to step through.
    bool includeCrementers() const override { return false; }

protected:
    Look lookForValue(float value) const override;
    // The cycle control's size times the parameter's scale, in whole points.
    double iconSize() const override;
};

} // namespace QVM_NAMESPACE
