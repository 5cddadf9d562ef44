// The marching dashes around the control that has keyboard focus.
//
// The dash pattern is stretched so that a whole number of periods fits the outline, which leaves no short dash where it
// closes; marching by whole periods then repeats without a jump. Hidden (opacity 0) it does not march. Main thread
// only.
#pragma once

#include "platform/layer/ShapeLayer.h"

namespace QVM_NAMESPACE {

class QVMFocusBorder : public ShapeLayer {
public:
    // The axis is that of the view it is drawn around.
    explicit QVMFocusBorder(YAxis axis = YAxis::up);

    // Lays a rounded outline of the frame's size with corners of `rounding` points; the frame is in the superlayer's
    // coordinates. The dashes of a visible border are fitted anew when the outline's length changes.
    void updateWithFrameRounding(const Rect& frame, double rounding);
    double rounding() const { return rounding_; }

    // The owner's colour; what is stroked is this at alpha 0.7.
    Color strokeNSColor() const { return strokeNSColor_; }
    void setStrokeNSColor(Color color);

    // Any opacity above 0 starts the marching, 0 stops it.
    void setOpacity(double opacity) override;
    // Fits the dashes to the outline, then starts or stops the marching.
    void animate(bool on);

private:
    double outlineLength() const;

    double rounding_ = 0;
    Color strokeNSColor_;
};

} // namespace QVM_NAMESPACE
