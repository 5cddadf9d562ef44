#include "viz/sketches/QVMLevelMeter.h"

#include "link/PeakLevel.h"
#include "platform/surface/DrawingSurface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr float kClipLevel = 0;                      // dB
constexpr float kClipAttack = 100, kClipRelease = 1; // a second
constexpr float kFadeRate = 4;                       // a second
constexpr float kFadeEnd = 0.01f;                    // as near is there
constexpr float kLookStepsPerPixel = 16, kLookSteps = 255;

template <class Sample>
Sample peakOf(const Sample* samples, unsigned nFrames, Sample peak) {
    for (unsigned i = 0; i < nFrames; ++i) {
        const Sample magnitude = std::abs(samples[i]);
        if (magnitude > peak) peak = magnitude; // false for NaN
    }
    return peak;
}

template <class Sample>
Sample peakOf(const QVMAudioBuffer<Sample>& buffer, unsigned nFrames) {
    Sample peak = 0;
    for (std::uint32_t c = 0; c < buffer.numChannels; ++c)
        peak = peakOf(buffer.channels[c], nFrames, peak);
    return peak;
}

// Exponential approach: what is left of the way after `dt`.
float approach(float value, float target, float ratePerSecond, float dt) {
    const float kept = std::exp(-ratePerSecond * dt);
    return value * kept + (1 - kept) * target;
}

Color mix(Color at1, Color at0, float amount) {
    return at0.mixedWith(at1, amount);
}

} // namespace

QVMLevelMeter::QVMLevelMeter(PBGLCanvas canvas, LevelWords& words) : canvas_(canvas), words_(words) {
    addChannels();
}

QVMLevelMeter::QVMLevelMeter(PBGLCanvas canvas, std::unique_ptr<LevelWords> words)
    : canvas_(canvas), ownWords_(std::move(words)), words_(*ownWords_) {
    addChannels();
}

QVMLevelMeter::QVMLevelMeter(PBGLCanvas canvas, int numChannels)
    : QVMLevelMeter(canvas,
                    std::make_unique<LevelWords>(static_cast<std::size_t>(numChannels), canvas.parameter.minValue)) {}

void QVMLevelMeter::addChannels() {
    looks_.resize(words_.channels());
    channels_.reserve(words_.channels());
    for (std::size_t i = 0; i < words_.channels(); ++i)
        channels_.emplace_back(words_.latest(i)).display = words_.silence();
}

void QVMLevelMeter::setCanvas(const PBGLCanvas& canvas) {
    canvas_ = canvas;
    looks_.assign(channels_.size(), {});
}

void QVMLevelMeter::processAudio(const QVMAudioBuffer<float>* buffer, unsigned nFrames, QVMFloat32Range range,
                                 int index) {
    post(peakLevel(peakOf(*buffer, nFrames), range), index);
}

void QVMLevelMeter::processAudio(const QVMAudioBuffer<double>* buffer, unsigned nFrames, QVMFloat32Range range,
                                 int index) {
    post(peakLevel(peakOf(*buffer, nFrames), range), index);
}

void QVMLevelMeter::processAudio(const float* samples, unsigned nFrames, QVMFloat32Range range, int index) {
    post(peakLevel(peakOf(samples, nFrames, 0.0f), range), index);
}

void QVMLevelMeter::processAudio(const double* samples, unsigned nFrames, QVMFloat32Range range, int index) {
    post(peakLevel(peakOf(samples, nFrames, 0.0), range), index);
}

float QVMLevelMeter::levelOfFrame(float dt, int index) {
    Channel& c = channel(index);
    const float latest = c.level;
    if (!(dt > 0)) return latest;
    const float highest = words_.takeHighest(static_cast<std::size_t>(index));
    c.unfedSeconds = highest == LevelWords::noLevel ? c.unfedSeconds + dt : 0;
    return c.unfedSeconds > words_.standingSeconds() ? words_.silence() : std::max(highest, latest);
}

void QVMLevelMeter::slew(float dt, int index) {
    Channel& c = channel(index);
    const float level = levelOfFrame(dt, index);
    const float milliseconds = c.display < level ? c.attackMs : c.releaseMs;
    c.display = approach(c.display, level, 1000 / milliseconds, dt);
    isClipping_ = isClipping_ || level >= kClipLevel;
    c.clip = level >= kClipLevel ? approach(c.clip, 1, kClipAttack, dt) : approach(c.clip, 0, kClipRelease, dt);
}

