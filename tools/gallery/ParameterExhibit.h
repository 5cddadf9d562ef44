// A parameter control, or the two of a range with their band, in one state.
#pragma once

#include "controls/QVMRangeControl.h"
#include "tools/gallery/Exhibit.h"
#include "tools/gallery/GalleryParameter.h"

#include <vector>

namespace QVM_NAMESPACE {

class ParameterExhibit final : public Exhibit, private QVMParameterControlDelegate {
public:
    // Null when the control has no such state. The parameters outlive the exhibit; there is a range if `high` is one.
    static std::unique_ptr<Exhibit> make(const ExhibitRow& row, ExhibitState state, const Rect& frame);
    ParameterExhibit(const Rect& frame, const GalleryParameter& parameter, const GalleryParameter* high);

    QVMParameterControl* parameterControl() override { return control_; }

private:
    QVMParameterControl& addControl(const Rect& frame, const GalleryParameter& parameter);
    void addBand();
    bool show(ExhibitState state);
    std::vector<QVMParameterControl*> parts() const;
    void showHovered();
    void showDimmed();
    void showDisabled();
    void showExtreme(ExhibitState state);

    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                        const Event* event) override;
    void parameterControlHasRequestedDocumentation(QVMParameterControl&) override {}
    void parameterControlDidTapMeaninglessly(QVMParameterControl&) override {}
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t) override {}
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override {}

    QVMParameterControl* control_ = nullptr;             // the low one of a range
    QVMParameterControl* high_ = nullptr;                // of a range
    QVMRangeControl *band_ = nullptr, *track_ = nullptr; // of a range: the one that answers and the one that draws
};

} // namespace QVM_NAMESPACE
