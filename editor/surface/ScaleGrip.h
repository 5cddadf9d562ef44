// The small sign in the bottom right corner by which the editor is dragged to another size.
//
// The corner follows the pointer along the editor's diagonal; a double click leads back to the plain size. Main thread
// only.
#pragma once

#include "editor/surface/CornerSign.h"
#include "platform/runloop/DelayedCall.h"

namespace QVM_NAMESPACE {

class EditorScale;

class ScaleGrip final : public CornerSign {
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

    void mouseDown(const Event& event) override;
    void mouseDragged(const Event& event) override;
    void mouseUp(const Event& event) override;
    void mouseCancelled(const Event& event) override;

private:
    // In the points of the window around, which stay as they are while the editor is scaled.
    Point inFrame(const Event& event) const;
    void follow();
    void end();

    EditorScale& scale_;
    Size layout_;
    Point hold_;   // from the pointer to the corner when it was taken
    Point corner_; // where it is to be, both in the frame
    bool hasMoved_ = false;
    double lastFollowed_ = 0; // seconds on the run loop's clock
    DelayedCall followCall_;
};

} // namespace QVM_NAMESPACE
