// The live pictures: where they stand, and what comes back from the unit through the object they share with it.
#include "controls/QVMVerticalSlider.h"
#include "editor/session/ModesWithoutControl.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/NumericMeterReading.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "platform/layer/Transaction.h"
#include "platform/view/Window.h"
#include "viz/sketches/QVMAuxiliarySketch.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <algorithm>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

constexpr double appearanceSeconds = 1;
constexpr std::size_t mainSketch = 0; // in PB_Sketches; the others are auxiliary

} // namespace

void QVMGenericUI::addSketch() {
    if (sketch_ || !powerBox_) return;
    SketchSettings settings;
    if (window()) settings.scale = static_cast<float>(window()->backingScaleFactor());
    if (delegate_) delegate_->interfaceWantsSampleRateMaxFrames(*this, settings.sampleRate, settings.maxFrames);
    addSketchWithFrameAppendView(EditorLayoutForAltFrame(altFrame_).sketchPlace, *powerBox_, settings);
    for (std::size_t i = mainSketch + 1; i < PB_Sketches.size(); ++i)
        addAuxiliarySketch(PB_Sketches[i], settings);
    describeMeters();
}

void QVMGenericUI::addSketchWithFrameAppendView(const Rect& frame, View& appendView, const SketchSettings& settings) {
    auto made = std::make_unique<QVMParameterSketch>(frame, *config_, static_cast<float>(settings.sampleRate),
                                                     settings.maxFrames, settings.scale, chanIn_, chanOut_);
    sketch_ = made.get();
    sketch_->setDelegate(this);
    session_.values().setComesBack();
    sketch_->setNumericMeter(numericMeterReading_.get());
    sketch_->setFocusedPid(focusedPid());
    showMemoizedValues(*sketch_->getVizRef());
    sketch_->layer()->setMasksToBounds(true); // lines end at the rounded corners
    layOutSketch();
    sketch_->setAlpha(0); // it becomes visible in its window
    const Transaction appearing = Transaction::animated(appearanceSeconds);
    appendView.addSubview(std::move(made));
}

// A further sketch stands in the track of its parameter's slider, below the handle.
void QVMGenericUI::addAuxiliarySketch(const PBSketch& description, const SketchSettings& settings) {
    QVMParameterControl* control = parameterControlWithPid(static_cast<std::uint32_t>(description.pid));
    auto* slider = control ? dynamic_cast<QVMVerticalSlider*>(control->primaryControl()) : nullptr;
    if (!slider) return;
    sketch_->addAuxiliarySketch(slider->addInTrack(std::make_unique<QVMAuxiliarySketch>(
        slider->bounds(), static_cast<float>(settings.sampleRate), settings.maxFrames, description,
        sketch_->getVizRef()->paramCount, sketch_->getVizRef(), settings.scale, chanIn_, chanOut_)));
}

// So that the first glide starts from what the controls show.
void QVMGenericUI::showMemoizedValues(PBGLSketchAbstract& vizRef) const {
    const std::vector<float>& values = session_.values().memoized();
    const std::size_t count = std::min<std::size_t>(vizRef.paramCount, values.size());
    for (std::size_t pid = 0; pid < count; ++pid) {
        vizRef.parameterStates[pid].value = vizRef.parameterStates[pid].displayValue = values[pid];
        vizRef.interpTargets[pid] = vizRef.interpValues[pid] = values[pid];
    }
}

bool QVMGenericUI::areSketchesHidden() const {
    return sketch_ && !sketch_->vizVisible();
}

void QVMGenericUI::toggleSketchVisibility() {
    if (sketch_) sketch_->toggleVisible();
}

// Something stays where the curve was, so that who hid it by a click finds it again.
void QVMGenericUI::sketchDidChangeVisibility(QVMParameterSketch& sketch) {
    powerBox_->setShowsHiddenSign(areSketchesHidden());
    sketch.setToolTip(areSketchesHidden() ? "Show Curve and Meter" : "");
    describeMeters();
}

// A meter stands in the track of a slider. Its mode, which has no control, is told with the slider's name.
void QVMGenericUI::describeMeters() {
    if (!sketch_) return;
    for (const QVMAuxiliarySketch* auxiliary : sketch_->auxiliarySketches()) {
        const std::int32_t pid = auxiliary->glSketch()->sketch().pid;
        QVMParameterControl* control = parameterControlWithPid(static_cast<std::uint32_t>(pid));
        if (!control) continue;
        std::string text = control->parameter()->name;
        for (const QVMParameter* mode : modesWithoutControl(control->parameter()->clump))
            text += "\n" + mode->name + ": " + mode->stringForValue(getMemoizedPValueDirectly(mode->pid));
        if (areSketchesHidden()) text += "\nThe meter is hidden";
        control->setToolTip(std::move(text));
    }
}

void QVMGenericUI::sketchScaleDidChange() {
    if (!sketch_) return;
    sketch_->viewDidChangeBackingProperties();
    for (QVMAuxiliarySketch* auxiliary : sketch_->auxiliarySketches())
        auxiliary->viewDidChangeBackingProperties();
}

void QVMGenericUI::sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState* states) {
    if (!delegate_) return;
    SharedState* shared = &sketch.getVizRef()->sharedState;
    if (delegate_->interfaceWantsVizRef(*this) != shared) return delegate_->interfaceHasReadiedVizRef(*this, shared);
    const std::size_t count = std::min<std::size_t>(shared->glide.paramCount, session_.values().count());
    for (std::uint32_t pid = 0; pid < count; ++pid)
        session_.values().receiveIfNew(pid, states[pid].value);
    session_.values().frameWasReceived();
}

} // namespace QVM_NAMESPACE
