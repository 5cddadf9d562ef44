// The live pictures: where they stand, and what comes back from the unit through the object they share with it.
#include "controls/QVMVerticalSlider.h"
#include "editor/session/ModesWithoutControl.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/NumericMeterReading.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMKeyboardHandler.h"
#include "editor/surface/QVMPowerBox.h"
#include "platform/layer/Transaction.h"
#include "platform/view/Window.h"
#include "viz/sketches/QVMAuxiliarySketch.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <algorithm>
#include <string>
#include <utility>

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
    sketch_->setNumericMeter(numericMeterReading_.get());
    showFocusInSketch();
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
    const std::size_t count = std::min<std::size_t>(vizRef.paramCount, memoizedPValues_.size());
    for (std::size_t pid = 0; pid < count; ++pid) {
        vizRef.parameterStates[pid].value = vizRef.parameterStates[pid].displayValue = memoizedPValues_[pid];
        vizRef.interpTargets[pid] = vizRef.interpValues[pid] = memoizedPValues_[pid];
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
    PBGLSketchAbstract* vizRef = sketch.getVizRef();
    if (delegate_->interfaceWantsVizRef(*this) != vizRef) return delegate_->interfaceHasReadiedVizRef(*this, vizRef);
    const std::size_t count = std::min<std::size_t>(vizRef->paramCount, receivedPValues_.size());
    for (std::size_t pid = 0; pid < count; ++pid) {
        const float value = states[pid].value;
        if (value != receivedPValues_[pid] || !isMemoizedValueHeld(pid))
            updateParameterFromSketchState(static_cast<std::uint32_t>(pid), value);
    }
    ++receivedParamUpdateCount_;
}

void QVMGenericUI::updateParameterFromSketchState(std::uint32_t pid, float value) {
    const QVMParameter* parameter = config_->parameterForPid(pid);
    if (!parameter || pid >= receivedPValues_.size()) return;
    const float was = std::exchange(receivedPValues_[pid], value);
    if (was == nothingReceived) rereadMemoizedValue(*parameter, value);
    // The unit stores less than the editor sends: fewer bits of a frequency, and no value beside the fine step. What it
    // makes of a value that was sent is that value, but not where it has moved it to an end of its range.
    const float memoized = memoizedPValues_[pid];
    const bool isEcho =
        isMemoizedValueHeld(pid) && parameter->heldValueFromHostValue(parameter->reverseCastValue(memoized)) == value;
    const bool isWhole = parameter->unit == QVMUnitIndexed || parameter->unit == QVMUnitSwitch;
    if (isEcho && !isWhole) value = memoized; // what is whole is as the unit made it

    QVMParameterControl* control = parameterControlWithPid(pid);
    if (control) control->setFloatValue(value);
    updateMemoizedValueForParameter(value, pid);
    if (control)
        handleSideEffectsOfUpdatedControl(*control, value, was);
    else
        schedulePresetDirtyCheck();
}

// A value that was sent outside the unit's range, as by the rule that pushes partners apart, is another in the unit,
// which may have held that one all along and then posts nothing new.
bool QVMGenericUI::isMemoizedValueHeld(std::size_t pid) const {
    return heldRanges_[pid].contains(memoizedPValues_[pid]);
}

// What was memoized at the opening is the unit's value inside the parameter's range, and the range links start below
// theirs. The value as the unit holds it then takes that one's place, wherever it was kept: nobody changed anything.
void QVMGenericUI::rereadMemoizedValue(const QVMParameter& parameter, float held) {
    const float read = memoizedPValues_[parameter.pid];
    if (read == held || parameter.shownValueFromHostValue(parameter.reverseCastValue(held)) != read) return;
    memoizedPValues_[parameter.pid] = held;
    for (std::vector<float>& slot : abValues_)
        if (parameter.pid < slot.size() && slot[parameter.pid] == read) slot[parameter.pid] = held;
    keyboard_->undoRedoStack().replaceValue(parameter.pid, read, held);
}

} // namespace QVM_NAMESPACE
