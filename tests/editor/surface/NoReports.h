// A delegate of controls that nobody needs to hear.
#pragma once

#include "controls/QVMParameterControlDelegate.h"

namespace QVM_NAMESPACE {

class NoReports final : public QVMParameterControlDelegate {
    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl&, QVMInteraction, const Event*) override {}
    void parameterControlHasRequestedDocumentation(QVMParameterControl&) override {}
    void parameterControlDidTapMeaninglessly(QVMParameterControl&) override {}
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t) override {}
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override {}
};

} // namespace QVM_NAMESPACE
