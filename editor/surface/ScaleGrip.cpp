#include "editor/surface/ScaleGrip.h"

#include "editor/surface/EditorScale.h"
#include "editor/surface/ToolTips.h"
#include "platform/layer/Path.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double signEnd = 4, longStroke = 8, shortStroke = 4; // points, from the sign's own corner
constexpr double nearDistance = 56;                            // points from the corner, along each axis
constexpr double followSeconds = 1.0 / 60;                     // between sizes, at least

// Two strokes across the corner.
Path strokes() {
    const double end = ScaleGrip::size.width - signEnd;
    Path path;
    for (const double length : {longStroke, shortStroke})
        path.moveTo({end, end - length}).lineTo({end - length, end});
    return path;
}

} // namespace

ScaleGrip::ScaleGrip(EditorScale& scale) : CornerSign("scaleGrip", size, Cursor::resizeDiagonal), scale_(scale) {
    setSign(strokes());
    setToolTip(toolTipOf(Button::sizeGrip));
}

void ScaleGrip::placeIn(Size layout) {
    layout_ = layout;
    setFrame({layout.width - size.width - inset, layout.height - size.height - inset, size.width, size.height});
}

void ScaleGrip::pointerMoved(Point at) {
    showNear(at.x > layout_.width - nearDistance && at.y > layout_.height - nearDistance);
}

void ScaleGrip::pointerLeft() {
    showNear(false);
}

Point ScaleGrip::inFrame(const Event& event) const {
    const double shown = scale_.shown();
    return scale_.origin() + Point{event.locationInWindow.x * shown, event.locationInWindow.y * shown};
}

void ScaleGrip::mouseDown(const Event& event) {
    if (event.clickCount == 2) return scale_.choose(1);
    const Point at = inFrame(event);
    const double shown = scale_.shown();
    hold_ = {layout_.width * shown - at.x, layout_.height * shown - at.y};
    hasMoved_ = false;
    showHeld(true);
}

// The editor is drawn anew for each size: one a refresh is enough.
void ScaleGrip::mouseDragged(const Event& event) {
    if (!isHeld()) return;
    const Point at = inFrame(event);
    corner_ = {at.x + hold_.x, at.y + hold_.y};
    hasMoved_ = true;
    const double wait = lastFollowed_ + followSeconds - RunLoop::main().now();
    if (wait <= 0) return follow();
    if (!followCall_.isPending()) followCall_.schedule(wait, [this] { follow(); });
}

// The point of the diagonal that is nearest to the pointer, in whole points of width.
void ScaleGrip::follow() {
    followCall_.cancel();
    lastFollowed_ = RunLoop::main().now();
    const double along = (corner_.x * layout_.width + corner_.y * layout_.height) /
                         (layout_.width * layout_.width + layout_.height * layout_.height);
    scale_.show(static_cast<float>(std::round(along * layout_.width) / layout_.width));
}

void ScaleGrip::mouseUp(const Event& event) {
    if (hasMoved_) mouseDragged(event);
    end();
}

void ScaleGrip::mouseCancelled(const Event&) {
    end();
}

void ScaleGrip::end() {
    if (!isHeld()) return;
    showHeld(false);
    if (followCall_.isPending()) follow();
    if (hasMoved_) scale_.keep();
}

} // namespace QVM_NAMESPACE
