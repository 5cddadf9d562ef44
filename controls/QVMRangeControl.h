// The band between the two handles of a low/high pair of parameters.
//
// Two of them stand in the same place: one below the handles that draws the common track and the band, and an
// interactive one above them that is only there to be dragged, moving both ends at once. Pointers at the handles reach
// into the band; what is pointed at there is found by hitTest(). Main thread only.
#pragma once

#include "controls/QVMParameterControl.h"

namespace QVM_NAMESPACE {

class QVMRangeSlider;

class QVMRangeControl final : public QVMParameterControl, private ValueFollower {
public:
    // `parameter` is that of either end; it gives the band its place and colour.
    QVMRangeControl(const Rect& frame, const Rect& labelFrame, const QVMParameter* parameter, float initialValue);
    ~QVMRangeControl() override;

    // The parameter's frame, moved to the top of and as high as the band.
    Rect controlFrame() const override;
    // Null when made without a parameter.
    QVMRangeSlider* rangeSlider() const;

    // Handed to the slider as well.
    bool interactive() const { return interactive_; }
    void setInteractive(bool interactive);
    // The ends, borrowed; a control that goes away leaves its place by itself. The band follows their values.
    QVMParameterControl* low() const { return low_; }
    void setLow(QVMParameterControl* control);
    QVMParameterControl* high() const { return high_; }
    void setHigh(QVMParameterControl* control);

    // Shows the ends' present values, gliding for 0.1 s or at once.
    void updateRangeAnimated(Animate animate);

    // A click on a handle's pointer belongs to that end's slider; any other moves both.
    View* hitTest(Point pointInSuperview) override;
    // Passes the gesture to both ends, the high one first. A reset is a whole gesture of each.
    void floatControlDidPerformMetaActionWithEvent(QVMFloatControl& control, std::int32_t code,
                                                   const QVMEvent* event) override;

    // Named by the contract and not used in this product: a flag that is only kept, here and in the slider.
    bool pairing() const { return pairing_; }
    void setPairing(bool pairing);

protected:
    void sliderUpdated() override {} // the ends report their values themselves

private:
    void attach(QVMParameterControl*& member, QVMParameterControl* control);
    // ValueFollower
    void followMember(const QVMParameterControl& member) override;
    void forgetMember(const QVMParameterControl& member) override;

    bool pairing_ = false;
    bool interactive_ = false;
    QVMParameterControl* low_ = nullptr;
    QVMParameterControl* high_ = nullptr;
};

} // namespace QVM_NAMESPACE
