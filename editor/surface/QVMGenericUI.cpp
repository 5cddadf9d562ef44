#include "editor/surface/QVMGenericUI.h"

#include "editor/surface/NumericMeterReading.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double backingScaleDelay = 0.35, sketchDelay = 0.5; // seconds

} // namespace

QVMGenericUI::QVMGenericUI(const Rect& frame, std::shared_ptr<QVMConfig> config, std::uint32_t chanIn,
                           std::uint32_t chanOut)
    : View(frame), config_(std::move(config)), chanIn_(chanIn), chanOut_(chanOut), session_(*config_, *this),
      focus_(*config_, session_.values(), *this, *this), keyboard_(session_, focus_, *this),
      interactionStates_(session_.values().count(), QVMInteractionDiscrete) {
    layer()->setName("editor");
    config_->chanIn = chanIn_;
    config_->chanOut = chanOut_;
    advFlashLim_.setTrailing(false);
}

// Subviews go here, not in the base's destructor: the controls report to this object while they live.
QVMGenericUI::~QVMGenericUI() {
    observations_.clear();
    while (!subviews().empty())
        subviews().back()->removeFromSuperview();
}

void QVMGenericUI::completeInterfaceSetup() {
    if (config_->presets) {
        config_->presets->chanIn = chanIn_;
        config_->presets->chanOut = chanOut_;
    }
    config_->enumerateParametersWithBlock([this](QVMParameter& parameter, QVMClump&) {
        parameter.chanIn = chanIn_;
        parameter.chanOut = chanOut_;
    });
    setConfig(config_);
    addPresetDrawer();
    addFrameButton();
    syncUndoRedoButtonsToStackState();
    potentiallySaveToUndoRedoStack();
    applyChannelLayoutRules();
    observePreferences();
    addHudAndNumericMeter();
    sketchCall_.schedule(sketchDelay, [this] { addSketch(); });
    backingScaleCall_.schedule(backingScaleDelay, [this] { viewDidChangeBackingProperties(); });
}

void QVMGenericUI::setConfig(std::shared_ptr<QVMConfig> config) {
    config_ = std::move(config);
    addPowerBox();
    addClumpsView();
    addPresetBar();
    addAndRegisterParameterControls();
    resetABState(session_.values().memoized());
}

void QVMGenericUI::applyChannelLayoutRules() {
    const QVMChannelPair channels = {chanIn_, chanOut_};
    config_->enumerateParametersWithBlock([this, channels](QVMParameter& parameter, QVMClump&) {
        for (const QVMChannelLayoutRule& rule : parameter.channelLayoutRules) {
            if (rule.map != channels) continue;
            QVMParameterControl* control = parameterControlWithPid(parameter.pid);
            if (!control) continue;
            constexpr unsigned priority = 1000;
            if (rule.disabled) {
                control->setDimmedDelayPriorityKey(true, 0, priority, "Absolute");
                if (control->primaryControl()) control->primaryControl()->setPreventInteraction(true);
            }
            if (rule.immutable) control->setImmutableFloatValue(rule.immutable);
        }
    });
}

QVMParameterControl* QVMGenericUI::parameterControlWithPid(std::uint32_t pid) const {
    const auto found = std::find_if(parameterControls_.begin(), parameterControls_.end(),
                                    [pid](const auto* control) { return control->parameter()->pid == pid; });
    return found == parameterControls_.end() ? nullptr : *found;
}

QVMParameterControl* QVMGenericUI::parameterControlWithCodename(std::string_view codesafeName) const {
    const auto found = std::find_if(parameterControls_.begin(), parameterControls_.end(), [&](const auto* control) {
        return control->parameter()->codesafeName == codesafeName;
    });
    return found == parameterControls_.end() ? nullptr : *found;
}

QVMClumpView* QVMGenericUI::clumpViewWithCodename(std::string_view codesafeName) const {
    for (const View* container : {static_cast<View*>(clumpsView_), static_cast<View*>(advClumpsView_)}) {
        if (!container) continue;
        for (const auto& subview : container->subviews()) {
            auto* clumpView = dynamic_cast<QVMClumpView*>(subview.get());
            if (clumpView && clumpView->clump().codesafeName == codesafeName) return clumpView;
        }
    }
    return masterClump_ && masterClump_->clump().codesafeName == codesafeName ? masterClump_ : nullptr;
}

} // namespace QVM_NAMESPACE
