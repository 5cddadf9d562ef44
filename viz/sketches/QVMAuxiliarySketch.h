// A view for a further sketch that shares the main sketch's drawing object. Main thread only.
#pragma once

#include "platform/view/View.h"
#include "viz/sketches/QVMSketchGLLayer.h"

#include <memory>

namespace QVM_NAMESPACE {

class QVMParameterSketch;

class QVMAuxiliarySketch final : public View {
public:
    // Shares `vizRef` with the main sketch, which was given it first. `scale` is in device pixels a point.
    QVMAuxiliarySketch(const Rect& frame, float sampleRate, unsigned maxFrames, const PBSketch& sketch,
                       unsigned paramCount, VizRef vizRef, float scale, unsigned inChan, unsigned outChan);
    // Takes itself off the main sketch's list.
    ~QVMAuxiliarySketch() override;

    const std::shared_ptr<QVMSketchGLLayer>& glSketch() const { return glSketch_; }

    void viewDidMoveToWindow() override;
    void viewDidChangeBackingProperties() override;
    void frameDidChange() override;
    // What is seen here can't be clicked: clicks are for what stands below.
    View* hitTest(Point) override { return nullptr; }

    // Named by the contract and not used in this product: nothing of a sketch is drawn ahead of its frames.
    void backgroundDrawWithContext(DrawingSurface& surface) { glSketch_->backgroundDrawWithContext(surface); }

private:
    friend class QVMParameterSketch;
    std::shared_ptr<QVMSketchGLLayer> glSketch_;
    QVMParameterSketch* mainSketch_ = nullptr; // that has this one on its list
};

} // namespace QVM_NAMESPACE
