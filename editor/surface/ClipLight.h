// The light beside a meter's title that goes on when a channel reaches full scale, and stays until the meter is reset,
// it is pressed, or half a minute has gone by.
//
// Off, it is a quiet ring. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"
#include "platform/runloop/DelayedCall.h"

namespace QVM_NAMESPACE {

class PBGLSketchAbstract;

class ClipLight final : public ThemedView {
public:
    static constexpr double diameter = 7, margin = 5; // points, of what is seen, and around it for the pointer
    static constexpr double holdSeconds = 30;

    // Lights for the meter of a drawing object, which is only a name to hear it by.
    ClipLight(Point center, const PBGLSketchAbstract* meter);

    bool isLit() const { return isLit_; }
    void setLit(bool lit);

    void themeUpdated() override;
    bool acceptsFirstMouse() const override { return true; }
    // Not passed on: below it is a slider.
    void mouseDown(const Event&) override { setLit(false); }

private:
    const std::shared_ptr<Layer> light_;
    bool isLit_ = false;
    DelayedCall end_;
    ObservationToken clipped_, reset_;
};

} // namespace QVM_NAMESPACE
