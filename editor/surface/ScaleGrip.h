// The small sign in the bottom right corner by which the editor is dragged to another size.
//
// It shows while the pointer is near the corner, so that nothing stands there otherwise. The corner follows the pointer
// along the editor's diagonal; a double click leads back to the plain size. Main thread only.
#pragma once

#include "platform/runloop/DelayedCall.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/view/Control.h"

#include <memory>

namespace QVM_NAMESPACE {

class EditorScale;
class ShapeLayer;

class ScaleGrip final : public Control {
public:
    static constexpr Size size = {16, 16}; // points
    static constexpr double inset = 2;     // points to the edges of the layout

    // The scale is borrowed.
    explicit ScaleGrip(EditorScale& scale);

    // In the corner of a layout of this size.
    void placeIn(Size layout);
    // Where the pointer is, in the superview; and that it has left.
    void pointerMoved(Point at);
    void pointerLeft();

    bool acceptsFirstMouse() const override { return true; }
    void mouseDown(const Event& event) override;
    void mouseDragged(const Event& event) override;
    void mouseUp(const Event& event) override;
    void mouseCancelled(const Event& event) override;
    void mouseEntered(const Event& event) override;
    void mouseExited(const Event& event) override;

private:
    // In the points of the window around, which stay as they are while the editor is scaled.
    Point inFrame(const Event& event) const;
    void follow();
    void end();
    void showAsNeeded();
    void style();

    EditorScale& scale_;
    std::shared_ptr<ShapeLayer> sign_;
    Size layout_;
    Point hold_;   // from the pointer to the corner when it was taken
    Point corner_; // where it is to be, both in the frame
    bool isNear_ = false, isHovered_ = false, isHeld_ = false, hasMoved_ = false;
    bool isDue_ = false;      // to follow, by the call
    double lastFollowed_ = 0; // seconds on the run loop's clock
    DelayedCall followCall_;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
