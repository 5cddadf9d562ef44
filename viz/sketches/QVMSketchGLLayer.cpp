#include "viz/sketches/QVMSketchGLLayer.h"

#include "viz/sketches/MainQueue.h"

#include <algorithm>

namespace QVM_NAMESPACE {

QVMSketchGLLayer::QVMSketchGLLayer() {
    setName("sketch");
}

QVMSketchGLLayer::~QVMSketchGLLayer() {
    if (isSetUp_) --cppSketch_->refCount;
}

QVMParameterState* QVMSketchGLLayer::getVizRefParameterStates() const {
    return cppSketch_ ? cppSketch_->parameterStates().data() : nullptr;
}

void QVMSketchGLLayer::setSampleRateMaxFramesSketchParamCountChanInChanOut(float sampleRate, unsigned maxFrames,
                                                                           const PBSketch& sketch, unsigned paramCount,
                                                                           unsigned chanIn, unsigned chanOut) {
    sketch_ = sketch;
    sampleRate_ = sampleRate;
    maxFrames_ = maxFrames;
    if (cppSketch_) {
        build();
    } else {
        cppSketch_ = makeVizRef(sampleRate, chanIn, chanOut);
        build();
        cppSketch_->sizeStates(paramCount);
    }
    ++cppSketch_->refCount;
    isSetUp_ = true;
}

void QVMSketchGLLayer::build() {
    builtSize_ = bounds().size();
    builtScale_ = look().contentsScale();
    cppSketch_->init(canvas(), sampleRate_, maxFrames_);
}

void QVMSketchGLLayer::canvasDidChange() {
    if (!isSetUp_ || (builtSize_ == bounds().size() && builtScale_ == look().contentsScale())) return;
    build();
    if (canRender_) cppSketch_->prepareForDrawing(canvas(), 0);
    look().setNeedsDisplay();
}

PBGLCanvas QVMSketchGLLayer::canvas() const {
    PBGLCanvas canvas;
    canvas.sid = sketch_.sid;
    canvas.sketch = sketch_;
    const auto row = static_cast<std::size_t>(sketch_.pid);
    if (row < PB_Parameters.size()) canvas.parameter = PB_Parameters[row];
    canvas.width = static_cast<float>(bounds().width);
    canvas.height = static_cast<float>(bounds().height);
    canvas.scale = static_cast<float>(look().contentsScale());
    canvas.meterInk = meterInk_;
    return canvas;
}

void QVMSketchGLLayer::setMeterInk(const MeterInk& ink) {
    if (meterInk_ == ink) return;
    meterInk_ = ink;
    look().setNeedsDisplay();
}

void QVMSketchGLLayer::performInterp() {
    if (cppSketch_) cppSketch_->performInterp();
}

bool QVMSketchGLLayer::isInterpolating() const {
    return cppSketch_ && cppSketch_->isInterpolating();
}

Redraw QVMSketchGLLayer::prepareForDrawingWithDurationParameterSketch(float duration, bool parameterSketch) {
    if (!cppSketch_ || sketch_.parameterSketch != parameterSketch) return Redraw::no;
    const Redraw redraw = cppSketch_->prepareForDrawing(canvas(), duration);
    if (redraw == Redraw::no && canRender_) return Redraw::no;
    runOnMainQueueWithoutDeadlocking([this] {
        canRender_ = true;
        look().setNeedsDisplay();
    });
    return Redraw::yes;
}

void QVMSketchGLLayer::backgroundDrawWithContext(DrawingSurface& surface) {
    if (cppSketch_) cppSketch_->backgroundDraw(canvas(), surface);
}

void QVMSketchGLLayer::draw(DrawingSurface& surface) const {
    if (shouldRender_ && canRender_) cppSketch_->glDraw(canvas(), surface);
}

void QVMSketchGLLayer::setShouldRender(bool shouldRender) {
    if (shouldRender_ == shouldRender) return;
    shouldRender_ = shouldRender;
    look().setNeedsDisplay();
}

void QVMSketchGLLayer::addParameterStates(const QVMParameterState* states) {
    if (cppSketch_) std::copy_n(states, cppSketch_->paramCount(), cppSketch_->parameterStates().begin());
}

float QVMSketchGLLayer::getNumericMeterValue() const {
    return cppSketch_ ? cppSketch_->numericMeterValue().load() : 0.0f;
}

std::string QVMSketchGLLayer::getNumericMeterFormat() const {
    return cppSketch_ ? cppSketch_->numericMeterFormat().load() : "";
}

std::string QVMSketchGLLayer::getNumericMeterSuffix() const {
    return cppSketch_ ? cppSketch_->numericMeterSuffix().load() : "";
}

void QVMSketchGLLayer::performStaticConversionParameterValues(unsigned pid, float* values) {
    if (cppSketch_) cppSketch_->performStaticConversion(pid, values);
}

} // namespace QVM_NAMESPACE
