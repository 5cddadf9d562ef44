// The piece an editor is built from: one parameter with the control that edits it.
//
// It chooses and places the inner control, carries values in and out, takes typed-in text, hands clicks beside the
// inner control to it, and remembers who holds it dimmed. It is the inner control's delegate and reports everything to
// its own. Every value that the user makes leaves as this control's action. Main thread only.
#pragma once

#include "controls/ControlClasses.h"
#include "controls/FocusableControl.h"
#include "controls/QVMParameterControlDelegate.h"
#include "controls/ValueFollower.h"
#include "description/ParameterDisplay.h"
#include "description/ValuesFromUser.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class QVMRangeControl;

class QVMParameterControl : public FocusableControl, public QVMFloatControlDelegate, public ParameterDisplay {
public:
    // The parameter outlives the control; null stands for one that has nothing in it and so no inner control. Labels
    // are drawn by the editor: their frame is not used here.
    QVMParameterControl(const Rect& frame, const Rect& labelFrame, const QVMParameter* parameter, float initialValue);
    // As above, with an inner control of a class of the caller's choice (null for none) at a place of its own (empty:
    // it fills the bounds).
    QVMParameterControl(const Rect& frame, const QVMParameter* parameter, float initialValue,
                        QVMFloatControlClass primaryClass, const Rect& controlFrame);
    ~QVMParameterControl() override;

    // Never null.
    const QVMParameter* parameter() const { return parameter_; }
    // Null when the parameter's control type has no class.
    QVMFloatControl* primaryControl() const { return primaryControl_; }
    // Where the inner control stands, in own coordinates; empty: it fills the bounds.
    virtual Rect controlFrame() const;

    float floatValue() const override;
    // Shows a value from the model or the host, normalised at the fine step; sends nothing.
    void setFloatValue(float value) override;
    // Pins what is shown, whatever is pushed in; applied with the next value.
    const std::optional<float>& immutableFloatValue() const { return immutableFloatValue_; }
    void setImmutableFloatValue(std::optional<float> value) { immutableFloatValue_ = value; }
    // From now on it is the action to bring the parameter's value there. The target outlives the control.
    void setTarget(ValuesFromUser& target);
    // Sends the action.
    void reportValueChange();
    // Sets a value as if the user had made it: action, discrete interaction, and no half-typed text left.
    void setUserInitiatedValueInternally(float value);
    // Takes typed-in text: a decimal number with point or comma, "k" behind it for thousands. No number is 0.
    void setStringValue(const std::string& text) override;
    // Whether and how text shows while it is being typed; only a focused control shows any.
    bool acceptsTransientStringBuffers() const override;
    void setTransientStringValue(const std::string& text) override;
    void clearTransientStringValue() override;

    // Shows keyboard focus; losing it discards half-typed text.
    void setFocused(bool focused) override;
    std::string_view codename() const override { return parameter_->codesafeName; }
    const QVMClump* clump() const override { return parameter_->clump; }
    bool incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) override;
    // Flips a two-state parameter; false for any other.
    bool toggleBooleanControl() override;
    // Accepts a tap on a control with a tap setting; a second one within 5 s sets the value to 0.
    bool hasTap() const override { return !parameter_->tap.empty(); }
    bool tap() override;

    // Holds the control dimmed under `key`, or lets go; it is dimmed while anyone holds it. The delay (seconds) is not
    // used and the priority only recorded.
    void setDimmedDelayPriorityKey(bool dimmed, double delay, unsigned priority, const std::string& key);
    bool isDimmed() const { return !dimHolds_.empty(); }
    const std::map<std::string, unsigned>& dimHolds() const { return dimHolds_; }
    // Switches the tooltip (the parameter's name) on or off.
    void toggleTooltip(bool on);

    // All borrowed, null for none: the editor, the view of the clump, and the range that the parameter belongs to.
    QVMParameterControlDelegate* delegate() const { return delegate_; }
    void setDelegate(QVMParameterControlDelegate* delegate) { delegate_ = delegate; }
    View* clumpView() const { return clumpView_; }
    void setClumpView(View* clumpView) { clumpView_ = clumpView; }
    QVMRangeControl* range() const { return range_; }
    void setRange(QVMRangeControl* range) { range_ = range; }
    // Borrowed; who follows takes itself off before it goes.
    void addFollower(ValueFollower& follower) { followers_.push_back(&follower); }
    void removeFollower(ValueFollower& follower) { std::erase(followers_, &follower); }
    bool handlingOutsideClick() const { return handlingOutsideClick_; }
    double lastTap() const { return lastTap_; } // seconds on the run loop's clock, counted from a time long before it

    // Clicks that do not land on the inner control, and those that it passes on.
    void mouseDown(const Event& event) override;
    void mouseDragged(const Event& event) override;
    void mouseUp(const Event& event) override;
    void mouseCancelled(const Event& event) override { mouseUp(event); }

    // Reports of the inner control.
    void floatControlInteractionDidChangeToEvent(QVMFloatControl& control, QVMInteraction state,
                                                 const Event* event) override;
    void floatControlWantsToPerformStaticConversion(QVMFloatControl& control, std::int32_t value) override;
    void floatControlHasRequestedDocumentation(QVMFloatControl& control) override;
    void floatControlDidPerformMetaActionWithEvent(QVMFloatControl&, std::int32_t, const QVMEvent*) override {}
    void floatControlDidTapMeaninglessly(QVMFloatControl& control) override;

    // Named by the contract and not used in this product. The class that the inner control of a type would have, null
    // for none (the master switch has one of its own, whatever the type); what is handed to the inner control and means
    // nothing to it; and what no inner control reports.
    QVMFloatControlClass classForControlType(std::int32_t controlType) const;
    void handleModalClick(const Event& event);
    void updateScalarIndicatorWithValueOffsetAnimateClipping(float value, float offset, Animate animate, bool clipping);
    void floatControlWantsToChangeMultipleValuesMotion(QVMFloatControl&, const std::map<std::uint32_t, float>&,
                                                       double) override {}
    void floatControlWantsToDisplayModal(QVMFloatControl& control, View& modal) override;

protected:
    // The action of the inner control.
    virtual void sliderUpdated() { reportValueChange(); }

private:
    void themeUpdated();
    void tellFollowers();
    // Whether a press went to the inner control first, which may reach beyond its frame, and was passed on from there.
    bool primaryControlHasPress() const;

    const QVMParameter* parameter_;             // never null
    QVMFloatControl* primaryControl_ = nullptr; // a subview
    std::optional<float> immutableFloatValue_;
    std::map<std::string, unsigned> dimHolds_; // priority by key
    bool handlingOutsideClick_ = false;
    double lastTap_ = 0;
    QVMParameterControlDelegate* delegate_ = nullptr;
    View* clumpView_ = nullptr;
    QVMRangeControl* range_ = nullptr;
    std::vector<ValueFollower*> followers_;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
