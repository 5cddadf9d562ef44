// What the session has found out about the controls is done to them: dimming, disabling, hiding.
#include "controls/QVMParameterControl.h"
#include "controls/QVMRangeControl.h"
#include "editor/session/SideEffects.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"

namespace QVM_NAMESPACE {

namespace {

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

void QVMGenericUI::applySideEffects(const SideEffects& effects, QVMParameterControl& cause) {
    dimScope(effects, cause);
    if (effects.dimsControls)
        for (QVMParameterControl* control : parameterControls_)
            control->setDimmedDelayPriorityKey(effects.dims(control->parameter()->codesafeName), 0, dimPriority,
                                               cause.parameter()->codesafeName);
    for (const auto& [codename, prevents] : effects.prevented) {
        QVMParameterControl* control = parameterControlWithCodename(codename);
        preventInteraction(control, prevents);
        if (control) preventInteraction(control->range(), prevents);
    }
    for (const auto& [codename, hides] : effects.hidden)
        if (QVMParameterControl* control = parameterControlWithCodename(codename)) control->setHidden(hides);
}

void QVMGenericUI::dimScope(const SideEffects& effects, const QVMParameterControl& cause) {
    switch (effects.scope) {
    case SideEffects::Scope::none:
        break;
    case SideEffects::Scope::editor:
        dimSubviews(clumpsView_, effects.dimsScope);
        dimSubviews(advClumpsView_, effects.dimsScope);
        break;
    case SideEffects::Scope::clump:
        if (auto* clumpView = dynamic_cast<QVMClumpView*>(cause.clumpView()))
            clumpView->setDimmedDelayPriority(effects.dimsScope, 0, clumpPriority);
        break;
    }
}

} // namespace QVM_NAMESPACE
