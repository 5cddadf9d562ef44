// The common base of every control that edits one parameter's value.
//
// It turns mouse, scroll and key events into a few hook calls with a granularity attached, performs the gestures that
// all controls share (Option-click resets, arrow keys step), and tells its delegate when the user begins, ends or makes
// a change. It decides when a hook runs; how a drag moves the value is the subclass's matter. Main thread only.
//
// y grows upwards in these controls, as it does on their scales.
#pragma once

#include "controls/Animate.h"
#include "controls/QVMEvent.h"
#include "controls/QVMFloatControlDelegate.h"
#include "controls/QVMGranularities.h"
#include "controls/QVMTransientBufferDisplay.h"
#include "description/QVMParameter.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/view/Control.h"

namespace QVM_NAMESPACE {

class QVMFocusBorder;

class QVMFloatControl : public Control {
public:
    // The parameter outlives the control.
    QVMFloatControl(const Rect& frame, const QVMParameter& parameter);
    ~QVMFloatControl() override;

    const QVMParameter& parameter() const { return parameter_; }
    float floatValue() const override { return floatValue_; }
    // Shows a value from the model or the host; sends no action. The base only stores it.
    void setFloatValue(float value) override { floatValue_ = value; }
    // Borrowed; null for none. Whoever sets it clears it before it goes.
    QVMFloatControlDelegate* delegate() const { return delegate_; }
    void setDelegate(QVMFloatControlDelegate* delegate) { delegate_ = delegate; }

    // Keyboard focus: the base shows or hides the focus border.
    bool highlit() const { return highlit_; }
    virtual void setHighlit(bool highlit);
    // Drawn as unimportant, because another parameter makes it so.
    bool dimmed() const { return dimmed_; }
    virtual void setDimmed(bool dimmed) { dimmed_ = dimmed; }
    // A disabled control is faint, ignores mouse and scroll input and tells nobody.
    bool preventInteraction() const { return preventInteraction_; }
    virtual void setPreventInteraction(bool prevent);
    bool isDisabled() const { return preventInteraction_; }
    // Whether the user has ever changed the value here; nothing clears it.
    bool userControlling() const { return userControlling_; }
    bool sweeping() const { return sweeping_; }
    void setSweeping(bool sweeping) { sweeping_ = sweeping; }
    // Codes of the current and the previous event of a gesture.
    std::int32_t granIs() const { return granIs_; }
    std::int32_t granWas() const { return granWas_; }
    const std::shared_ptr<QVMFocusBorder>& highlight() const { return highlight_; }

    // The gesture entry points, also used to replay gestures. Events are in this control's coordinates.
    virtual void handleMouseDownEvent(const QVMEvent& event);
    void handleMouseDraggedEvent(const QVMEvent& event);
    virtual void handleMouseUpEvent(const QVMEvent& event);

    // Goes to the parameter's initial value as a user's change and discards half-typed text.
    virtual void resetToInitialValue();
    // Marks the user as in control and sends the action: how every user's change leaves a control.
    void reportInterfaceInitiatedValueChange();
    void reportDiscreteInteraction();

    // One press of an arrow key (a Key character) as a discrete change; true when handled.
    virtual bool incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity);
    // The signed step of one press, shown domain.
    virtual float incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const;
    // Command is fine and wins over Shift, which is coarse.
    static std::int32_t granularityFromEvent(const Event& event);
    // Keeps a member of a low/high pair on its side of the pair's limit.
    float limitFloat(float value) const;
    // Moves the focus border to `frame` (own coordinates; grown to the usual distance if `inset`). A rounding below 1
    // is a fraction of the height, else points. `position` is where the frame is going, for subclasses that glide.
    virtual void animateHighlightToFramePositionRoundingInset(Rect frame, Point position, double rounding, bool inset);

    // What the context menu's items do.
    void contextMenuResetInitialValue() { resetToInitialValue(); }
    void contextMenuDoStaticConversion();
    void contextMenuRequestedDocumentation();

    // Hooks. Those for gestures and drawing are empty in the base, so what is not overridden is ignored.
    virtual void handleMouseDownWithEventGranularities(const QVMEvent&, const QVMGranularities&) {}
    virtual void handleMouseDraggedWithEventGranularities(const QVMEvent&, const QVMGranularities&) {}
    virtual void handleMouseUpWithEventGranularities(const QVMEvent&, const QVMGranularities&) {}
    // The button is up, whatever keys are held then and whether or not anyone is told: time to let go of what a press
    // holds. Comes before the hook above.
    virtual void pressDidEnd(const QVMEvent&) {}
    virtual void pulse(bool /*forward*/) {}
    // A gesture on another control that moves this one too. The base only logs "unhandled".
    virtual void handleMetaActionWithEvent(std::int32_t code, const QVMEvent* event);
    virtual bool doLimit() const { return true; }
    // The theme changed: take colours and fonts from it again.
    virtual void themeUpdated() {}

    void mouseDown(const Event& event) override; // passed on as well: the editor sees every click on a control
    void mouseDragged(const Event& event) override;
    void mouseUp(const Event& event) override;
    void mouseCancelled(const Event& event) override { mouseUp(event); }
    void scrollWheel(const Event& event) override; // not passed on
    bool acceptsFirstMouse() const override { return true; }

    // Named by the contract and not used in this product. Hooks that no control overrides: a wheel moves nothing, no
    // keys convert a value, nothing is shown over the editor or beside a value. And the scroll sequence, which is kept
    // for the first of them: the value it started from, and the distance since (points, or ten a notch).
    virtual void handleScrollWithEventStartDeltaGranularities(const QVMEvent&, float /*start*/, double /*delta*/,
                                                              const QVMGranularities&) {}
    virtual bool validStaticConversionKeyComboFromEvent(const Event&) const { return false; }
    virtual void handleModalClick(const Event&) {}
    virtual void updateScalarIndicatorWithValueOffsetAnimateClipping(float, float, Animate, bool) {}
    float scrollStartValue() const { return scrollStartValue_; }
    double scrollDelta() const { return scrollDelta_; }

private:
    QVMGranularities nextGranularities(const Event& event);

    const QVMParameter& parameter_;
    float floatValue_ = 0;
    QVMFloatControlDelegate* delegate_ = nullptr;
    std::int32_t granIs_ = QVMGranularityNormal;
    std::int32_t granWas_ = QVMGranularityNormal;
    float scrollStartValue_ = 0;
    double scrollDelta_ = 0;
    bool sweeping_ = false;
    bool highlit_ = false;
    bool dimmed_ = false;
    bool preventInteraction_ = false;
    bool userControlling_ = false;
    std::shared_ptr<QVMFocusBorder> highlight_;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
