// What the description's rules and the session's decisions do to the controls: dimming, disabling, hiding.
#include "controls/QVMRangeControl.h"
#include "editor/session/SideEffects.h"
#include "editor/surface/ParameterControls.h"
#include "editor/surface/QVMClumpView.h"

namespace QVM_NAMESPACE {

namespace {

constexpr unsigned globalPriority = 0, clumpPriority = 5, dimPriority = 10, absolutePriority = 1000;
constexpr const char* clumpDimKey = "Clump";
constexpr const char* absoluteDimKey = "Absolute";

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

void dimScope(const SideEffects& effects, const QVMParameterControl& cause, const std::vector<const View*>& areas) {
    switch (effects.scope) {
    case SideEffects::Scope::none:
        break;
    case SideEffects::Scope::editor:
        for (const View* area : areas)
            dimSubviews(area, effects.dimsScope);
        break;
    case SideEffects::Scope::clump:
        if (auto* clumpView = dynamic_cast<QVMClumpView*>(cause.clumpView()))
            clumpView->setDimmedDelayPriority(effects.dimsScope, 0, clumpPriority);
        break;
    }
}

} // namespace

void ParameterControls::apply(const SideEffects& effects, const QVMParameterControl& cause,
                              const std::vector<const View*>& areas) {
    dimScope(effects, cause, areas);
    if (effects.dimsControls)
        for (QVMParameterControl* control : all_)
            control->setDimmedDelayPriorityKey(effects.dims(control->parameter()->codesafeName), 0, dimPriority,
                                               cause.parameter()->codesafeName);
    for (const auto& [codename, prevents] : effects.prevented) {
        QVMParameterControl* control = withCodename(codename);
        preventInteraction(control, prevents);
        if (control) preventInteraction(control->range(), prevents);
    }
    for (const auto& [codename, hides] : effects.hidden)
        if (QVMParameterControl* control = withCodename(codename)) control->setHidden(hides);
}

void ParameterControls::applyChannelLayoutRules(const QVMConfig& config, QVMChannelPair channels) {
    config.enumerateParametersWithBlock([this, channels](QVMParameter& parameter, QVMClump&) {
        for (const QVMChannelLayoutRule& rule : parameter.channelLayoutRules) {
            if (rule.map != channels) continue;
            QVMParameterControl* control = withPid(parameter.pid);
            if (!control) continue;
            if (rule.disabled) {
                control->setDimmedDelayPriorityKey(true, 0, absolutePriority, absoluteDimKey);
                preventInteraction(control, true);
            }
            if (rule.immutable) control->setImmutableFloatValue(rule.immutable);
        }
    });
}

} // namespace QVM_NAMESPACE
