// What shows the value of a parameter's control beside it, as the band between two handles does. Main thread.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

class QVMParameterControl;

class ValueFollower {
public:
    virtual ~ValueFollower() = default;
    // The control shows another value, or the same one again.
    virtual void followMember(const QVMParameterControl& member) = 0;
    // The control is about to go: it is not to be used any more.
    virtual void forgetMember(const QVMParameterControl& member) = 0;
};

} // namespace QVM_NAMESPACE
