// A small sign in a corner that can be pressed: strokes on a shaded ground.
//
// It shows while the pointer is near, so that nothing covers the corner otherwise. Main thread only.
#pragma once

#include "platform/runloop/NotificationCenter.h"
#include "platform/view/Control.h"

#include <memory>

namespace QVM_NAMESPACE {

class Path;
class ShapeLayer;

class CornerSign : public Control {
public:
    bool acceptsFirstMouse() const override { return true; }
    void mouseEntered(const Event& event) override;
    void mouseExited(const Event& event) override;

protected:
    // `name` is that of its layer.
    CornerSign(const char* name, Size size, Cursor cursor);

    // The strokes, in own coordinates.
    void setSign(Path strokes);
    // Whether the pointer is somewhere that makes it show.
    void showNear(bool near);
    // Whether it stays wholly there wherever the pointer is.
    void showHeld(bool held);
    bool isHeld() const { return isHeld_; }

private:
    void showAsNeeded();
    void style();

    std::shared_ptr<ShapeLayer> sign_;
    bool isNear_ = false, isHovered_ = false, isHeld_ = false;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
