#include "viz/sketches/QVMAuxiliarySketch.h"

#include "viz/sketches/QVMParameterSketch.h"

#include <utility>

namespace QVM_NAMESPACE {

QVMAuxiliarySketch::QVMAuxiliarySketch(const Rect& frame, float sampleRate, unsigned maxFrames, const PBSketch& sketch,
                                       unsigned paramCount, VizRef vizRef, float scale, unsigned inChan,
                                       unsigned outChan)
    : View(frame), glSketch_(std::make_shared<QVMSketchGLLayer>()) {
    layer()->setName("auxiliarySketch");
    glSketch_->setFrame(bounds());
    glSketch_->look().setContentsScale(scale);
    glSketch_->useVizRef(std::move(vizRef));
    glSketch_->setSampleRateMaxFramesSketchParamCountChanInChanOut(sampleRate, maxFrames, sketch, paramCount, inChan,
                                                                   outChan);
}

QVMAuxiliarySketch::~QVMAuxiliarySketch() {
    if (mainSketch_) mainSketch_->removeAuxiliarySketch(*this);
}

void QVMAuxiliarySketch::viewDidMoveToWindow() {
    if (!window()) return;
    layer()->tree().add(glSketch_);
    viewDidChangeBackingProperties();
}

void QVMAuxiliarySketch::viewDidChangeBackingProperties() {
    glSketch_->look().setContentsScale(layer()->look().contentsScale());
    glSketch_->canvasDidChange();
}

void QVMAuxiliarySketch::frameDidChange() {
    glSketch_->setFrame(bounds());
    glSketch_->canvasDidChange();
}

} // namespace QVM_NAMESPACE
