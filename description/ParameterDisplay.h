// What shows the value of one parameter to the user. Main thread.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

class ParameterDisplay {
public:
    virtual ~ParameterDisplay() = default;
    // Shows a value, in the shown domain; nothing is sent back.
    virtual void setFloatValue(float value) = 0;
};

} // namespace QVM_NAMESPACE
