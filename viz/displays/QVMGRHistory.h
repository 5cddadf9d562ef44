// The gain reduction of the last one and a half seconds, newest at the left, as an area that hangs from the rest level.
//
// Values are in dB, 0 for none. The audio side writes two words and never waits; everything else is the main thread's.
#pragma once

#include "platform/surface/Color.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

// Seconds since some fixed moment, by the host's clock. Any thread; never waits.
double hostClockSeconds();

class QVMGRHistory {
public:
    // Seconds since some fixed moment. Called on both sides.
    using Clock = std::function<double()>;
    explicit QVMGRHistory(Clock clock = hostClockSeconds) : clock_(std::move(clock)) {}

    // `range` is the scale in dB, and from -12 to 0 in place of what is none; with `autoRange` its bottom follows what
    // there is to see. The flag is kept, and nothing depends on it. Main thread, before audio is processed.
    void init(PBGLCanvas canvas, QVMFloat32Range range, bool autoRange, bool flag);

    // Audio side: the gain reduction now; `clamp` keeps it within the scale as it is. What is no finite number then
    // counts for nothing.
    void processAudio(float value, bool clamp);

    // Main thread from here on. Scrolls by `dt` seconds. Without a value for a tenth of a second the reading goes back
    // to rest, five times as slowly as it follows one.
    Redraw prepareForDrawing(float dt);
    // A line every 6 dB, more faintly every other one; none where they would stand closer than a point.
    void drawBackground(DrawingSurface& surface) const;
    void glDraw(DrawingSurface& surface) const;

    int numPoints() const { return static_cast<int>(history_.size()); }
    std::size_t keptPoints() const { return keptPoints_; } // of the line
    float latest() const { return latest_; }
    float smoothed() const { return smoothed_; }
    QVMFloat32Range range() const { return {bottom_, top_}; } // dB
    bool flag() const { return flag_; }
    std::span<const float> history() const { return history_; } // dB, newest first
    // The line, -1 to +1.
    std::span<const float> xs() const { return std::span(lineXs_).first(keptPoints_); }
    std::span<const float> ys() const { return std::span(lineYs_).first(keptPoints_); }

private:
    void scrollBy(float dt);
    void followRange(float dt);
    bool hasScaleMoved() const;
    float heightOf(float value) const;
    void fillFrom(DrawingSurface& surface, float rest) const;

    Clock clock_;
    PBGLCanvas canvas_;
    float pixel_ = 0;       // a device pixel, as a share of the height
    float duration_ = 1.5f; // seconds across the canvas
    bool autoRange_ = false, flag_ = false;
    SharedWord<float> bottom_ = 0;    // of the scale in dB, written by the main thread
    float drawnBottom_ = 0;           // dB, in the last picture
    float top_ = 0;                   // dB
    SharedWord<float> latest_ = 0;    // dB, written by both sides
    SharedWord<double> lastTime_ = 0; // of the latest value, seconds
    float smoothed_ = 0;
    float rate_ = -30.003f; // a second
    double scroll_ = 0;     // what is left of a point
    float restValue_ = 0;   // dB
    Color colour_;
    std::vector<float> history_, xs_;
    std::vector<float> lineXs_, lineYs_, lastXs_, lastYs_; // of this frame and of the one before
    std::size_t keptPoints_ = 0;
};

} // namespace QVM_NAMESPACE
