// The small button in the corner of the response curve that leads to the compact form and back. It acts on the press,
// as the other buttons do. Main thread only.
#pragma once

#include "editor/surface/CornerSign.h"

namespace QVM_NAMESPACE {

class FrameButton final : public CornerSign {
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
    void setPointerNear(bool near) { showNear(near); }

    void mouseDown(const Event& event) override;

private:
    Destination destination_ = Destination::compactForm;
};

} // namespace QVM_NAMESPACE
