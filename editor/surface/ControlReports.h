// What the controls report, as far as it is more than a value: gestures for the editor's delegate, the focus and the
// history, and what the user asks for beside a value. Main thread only.
#pragma once

#include "controls/QVMParameterControlDelegate.h"

#include <cstdint>
#include <vector>

namespace QVM_NAMESPACE {

class QVMGenericUI;

class ControlReports final : public QVMParameterControlDelegate {
public:
    // The editor is borrowed; nothing is asked of it here. `count` is how many parameters there are.
    ControlReports(QVMGenericUI& ui, std::size_t count) : ui_(ui), states_(count, QVMInteractionDiscrete) {}

    // What the parameter's control reported last; discrete for one that has not, or does not exist.
    QVMInteraction state(std::uint32_t pid) const {
        return pid < states_.size() ? states_[pid] : QVMInteractionDiscrete;
    }

    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                        const Event* event) override;
    // The manual has an anchor for each parameter.
    void parameterControlHasRequestedDocumentation(QVMParameterControl& control) override;
    // A press on the preset's name opens and closes the list.
    void parameterControlDidTapMeaninglessly(QVMParameterControl& control) override;

    // Nothing in this product.
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t) override {}
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override {}

private:
    QVMGenericUI& ui_;
    std::vector<QVMInteraction> states_; // by pid
};

} // namespace QVM_NAMESPACE