template <class Fill>
void QVMLevelMeter::advance(float dt, Fill fillFor) {
    const bool isReset = wasReset_ = words_.takeReset();
    isClipping_ = false;
    for (int i = 0; i < numChannels(); ++i) {
        Channel& c = channel(i);
        if (isReset) c.display = words_.silence();
        if (isReset) c.clip = 0;
        if (c.slewEnabled) {
            slew(dt, i);
        } else {
            c.display = levelOfFrame(dt, i);
        }
        const float fill = fillFor(c.display);
        c.fill = c.clampFill ? std::clamp(fill, 0.0f, 1.0f) : fill;
    }
}

void QVMLevelMeter::fade(float dt) {
    for (Channel& c : channels_) {
        if (c.opacity != c.opacityTarget) {
            c.opacity = approach(c.opacity, c.opacityTarget, kFadeRate, dt);
            if (std::abs(c.opacity - c.opacityTarget) < kFadeEnd) c.opacity = c.opacityTarget;
        }
        c.atRest = c.opacity == 0;
    }
}

Redraw QVMLevelMeter::prepareForDrawing(float dt) {
    advance(dt, [](float display) { return display; });
    return compareLooks();
}

Redraw QVMLevelMeter::prepareForDrawing(float dt, ScaleMapping toScale, unsigned pid) {
    advance(dt, [&](float display) { return toScale(pid, display); });
    fade(dt);
    return compareLooks();
}

Redraw QVMLevelMeter::prepareForDrawingWithParameterValue(float dt, float parameterValue, ScaleMapping toScale,
                                                          unsigned pid) {
    const Redraw redraw = prepareForDrawing(dt, toScale, pid);
    marker_ = std::clamp(toScale(pid, parameterValue), 0.0f, 1.0f);
    return redraw;
}

Redraw QVMLevelMeter::prepareForDrawingWithMapping(float dt, float (*map)(float)) {
    advance(dt, [&](float display) { return map(display); });
    return compareLooks();
}

QVMLevelMeter::Look QVMLevelMeter::lookOf(int index) const {
    const PBRect bar = barRect(canvas_, index);
    const bool horizontal = (canvas_.parameter.flags & PBParameterHorizontal) != 0;
    const Color colour = barColour(index);
    const auto step = [](float component) { return static_cast<int>(std::lround(component * kLookSteps)); };
    const float pixels = (horizontal ? bar.w : bar.h) * canvas_.scale;
    return {static_cast<int>(std::lround(pixels * kLookStepsPerPixel)), step(colour.r), step(colour.g), step(colour.b),
            step(colour.a)};
}

Redraw QVMLevelMeter::compareLooks() {
    Redraw redraw = Redraw::no;
    for (int i = 0; i < numChannels(); ++i) {
        Look& before = looks_[static_cast<std::size_t>(i)];
        const Look now = lookOf(i);
        if (now == before) continue;
        before = now;
        redraw = Redraw::yes;
    }
    return redraw;
}

PBRect QVMLevelMeter::barRect(const PBGLCanvas& canvas, int index) const {
    const Channel& c = channel(index);
    const PBRect& track = canvas.parameter.track;
    PBRect bar = {track.x + c.offset.x, track.y + c.offset.y, track.w, track.h};
    const bool horizontal = (canvas.parameter.flags & PBParameterHorizontal) != 0;
    (horizontal ? bar.w : bar.h) *= c.fill;
    if (canvas.meterInk) {
        const float half = canvas.meterInk->gap / 2;
        float& across = horizontal ? bar.y : bar.x;
        across += (horizontal ? c.offset.y : c.offset.x) < 0 ? -half : half;
    }
    return bar;
}

Color QVMLevelMeter::barColour(int index, const std::optional<MeterInk>& ink) const {
    const Channel& c = channel(index);
    Color colour =
        ink ? mix(ink->clip, ink->bar, c.clip) : mix(c.colourClip, mix(c.colourFull, c.colourEmpty, c.fill), c.clip);
    colour.a *= c.opacity;
    return colour;
}

void QVMLevelMeter::glDraw(PBGLCanvas canvas, DrawingSurface& surface) const {
    surface.setProjection(0, canvas.width, 0, canvas.height);
    for (int i = 0; i < numChannels() && !channel(i).atRest; ++i) {
        const PBRect bar = barRect(canvas, i);
        const float right = bar.x + bar.w, top = bar.y + bar.h;
        const std::array<Vertex, 4> corners = {{{bar.x, bar.y}, {right, bar.y}, {bar.x, top}, {right, top}}};
        surface.fillTriangles(corners, TriangleMode::strip, barColour(i, canvas.meterInk));
    }
}

} // namespace QVM_NAMESPACE
