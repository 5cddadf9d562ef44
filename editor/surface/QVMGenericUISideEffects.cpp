// What a new value does to other controls: dimming, disabling, hiding, and what follows half a second later.
#include "controls/QVMRangeControl.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr std::int32_t scopeGlobal = 1, scopeClump = 2;
constexpr unsigned globalPriority = 0, dimPriority = 10, clumpPriority = 5;
constexpr const char* clumpDimKey = "Clump";

void preventInteraction(QVMParameterControl* control, bool prevent) {
    if (control && control->primaryControl()) control->primaryControl()->setPreventInteraction(prevent);
}

// Dims what stands in a view around clumps: the clump views, and the controls displaced from them.
void dimSubviews(const View* container, bool dimmed) {
    if (!container) return;
    for (const auto& subview : container->subviews()) {
        if (auto* clumpView = dynamic_cast<QVMClumpView*>(subview.get()))
            clumpView->setDimmedDelayPriority(dimmed, 0, globalPriority);
        else if (auto* control = dynamic_cast<QVMParameterControl*>(subview.get()))
            control->setDimmedDelayPriorityKey(dimmed, 0, globalPriority, clumpDimKey);
    }
}

} // namespace

void QVMGenericUI::handleSideEffectsOfUpdatedControl(QVMParameterControl& control, float value, float was) {
    const QVMParameter& cause = *control.parameter();
    dimByScope(control, value);
    dimDisableAndHide(cause, value);
    schedulePresetDirtyCheck();
    if (control.range()) control.range()->updateRangeAnimated(Animate::yes);

    if (receivedParamUpdateCount_ == 0 || value != 0 || value == was) return;
    for (const std::vector<std::string>& link : cause.links) {
        const QVMParameterControl* linked = link.empty() ? nullptr : parameterControlWithCodename(link.front());
        if (linked) propagateLinkForPidNotify(linked->parameter()->pid, true);
    }
}

void QVMGenericUI::dimByScope(const QVMParameterControl& control, float value) {
    const bool dimmed = static_cast<std::int32_t>(value) == 0;
    switch (control.parameter()->scope) {
    case scopeGlobal:
        dimSubviews(clumpsView_, dimmed);
        dimSubviews(advClumpsView_, dimmed);
        break;
    case scopeClump:
        if (auto* clumpView = dynamic_cast<QVMClumpView*>(control.clumpView()))
            clumpView->setDimmedDelayPriority(dimmed, 0, clumpPriority);
        break;
    default:
        break;
    }
}

void QVMGenericUI::dimDisableAndHide(const QVMParameter& cause, float value) {
    if (!cause.dims.empty()) {
        const auto named = cause.dims.find(value);
        for (QVMParameterControl* control : parameterControls_) {
            const bool dimmed =
                named != cause.dims.end() && std::find(named->second.begin(), named->second.end(),
                                                       control->parameter()->codesafeName) != named->second.end();
            control->setDimmedDelayPriorityKey(dimmed, 0, dimPriority, cause.codesafeName);
        }
    }
    for (std::size_t index = 0; index < cause.disables.size(); ++index) {
        for (const std::string& codename : cause.disables[index]) {
            QVMParameterControl* control = parameterControlWithCodename(codename);
            const bool prevent = static_cast<float>(index) == value;
            preventInteraction(control, prevent);
            if (control) preventInteraction(control->range(), prevent);
        }
    }
    for (std::size_t index = 0; index < cause.hides.size(); ++index)
        for (const std::string& codename : cause.hides[index])
            if (QVMParameterControl* control = parameterControlWithCodename(codename))
                control->setHidden(static_cast<float>(index) == value);
}

} // namespace QVM_NAMESPACE
