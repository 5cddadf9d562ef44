// Who takes what the editor sets on to the unit. Main thread.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

class EditorValuesDelegate {
public:
    virtual ~EditorValuesDelegate() = default;
    // A value was accepted, changed or not; send it to the unit. In the host domain.
    virtual void interfaceUpdatedParameterKeyedValue(std::uint32_t pid, float hostValue) = 0;
};

} // namespace QVM_NAMESPACE
