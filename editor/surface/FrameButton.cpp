#include "editor/surface/FrameButton.h"

#include "editor/surface/ToolTips.h"
#include "platform/layer/Path.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double reach = 4.5, arm = 3.5; // points

// Two arrows along a diagonal, with their heads at the ends of the square or at its middle.
Path arrows(FrameButton::Destination destination) {
    const bool outwards = destination == FrameButton::Destination::wholeEditor;
    const double near = FrameButton::size.width / 2 + 1, far = FrameButton::size.width - reach;
    const Point head =
        outwards ? Point{far, FrameButton::size.height - far} : Point{near, FrameButton::size.height - near};
    const Point tail =
        outwards ? Point{near, FrameButton::size.height - near} : Point{far, FrameButton::size.height - far};
    const double back = outwards ? -arm : arm;
    const auto opposite = [](Point p) { return Point{FrameButton::size.width - p.x, FrameButton::size.height - p.y}; };
    Path path;
    const auto addArrow = [&path](Point from, Point to, double side) {
        path.moveTo({to.x + side, to.y}).lineTo(to).lineTo({to.x, to.y - side}).moveTo(from).lineTo(to);
    };
    addArrow(tail, head, back);
    addArrow(opposite(tail), opposite(head), -back);
    return path;
}

} // namespace

FrameButton::FrameButton() : CornerSign("frameButton", size, Cursor::pointingHand) {
    setDestination(Destination::compactForm);
}

void FrameButton::setDestination(Destination destination) {
    destination_ = destination;
    setSign(arrows(destination));
    setToolTip(toolTipOf(destination == Destination::compactForm ? Button::compactForm : Button::wholeEditor));
}

void FrameButton::mouseDown(const Event& event) {
    sendAction();
    Control::mouseDown(event);
}

} // namespace QVM_NAMESPACE
