// What a parameter control tells the editor, beyond its action.
#pragma once

#include "controls/QVMFloatControlDelegate.h"

namespace QVM_NAMESPACE {

class QVMParameterControl;

// Main thread. Each is what the inner control reported, with the parameter control in its place.
class QVMParameterControlDelegate {
public:
    virtual ~QVMParameterControlDelegate() = default;

    // `event` is null for a discrete change.
    virtual void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                                const Event* event) = 0;
    virtual void parameterControlHasRequestedDocumentation(QVMParameterControl& control) = 0;
    virtual void parameterControlDidTapMeaninglessly(QVMParameterControl& control) = 0;
    virtual void parameterControlWantsToPerformStaticConversion(QVMParameterControl& control, std::int32_t value) = 0;

    // Named by the contract and not used in this product: no inner control asks for it.
    virtual void parameterControlWantsToDisplayModal(QVMParameterControl& control, View& modal) = 0;
};

} // namespace QVM_NAMESPACE
