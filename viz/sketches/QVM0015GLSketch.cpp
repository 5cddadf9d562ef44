#include "viz/sketches/QVM0015GLSketch.h"

#include "description/ValueMapping.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/vector/VectorMath.h"
#include "response/ResponseModel.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kResolution = 0.5f; // a point of the curve for each device pixel
constexpr QVMFloat32Range kFrequencies = {static_cast<float>(model::lowestHertz),
                                          static_cast<float>(model::highestHertz)};
constexpr float kLeastAxis = 7.5f, kAxisMargin = 1.5f; // dB
constexpr int kResponse = 0, kAudition = 1, kCurves = 2;
constexpr float kBackgroundShare = 0.35f;        // of the response's colour and alpha while something is auditioned
constexpr float kRadiansPerHertz = 6.544984e-5f; // pi / 48000

constexpr int kMeterChannels = SharedState::meterChannels;
constexpr float kMeterAlphas[kMeterChannels] = {0.25f, 0.5f};
constexpr float kMeterSides[kMeterChannels] = {-0.5f, 0.5f}; // times the track's width

} // namespace

void QVM0015GLSketch::init(PBGLCanvas canvas, float, unsigned) {
    if (canvas.sid == PBSketchResponseCurve) initResponseCurve(canvas);
    if (canvas.sid == PBSketchLevelMeter) initLevelMeter(canvas);
}

void QVM0015GLSketch::initResponseCurve(const PBGLCanvas& canvas) {
    responseDisplay_.init(canvas, kResolution, kFrequencies, {-kLeastAxis, kLeastAxis}, kCurves);
    responseDisplay_.showGrid = true;
    numPoints_ = responseDisplay_.numPoints();
    const auto count = static_cast<std::size_t>(numPoints_);
    for (std::vector<float>* curve :
         {&response_, &hpMag_, &filterMag_, &listenCurve_, &sinSq_, &sinQuad_, &resoCurve_, &loudnessWeights_})
        curve->assign(count, 0);
    for (std::size_t i = 0; i < count; ++i) {
        const float hertz = responseDisplay_.freqs()[i];
        const float sine = std::sin(hertz * kRadiansPerHertz);
        sinSq_[i] = sine * sine;
        sinQuad_[i] = sinSq_[i] * sinSq_[i];
        loudnessWeights_[i] = static_cast<float>(model::loudnessWeight(hertz));
    }
    loudnessWeightsRms_ = vectors::rms(loudnessWeights_.data(), count);
}

void QVM0015GLSketch::initLevelMeter(const PBGLCanvas& canvas) {
    if (levelMeter_) return levelMeter_->setCanvas(canvas);
    levelMeter_ = std::make_unique<QVMLevelMeter>(canvas, sharedState.levels);
    for (int i = 0; i < kMeterChannels; ++i) {
        QVMLevelMeter::Channel& channel = levelMeter_->channel(i);
        channel.offset.x = kMeterSides[i] * canvas.parameter.track.w;
        channel.colourEmpty = channel.colourFull = {0, 0, 0, kMeterAlphas[i]};
        channel.colourClip = {1, 0, 0, kMeterAlphas[i]};
    }
}

Redraw QVM0015GLSketch::prepareForDrawing(PBGLCanvas canvas, float duration) {
    if (canvas.sid == PBSketchResponseCurve) return prepareResponseCurve(duration);
    if (canvas.sid == PBSketchLevelMeter && levelMeter_) return prepareLevelMeter(duration);
    return Redraw::no;
}

Redraw QVM0015GLSketch::prepareLevelMeter(float duration) {
    const Redraw redraw = levelMeter_->prepareForDrawing(duration, ParameterFloatValueToPercentage, pidOutputGain);
    const PBGLSketchAbstract* const sender = this;
    if (levelMeter_->wasReset()) NotificationCenter::defaultCenter().post(QVMLevelMeter::resetNotification, sender);
    if (levelMeter_->isClipping()) NotificationCenter::defaultCenter().post(QVMLevelMeter::clippedNotification, sender);
    return redraw;
}

float QVM0015GLSketch::axisDecibels() const {
    return std::max(std::abs(display(pidTiltGain)) + kAxisMargin, kLeastAxis);
}

Redraw QVM0015GLSketch::prepareResponseCurve(float duration) {
    if (paramCount() <= pidFilterResonanceHigh) return Redraw::no; // the states were not sized yet
    const bool listenLow = listensLow(), listenHigh = listensHigh();
    const float axis = axisDecibels();
    responseDisplay_.dbRange = {-axis, axis};
    calcRespWithFreqs(responseDisplay_.freqs().data(), listenLow, listenHigh, response_.data());
    responseDisplay_.prepareForDrawing(response_.data(), duration, kResponse);

    const bool auditions = listenLow || listenHigh;
    if (auditions) responseDisplay_.prepareForDrawing(listenCurve_.data(), duration, kAudition);
    responseDisplay_.curve(kAudition).hidden = !auditions;
    const QVMRGBColor& rgb = responseDisplay_.canvas().sketch.color;
    const float share = auditions ? kBackgroundShare : 1;
    responseDisplay_.curve(kResponse).colour = {rgb.r * share, rgb.g * share, rgb.b * share, share};
    return Redraw::yes;
}

void QVM0015GLSketch::glDraw(PBGLCanvas canvas, DrawingSurface& surface) {
    if (canvas.sid == PBSketchResponseCurve) responseDisplay_.glDraw(surface);
    if (canvas.sid == PBSketchLevelMeter && levelMeter_) levelMeter_->glDraw(canvas, surface);
}

} // namespace QVM_NAMESPACE
