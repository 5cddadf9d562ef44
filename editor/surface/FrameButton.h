// The small button in the corner of the response curve that leads to the compact form and back.
//
// It shows while the pointer is near, so that nothing covers the curve otherwise. It acts on the press, as the other
// buttons do. Main thread only.
#pragma once

#include "platform/runloop/NotificationCenter.h"
#include "platform/view/Control.h"

#include <memory>

namespace QVM_NAMESPACE {

class ShapeLayer;

class FrameButton final : public Control {
public:
    static constexpr Size size = {18, 18}; // points
    // Points between it and the edges of a curve that is the whole editor.
    static constexpr double inset = 6;
    // In the corner of the curve.
    static Rect placeIn(const Rect& curve, double distance) {
        return {curve.maxX() - size.width - distance, curve.y + distance, size.width, size.height};
    }

    FrameButton();

    // What it leads to; the sign and the tooltip follow.
    enum class Destination : unsigned char { compactForm, wholeEditor };
    void setDestination(Destination destination);
    Destination destination() const { return destination_; }

    // Whether the pointer is somewhere that makes the button show.
    void setPointerNear(bool near);

    bool acceptsFirstMouse() const override { return true; }
    void mouseDown(const Event& event) override;
    void mouseEntered(const Event& event) override;
    void mouseExited(const Event& event) override;

private:
    void showAsNeeded();
    void style();

    Destination destination_ = Destination::compactForm;
    std::shared_ptr<ShapeLayer> sign_;
    bool isPointerNear_ = false, isHovered_ = false;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
