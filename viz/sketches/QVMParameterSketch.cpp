#include "viz/sketches/QVMParameterSketch.h"

#include "description/ParameterIDs.h"
#include "description/QVMConfig.h"
#include "platform/view/Window.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double kNumericMeterSeconds = 0.5;
constexpr double kRestSeconds = 2; // in which nothing looked different, before frames rest

// What a printf format for one double makes of a number.
std::string formatted(const std::string& format, double number) {
    std::array<char, 64> text{};
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::snprintf(text.data(), text.size(), format.c_str(), number);
#pragma GCC diagnostic pop
    return text.data();
}

} // namespace

int MyDisplayLinkCallback(const std::shared_ptr<DisplayLink>& link, const DisplayTimeStamp& output, void* context) {
    // While nothing moves the main thread is left alone.
    if (!static_cast<const QVMParameterSketch*>(context)->isFrameWanted()) return 0;
    const double duration = static_cast<double>(output.videoRefreshPeriod) / output.videoTimeScale;
    const double time = static_cast<double>(output.videoTime) / output.videoTimeScale;
    link->postFrame([context, duration, time] {
        static_cast<QVMParameterSketch*>(context)->getFrameWithDurationAndTime(duration, time);
    });
    return 0;
}

QVMParameterSketch::QVMParameterSketch(const Rect& frame, const QVMConfig& config, float sampleRate, unsigned maxFrames,
                                       float scale, unsigned inChan, unsigned outChan)
    : View(frame), glSketch_(std::make_shared<QVMSketchGLLayer>()), numParams_(config.numParameters) {
    layer()->setName("parameterSketch");
    glSketch_->setFrame(getPathBounds(nullptr));
    glSketch_->look().setContentsScale(scale);
    glSketch_->setSampleRateMaxFramesSketchParamCountChanInChanOut(sampleRate, maxFrames, PB_Sketches[0],
                                                                   QVMParameterCount, inChan, outChan);
}

QVMParameterSketch::~QVMParameterSketch() {
    stopDisplayLink();
    for (QVMAuxiliarySketch* sketch : auxiliarySketches_)
        sketch->mainSketch_ = nullptr;
}

void QVMParameterSketch::addAuxiliarySketch(QVMAuxiliarySketch& sketch) {
    if (sketch.mainSketch_) sketch.mainSketch_->removeAuxiliarySketch(sketch);
    sketch.mainSketch_ = this;
    auxiliarySketches_.push_back(&sketch);
}

void QVMParameterSketch::removeAuxiliarySketch(QVMAuxiliarySketch& sketch) {
    if (std::erase(auxiliarySketches_, &sketch) > 0) sketch.mainSketch_ = nullptr;
}

void QVMParameterSketch::setBackdrop(std::unique_ptr<SketchBackdrop> backdrop) {
    if (backdrop_) backdrop_->layer()->tree().removeFromSuperlayer();
    backdrop_ = std::move(backdrop);
    if (!backdrop_) return;
    layer()->tree().insert(backdrop_->layer(), 0);
    layOutBackdrop();
    watchBackdrop();
    getVizRef()->requestFrame();
}

void QVMParameterSketch::layOutBackdrop() {
    if (!backdrop_) return;
    backdrop_->layer()->setFrame(bounds());
    backdrop_->layer()->look().setContentsScale(layer()->look().contentsScale());
}

void QVMParameterSketch::watchBackdrop() {
    if (backdrop_) backdrop_->setWatched(displayLink_ && vizVisible_ ? Watched::yes : Watched::no);
}

void QVMParameterSketch::performParameterConversionWithValues(unsigned pid, float* values) {
    glSketch_->performStaticConversionParameterValues(pid, values);
}

Rect QVMParameterSketch::getPathBounds(const Layer* path) const {
    return path && path->tree().superlayer() ? path->tree().superlayer()->bounds() : bounds();
}

void QVMParameterSketch::setVizVisible(bool visible) {
    const bool changes = std::exchange(vizVisible_, visible) != visible;
    if (!visible || layer()->opacity() != 1) {
        layer()->setOpacity(visible ? 1 : 0);
        glSketch_->setShouldRender(visible);
        for (QVMAuxiliarySketch* sketch : auxiliarySketches_)
            sketch->glSketch()->setShouldRender(visible);
    }
    watchBackdrop();
    if (changes && delegate_) delegate_->sketchDidChangeVisibility(*this);
}

