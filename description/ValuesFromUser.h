// Who takes the values that the user makes with the controls of parameters. Main thread.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

class ValuesFromUser {
public:
    virtual ~ValuesFromUser() = default;
    // The user set the parameter's control to a value, in the shown domain.
    virtual void sendFromControl(std::uint32_t pid, float value) = 0;
};

} // namespace QVM_NAMESPACE