void QVMParameterSketch::viewDidMoveToWindow() {
    stopDisplayLink();
    windowVisibility_.reset();
    if (!window()) return;
    hasGL_ = true;
    if (!glSketch_->tree().superlayer()) layer()->tree().add(glSketch_); // once: others may stand above it
    setVizVisible(true);
    viewDidChangeBackingProperties();
    windowVisibility_ = NotificationCenter::defaultCenter().observe(
        Window::didChangeVisibilityNotification, window(),
        [this](const auto&) { window()->isVisible() ? startDisplayLink() : stopDisplayLink(); });
    if (window()->isVisible()) startDisplayLink();
}

void QVMParameterSketch::startDisplayLink() {
    if (displayLink_) return;
    getVizRef()->requestFrame(); // the first one says that the sketches are ready
    displayLink_ = DisplayLink::create();
    displayLink_->setOutputCallback(MyDisplayLinkCallback, this);
    displayLink_->start();
    watchBackdrop();
}

void QVMParameterSketch::stopDisplayLink() {
    if (!displayLink_) return;
    displayLink_->stop();
    displayLink_.reset();
    timestamp_ = 0;
    watchBackdrop();
}

void QVMParameterSketch::viewDidChangeBackingProperties() {
    glSketch_->look().setContentsScale(layer()->look().contentsScale());
    glSketch_->canvasDidChange();
    layOutBackdrop();
}

void QVMParameterSketch::frameDidChange() {
    glSketch_->setFrame(bounds());
    glSketch_->canvasDidChange();
    layOutBackdrop();
}

void QVMParameterSketch::getFrameWithDurationAndTime(double duration, double time) {
    const bool isAskedFor = getVizRef()->takeFrameRequest();
    // After a rest what moves has begun to with this frame.
    const double elapsed = isMoving_ && timestamp_ > 0 ? std::max(duration, time - timestamp_) : duration;
    timestamp_ = time;
    bool isChanged = false;
    if (hasGL_) {
        const auto seconds = static_cast<float>(elapsed);
        glSketch_->performInterp();
        if (glSketch_->isInterpolating()) isChanged = prepareSketches(seconds, true) == Redraw::yes;
        isChanged |= prepareSketches(seconds, false) == Redraw::yes;
        if (backdrop_) isChanged |= backdrop_->prepareForDrawing(seconds) == Redraw::yes;
        handOnStates();
    }
    updateNumericMeter(time);
    // What moves slowly looks the same for some frames.
    if (isAskedFor || isChanged || glSketch_->isInterpolating()) lastMotion_ = time;
    isMoving_ = time - lastMotion_ < kRestSeconds;
}

void QVMParameterSketch::handOnStates() {
    const QVMParameterState* const states = getVizRefParameterStates();
    if (!delegate_ || delegate_->sketchHasUpdatedParameterStates(*this, states) != StatesAre::theUnits) return;
    if (!values_) return;
    const std::uint32_t stored = getVizRef()->takeStoredParameters(); // before the values, so that none goes unseen
    for (std::uint32_t pid = 0; pid < getVizRef()->paramCount(); ++pid)
        values_->receiveIfNew(pid, states[pid].value, (stored >> pid & 1) != 0);
    values_->frameWasReceived();
}

Redraw QVMParameterSketch::prepareSketches(float duration, bool parameterSketches) {
    Redraw redraw = glSketch_->prepareForDrawingWithDurationParameterSketch(duration, parameterSketches);
    for (QVMAuxiliarySketch* sketch : auxiliarySketches_) {
        if (sketch->glSketch()->prepareForDrawingWithDurationParameterSketch(duration, parameterSketches) ==
            Redraw::yes)
            redraw = Redraw::yes;
    }
    return redraw;
}

void QVMParameterSketch::updateNumericMeter(double time) {
    if (!numericMeter_ || !(time - numericMeterTimestamp_ > kNumericMeterSeconds)) return;
    numericMeterTimestamp_ = time;
    const float value = glSketch_->getNumericMeterValue();
    if (value == lastNumericMeterValue_) return;
    lastNumericMeterValue_ = value;
    numericMeter_->setSuffix(glSketch_->getNumericMeterSuffix());
    numericMeter_->resetGlyphColor(formatted(glSketch_->getNumericMeterFormat(), value), std::nullopt);
}

} // namespace QVM_NAMESPACE
